// strip_fields.cpp - fields that tell what was entered, and nothing that was only shown.
#include "desktop/windows/strip_fields.h"

#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <utility>

#include "desktop/paint/words.h"
#include "settings/transform_sizes.h"

namespace cantorix {
namespace {

constexpr int kTypingRestMs = 400;
constexpr int kFontPixels = 11;
constexpr int kGap = 5;  // pixels before a name

QString SizeText(double rateHz, int points) {
  return Tr("%1 Hz \u00b7 %2 points").arg(static_cast<int>(rateHz / points)).arg(points);
}

QString WithoutMnemonic(QString name) { return name.remove('&').trimmed(); }

}  // namespace

StripFields::StripFields(QToolBar& strip, Surroundings around)
    : QObject(&strip), strip_(strip), around_(std::move(around)) {
  rest_.setSingleShot(true);
  rest_.setInterval(kTypingRestMs);
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
  connect(box, &QSpinBox::valueChanged, this, std::move(set));
  connect(box->findChild<QLineEdit*>(), &QLineEdit::textEdited, this, [this, box] { Typed(*box); });
  connect(box, &QSpinBox::editingFinished, this, [this] { Take(); });
  return box;
}

QComboBox* StripFields::AddSizes(double rateHz, int count, std::function<void(std::int32_t)> set) {
  auto* const list = new QComboBox(&strip_);
  for (int i = 0; i < count; ++i) list->addItem(SizeText(rateHz, PointsOfEntry(i)));
  list->setToolTip(Tr("Width of a line of the transform, and its length"));
  AddList(Tr("Band&width"), *list);
  connect(list, &QComboBox::currentIndexChanged, this,
          [set = std::move(set)](int index) { set(PointsOfEntry(index)); });
  return list;
}

void StripFields::AddList(const QString& name, QComboBox& list) {
  list.setAccessibleName(WithoutMnemonic(name));
  Add(name, list);
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
  strip_.addWidget(label);
  strip_.addWidget(&field);
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
