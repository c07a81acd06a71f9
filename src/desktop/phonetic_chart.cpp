// phonetic_chart.cpp - cells of one size, a table for each group.
#include "desktop/phonetic_chart.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/paint/words.h"
#include "desktop/qt_text.h"

namespace cantorix {
namespace {

constexpr int kCell = 24;  // pixels
constexpr int kSignPixels = 16;
constexpr int kHeadingPixels = 9;
constexpr int kTitleRoom = 32;  // above a window that is placed before it has a frame
constexpr const char* kPlaces[] = {"Bilabial", "Labiod.",  "Dental",  "Alveolar",
                                   "Postalv.", "Retrofl.", "Palatal", "Velar",
                                   "Uvular",   "Pharyng.", "Glottal"};
constexpr const char* kManners[] = {"Plosive",   "Nasal",          "Trill",       "Tap, flap",
                                    "Fricative", "Lat. fricative", "Approximant", "Lat. approx."};
constexpr const char* kHeights[] = {"Close", "", "Close-mid", "", "Open-mid", "", "Open"};
constexpr const char* kBacknesses[] = {"Front", "", "Central", "", "Back"};

QString OnCircle(const PhoneticSign& sign) {
  const QString text = Shown(sign.sign);
  return IsCombining(sign) ? QChar(0x25CC) + text : text;
}

QLabel* Heading(const char* text) {
  auto* const heading = new QLabel(TranslatedSign(text));
  QFont font = heading->font();
  font.setPixelSize(kHeadingPixels);
  heading->setFont(font);
  return heading;
}

QString TipOf(const PhoneticSign& sign) {
  const QString keys = Shown(sign.keys);
  const QString name = TranslatedSign(NameOf(sign));
  const QString how = keys.size() == 2 ? Tr("%1 then %2").arg(keys[0]).arg(keys[1]) : keys;
  // As text: a key may be one that begins markup.
  return QStringLiteral("<p style='white-space:pre'>%1: %2</p>")
      .arg(name.toHtmlEscaped(), how.toHtmlEscaped());
}

}  // namespace

PhoneticChart::PhoneticChart(QWidget* owner, std::function<void(const std::string&)> chosen)
    : QWidget(owner, Qt::Tool | Qt::WindowDoesNotAcceptFocus), chosen_(std::move(chosen)) {
  setWindowTitle(Tr("Phonetic Chart"));
  setAttribute(Qt::WA_ShowWithoutActivating);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(8, 8, 8, 8);
  column->addWidget(NewGroup(SignGroup::kConsonants));
  auto* const middle = new QHBoxLayout;
  middle->addWidget(NewGroup(SignGroup::kVowels));
  middle->addWidget(NewGroup(SignGroup::kOthers));
  column->addLayout(middle);
  auto* const low = new QHBoxLayout;
  low->addWidget(NewGroup(SignGroup::kDiacritics));
  low->addWidget(NewGroup(SignGroup::kSuprasegmentals));
  column->addLayout(low);
  column->addWidget(new QLabel(
      Tr("While this window is open, two keys give a sign: the tip of each sign names them.")));
  column->setSizeConstraint(QLayout::SetFixedSize);
}

QWidget* PhoneticChart::NewGroup(SignGroup group) {
  auto* const box = new QGroupBox(TranslatedSign(TitleOf(group)), this);
  auto* const grid = new QGridLayout(box);
  grid->setSpacing(0);
  grid->setContentsMargins(4, 2, 4, 4);
  AddHeadings(*grid, group);
  for (const PhoneticSign& sign : PhoneticSigns()) {
    if (sign.group == group) AddSign(*grid, sign);
  }
  grid->setRowStretch(grid->rowCount(), 1);
  grid->setColumnStretch(grid->columnCount(), 1);
  return box;
}

// Row 0 and column 0 of the grid are theirs.
void PhoneticChart::AddHeadings(QGridLayout& grid, SignGroup group) {
  const auto add = [&grid](const auto& columns, const auto& rows) {
    int place = 0;
    for (const char* const text : columns) grid.addWidget(Heading(text), 0, 1 + 2 * place++, 1, 2);
    int row = 0;
    for (const char* const text : rows) grid.addWidget(Heading(text), 1 + row++, 0);
  };
  if (group == SignGroup::kConsonants) add(kPlaces, kManners);
  if (group == SignGroup::kVowels) add(kBacknesses, kHeights);
}

void PhoneticChart::AddSign(QGridLayout& grid, const PhoneticSign& sign) {
  auto* const cell = new QToolButton(this);
  QFont font = cell->font();
  font.setPixelSize(kSignPixels);
  cell->setFont(font);
  cell->setText(OnCircle(sign));
  cell->setFixedSize(kCell, kCell);
  cell->setAutoRaise(true);
  cell->setFocusPolicy(Qt::NoFocus);
  cell->setToolTip(TipOf(sign));
  cell->setAccessibleName(TranslatedSign(NameOf(sign)));
  connect(cell, &QToolButton::clicked, this,
          [this, text = std::string(sign.sign)] { chosen_(text); });
  grid.addWidget(cell, 1 + sign.row, 1 + sign.column);
}

void PhoneticChart::Toggle() { setVisible(isHidden()); }

// At the lower right of the main window, off the tiers and off the time axis.
void PhoneticChart::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (placed_ || parentWidget() == nullptr) return;
  placed_ = true;
  adjustSize();
  const QRect owner = parentWidget()->geometry();
  const QRect there = screen()->availableGeometry();
  const QPoint wanted = owner.bottomRight() - QPoint(width() + 40, height() + 170);
  move(std::max(wanted.x(), there.left()), std::max(wanted.y(), there.top() + kTitleRoom));
}

}  // namespace cantorix
