// dialog_sheet.h - all that a user sees of a window as lines of text: group by group its labels,
// buttons, fields and what they hold, with mnemonics, tooltips and limits.
#pragma once

#include <gtest/gtest.h>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTableView>
#include <QToolButton>

#include <string>

#include "desktop/qt_text.h"

namespace cantorix {

inline QString ListOf(const QComboBox& list) {
  QStringList entries;
  for (int i = 0; i < list.count(); ++i) {
    entries << (i == list.currentIndex() ? '*' + list.itemText(i) : list.itemText(i));
  }
  return entries.join(" | ");
}

// What a user sees of one widget, or "".
inline QString SheetLine(const QWidget& widget) {
  const QString name = widget.accessibleName() + " = ";
  if (widget.inherits("QToolBarSeparator")) return "--";
  if (const auto* group = qobject_cast<const QGroupBox*>(&widget))
    return '[' + group->title() + ']';
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
    const QString buddy =
        label->buddy() == nullptr ? "" : " for " + label->buddy()->accessibleName();
    const QString rich = label->textFormat() == Qt::PlainText ? "" : " rich";
    return '"' + label->text() + '"' + buddy + rich;
  }
  if (const auto* list = qobject_cast<const QComboBox*>(&widget)) return name + ListOf(*list);
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
    if (button->text().isEmpty()) return {};
    const QString state = !button->isCheckable() ? "< > " : button->isChecked() ? "(x) " : "( ) ";
    const auto* const push = qobject_cast<const QPushButton*>(button);
    const bool takesEnter = push != nullptr && (push->isDefault() || push->autoDefault());
    const QString spoken =
        button->accessibleName().isEmpty() ? "" : " (" + button->accessibleName() + ')';
    const auto* const tool = qobject_cast<const QToolButton*>(button);
    const QString menu = tool != nullptr && tool->menu() != nullptr
                             ? QString(" opens %1").arg(tool->menu()->actions().size())
                             : "";
    return state + button->text() + spoken + menu + (takesEnter ? " Enter" : "");
  }
  if (const auto* box = qobject_cast<const QSpinBox*>(&widget)) {
    return QString("%1, %2 to %3").arg(box->text()).arg(box->minimum()).arg(box->maximum());
  }
  if (const auto* box = qobject_cast<const QDoubleSpinBox*>(&widget)) {
    return QString("%1, %2 to %3").arg(box->text()).arg(box->minimum()).arg(box->maximum());
  }
  const auto* field = qobject_cast<const QLineEdit*>(&widget);
  if (field == nullptr || qobject_cast<const QAbstractSpinBox*>(field->parent())) return {};
  constexpr int kUsualLetters = 32767;
  const int letters = field->maxLength();
  const QString most = letters == kUsualLetters ? "" : QString(", %1 letters").arg(letters);
  const QString side = (field->alignment() & Qt::AlignRight) != 0 ? ", right" : "";
  return name + field->text() + most + side;
}

// What a user can see stands beside each other: nothing that was left out of its layout.
inline void ExpectApart(const QList<QWidget*>& seen) {
  for (const QWidget* const one : seen) {
    if (SheetLine(*one).isEmpty()) continue;
    EXPECT_TRUE(one->parentWidget()->rect().contains(one->geometry())) << Typed(SheetLine(*one));
    for (const QWidget* const other : seen) {
      if (other == one || other->parent() != one->parent() || SheetLine(*other).isEmpty()) continue;
      EXPECT_FALSE(one->geometry().intersects(other->geometry()))
          << Typed(SheetLine(*one)) << " / " << Typed(SheetLine(*other));
    }
  }
}

// A line for each widget, below the title; `remark` has more to say of one.
template <typename Remark>
std::string SheetOf(QWidget& window, const Remark& remark) {
  window.show();
  const bool isFixed = window.minimumSize() == window.maximumSize();
  QString sheet = QString("== %1 == %2x%3%4\n")
                      .arg(window.windowTitle())
                      .arg(window.width())
                      .arg(window.height())
                      .arg(isFixed ? " fixed" : "");
  QList<QWidget*> seen = window.findChildren<QWidget*>();
  seen.removeIf([](QWidget* widget) { return !widget->isVisible(); });
  ExpectApart(seen);
  for (QWidget* const widget : seen) {
    const QString line = SheetLine(*widget);
    if (line.isEmpty()) continue;
    const QString use = widget->isEnabled() ? "" : " (off)";
    const QString tip = widget->toolTip().isEmpty() ? "" : " tip " + widget->toolTip();
    const QRect at(widget->mapTo(&window, QPoint()), widget->size());
    sheet += line + use + tip + remark(*widget) +
             QString(" @%1,%2 %3x%4\n").arg(at.x()).arg(at.y()).arg(at.width()).arg(at.height());
  }
  return Typed(sheet) + '\n';
}

inline std::string SheetOf(QWidget& window) {
  return SheetOf(window, [](QWidget&) { return QString(); });
}

// The headings and the rows of a table; a cell that stands right begins with ">".
inline std::string TableSheet(const QTableView& table) {
  const QAbstractItemModel& model = *table.model();
  const int columns = model.columnCount();
  QString sheet;
  for (int row = -1; row < model.rowCount(); ++row) {
    QStringList cells{row < 0 ? "" : model.headerData(row, Qt::Vertical).toString()};
    for (int column = 0; column < columns; ++column) {
      const QModelIndex at = model.index(row, column);
      const QVariant place = at.data(Qt::TextAlignmentRole);
      const bool right = place.isValid() && (place.toInt() & Qt::AlignRight) != 0;
      cells << (row < 0 ? model.headerData(column, Qt::Horizontal).toString()
                        : (right ? ">" : "") + at.data().toString());
    }
    sheet += cells.join(" | ") + '\n';
  }
  return Typed(sheet) + '\n';
}

}  // namespace cantorix
