// strip_fields.cpp - fields that tell what was entered, and nothing that was only shown.
#include "desktop/windows/strip_fields.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStyleOption>
#include <QStylePainter>
#include <utility>

#include "desktop/paint/words.h"
#include "settings/transform_sizes.h"

namespace cantorix {
namespace {

constexpr int kTypingRestMs = 400;
constexpr int kFontPixels = 11;
constexpr int kGap = 5;         // pixels before a name
constexpr int kShortList = 84;  // pixels

int WidthHz(double rateHz, int points) { return static_cast<int>(rateHz / points); }

QString SizeText(double rateHz, int points) {
  return Tr("%1 Hz \u00b7 %2 points").arg(WidthHz(rateHz, points)).arg(points);
}

QString WithoutMnemonic(QString name) { return name.remove('&').trimmed(); }

}  // namespace

void StripList::SetNarrow(bool narrow) {
  isNarrow_ = narrow;
  view()->setMinimumWidth(view()->sizeHintForColumn(0));
  setMaximumWidth(narrow ? kShortList : QWIDGETSIZE_MAX);
}

void StripList::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionComboBox option;
  initStyleOption(&option);
  const QString shorter = currentData().toString();
  if (isNarrow_ && !shorter.isEmpty()) option.currentText = shorter;
  painter.drawComplexControl(QStyle::CC_ComboBox, option);
  painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

StripFields::StripFields(QToolBar& strip, Surroundings around)
    : QObject(&strip), strip_(strip), around_(std::move(around)) {
  rest_.setSingleShot(true);
  rest_.setInterval(kTypingRestMs);
  strip_.installEventFilter(this);
  connect(&rest_, &QTimer::timeout, this, [this] { Take(); });
}

QSpinBox* StripFields::AddNumber(const StripNumber& number, std::function<void(int)> set) {
  auto* const box = new QSpinBox(&strip_);
  box->setRange(number.least, number.most);
  box->setSingleStep(number.step);
  box->setSuffix(number.suffix);
  // Not at every digit that is typed.
  box->setKeyboardTracking(false);
  box->setToolTip(number.toolTip);
  box->setAccessibleName(WithoutMnemonic(number.name));
  Add(number.name, *box);
  numbers_.push_back({box, number.prefix});
  connect(box, &QSpinBox::valueChanged, this, std::move(set));
  connect(box->findChild<QLineEdit*>(), &QLineEdit::textEdited, this, [this, box] { Typed(*box); });
  connect(box, &QSpinBox::editingFinished, this, [this] { Take(); });
  return box;
}

StripList* StripFields::AddSizes(double rateHz, int count, std::function<void(std::int32_t)> set) {
  auto* const list = new StripList(&strip_);
  for (int i = 0; i < count; ++i) {
    const int points = PointsOfEntry(i);
    list->addItem(SizeText(rateHz, points), QStringLiteral("%1 Hz").arg(WidthHz(rateHz, points)));
  }
  list->setToolTip(Tr("Width of a line of the transform, and its length"));
  AddList(Tr("Band&width"), *list);
  connect(list, &QComboBox::currentIndexChanged, this,
          [set = std::move(set)](int index) { set(PointsOfEntry(index)); });
  return list;
}

void StripFields::AddList(const QString& name, StripList& list) {
  list.setAccessibleName(WithoutMnemonic(name));
  Add(name, list);
  lists_.push_back(&list);
}

// Small, so that all of them fit beside another window.
void StripFields::Add(const QString& name, QWidget& field) {
  auto* const label = new QLabel(name, &strip_);
  QFont font = label->font();
  font.setPixelSize(kFontPixels);
  label->setFont(font);
  field.setFont(font);
  label->setContentsMargins(kGap, 0, 2, 0);
  label->setBuddy(&field);
  names_.push_back(strip_.addWidget(label));
  strip_.addWidget(&field);
}

bool StripFields::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &strip_ && event->type() == QEvent::Resize) FitInto(strip_.width());
  return false;
}

void StripFields::FitInto(int width) {
  if (!isNarrow_) wideWidth_ = strip_.sizeHint().width();
  const bool narrow = width < wideWidth_;
  if (std::exchange(isNarrow_, narrow) == narrow) return;
  for (QAction* const name : names_) name->setVisible(!narrow);
  for (QAction* const separator : std::exchange(separators_, {})) separator->setVisible(true);
  for (QAction* const action : strip_.actions()) {
    if (!narrow || !action->isSeparator() || !action->isVisible()) continue;
    action->setVisible(false);
    separators_.push_back(action);
  }
  for (const Prefixed& number : numbers_) number.box->setPrefix(narrow ? number.prefix : QString());
  for (StripList* const list : lists_) list->SetNarrow(narrow);
}

void StripFields::Show(QSpinBox& box, int value) const {
  if (typedInto_ == &box) return;
  const QSignalBlocker quiet(box);
  box.setValue(value);
}

void StripFields::ShowPoints(QComboBox& list, std::int32_t points) {
  const QSignalBlocker quiet(list);
  list.setCurrentIndex(EntryOfPoints(points));
}

void StripFields::Typed(QSpinBox& box) {
  const bool begins = typedInto_ == nullptr;
  typedInto_ = &box;
  rest_.start();
  if (begins) around_.edited();
}

void StripFields::Take() {
  if (typedInto_ != nullptr && around_.busy()) return rest_.start();
  rest_.stop();
  QSpinBox* const box = std::exchange(typedInto_, nullptr);
  if (box == nullptr) return;
  // Tells of a value that is another one than before.
  box->interpretText();
  around_.edited();
}

}  // namespace cantorix
