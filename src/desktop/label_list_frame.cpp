// label_list_frame.cpp - rows, their keys and their menu.
#include "desktop/label_list_frame.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QShortcut>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/qt_text.h"
#include "desktop/table_rows.h"
#include "mainview/listening.h"
#include "platform/numbers.h"
#include "settings/settings.h"
#include "settings/time_base.h"

namespace cantorix {
namespace {

enum Column { kTier, kTime, kText, kColumns };

}  // namespace

void LabelListModel::Show(const CSonadexView* view) {
  beginResetModel();
  rows_.clear();
  if (view != nullptr) {
    rows_ = LabelListRows(view->document());
    timeBase_ = view->document().settings.display.timeBase;
  }
  endResetModel();
}

int LabelListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int LabelListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant LabelListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount()) return {};
  const LabelListRow& label = row(index.row());
  if (role == Qt::TextAlignmentRole && index.column() == kTime) {
    return QVariant(Qt::AlignRight | Qt::AlignVCenter);
  }
  if (role != Qt::DisplayRole) return {};
  switch (index.column()) {
    case kTier:
      return Shown(label.tierName);
    case kTime:
      return Shown(FormatOneDecimal(InTimeBase(label.timeMs, timeBase_)));
    default:
      return Shown(label.text);
  }
}

QVariant LabelListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return {};
  if (orientation == Qt::Vertical) return section + 1;
  switch (section) {
    case kTier:
      return QStringLiteral("Tier");
    case kTime:
      return timeBase_ != 0 ? QStringLiteral("Time (sec)") : QStringLiteral("Time (ms)");
    default:
      return QStringLiteral("Label");
  }
}

LabelListFrame::LabelListFrame(QWidget* owner, FrameHost& host, WindowPlacement& placement)
    : ToolFrame(owner, placement), host_(host), table_(new QTableView(this)) {
  setWindowTitle(QStringLiteral("Labels"));
  table_->setModel(&model_);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->horizontalHeader()->setStretchLastSection(true);
  table_->setAccessibleName(QStringLiteral("Labels"));
  UseCompactRows(*table_);
  auto* const line = new QHBoxLayout;
  buttons_ = {AddButton(*line, QStringLiteral("&Play"), &LabelListFrame::Play),
              AddButton(*line, QStringLiteral("&Zoom"), &LabelListFrame::Zoom),
              AddButton(*line, QStringLiteral("&Edit..."), &LabelListFrame::Edit),
              AddButton(*line, QStringLiteral("&Delete"), &LabelListFrame::Delete)};
  line->addStretch();
  auto* const column = new QVBoxLayout(this);
  column->addWidget(table_);
  column->addLayout(line);
  connect(table_, &QTableView::doubleClicked, this, [this] { Play(); });
  connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { ShowButtons(); });
  connect(&model_, &QAbstractItemModel::modelReset, this, [this] { ShowButtons(); });
  auto* const deleteKey = new QShortcut(QKeySequence::Delete, table_);
  deleteKey->setContext(Qt::WidgetShortcut);
  connect(deleteKey, &QShortcut::activated, this, [this] { Delete(); });
  ShowButtons();
}

QPushButton* LabelListFrame::AddButton(QHBoxLayout& line, const QString& text,
                                       void (LabelListFrame::*act)()) {
  auto* const button = new QPushButton(text, this);
  connect(button, &QPushButton::clicked, this, [this, act] { (this->*act)(); });
  line.addWidget(button);
  return button;
}

void LabelListFrame::Follow(CSonadexView* view) {
  setWindowTitle(view == nullptr
                     ? QStringLiteral("Labels")
                     : QStringLiteral("Labels - ") + Shown(view->document().shownName()));
  if (view == view_) return;
  view_ = view;
  Refresh();
}

// The same row stays selected: after a deletion the label that took its place.
void LabelListFrame::Refresh() {
  const int row = ChosenRow();
  model_.Show(view_);
  if (row >= 0 && model_.rowCount() > 0) table_->selectRow(std::min(row, model_.rowCount() - 1));
}

void LabelListFrame::Play() {
  Apply([](CSonadexView& view, const LabelListRow& row) { PlayLabel(view, row.tier, row.index); });
}

void LabelListFrame::Zoom() { Apply(ZoomToLabel); }
void LabelListFrame::Edit() { Apply(EditListedLabel); }
void LabelListFrame::Delete() { Apply(DeleteListedLabel); }

// The focus alone makes the first row the current one, which chooses nothing.
int LabelListFrame::ChosenRow() const {
  return table_->selectionModel()->hasSelection() ? table_->currentIndex().row() : -1;
}

void LabelListFrame::Apply(RowAction action) {
  const int chosen = ChosenRow();
  if (view_ == nullptr || chosen < 0) return;
  if (view_->services().sound.Sound().recordingHere) return;
  // A copy: the action brings the list up to date.
  const LabelListRow row = model_.row(chosen);
  host_.Run(*view_, [&] { action(*view_, row); });
}

void LabelListFrame::ShowButtons() {
  for (QPushButton* const button : buttons_) button->setEnabled(ChosenRow() >= 0);
}

QRect LabelListFrame::DefaultPlace() const {
  constexpr QSize kSize(420, 360);
  const QRect owner = parentWidget()->geometry();
  return QRect(owner.topRight() - QPoint(kSize.width() + 40, -140), kSize);
}

}  // namespace cantorix
