// accessible_picture.cpp - the interfaces that assistive technology asks.
#include "desktop/accessible_picture.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>

namespace cantorix {
namespace {

constexpr int kRestMs = 300;

AccessiblePicture* PictureOf(QObject* object) { return dynamic_cast<AccessiblePicture*>(object); }

// A pane or a tier: found anew by its number each time, because the picture may have changed.
class PartInterface : public QAccessibleInterface {
 public:
  PartInterface(QWidget& picture, int number) : picture_(&picture), number_(number) {}

  bool isValid() const override { return picture_ && Now().has_value(); }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return nullptr; }
  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(picture_);
  }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessible::Role role() const override { return QAccessible::Chart; }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.readOnly = true;
    state.invisible = !isValid() || !picture_->isVisible();
    return state;
  }
  QRect rect() const override {
    const auto part = Now();
    return part ? part->place.translated(picture_->mapToGlobal(QPoint())) : QRect();
  }
  QString text(QAccessible::Text kind) const override {
    const auto part = Now();
    if (!part) return {};
    if (kind == QAccessible::Name) return part->name;
    return kind == QAccessible::Value ? part->value : QString();
  }
  void setText(QAccessible::Text, const QString&) override {}

 private:
  std::optional<AccessiblePicture::Part> Now() const {
    if (!picture_) return std::nullopt;
    const auto parts = PictureOf(picture_)->AccessibleParts();
    if (number_ >= static_cast<int>(parts.size())) return std::nullopt;
    return parts[static_cast<std::size_t>(number_)];
  }

  QPointer<QWidget> picture_;
  int number_;
};

// The widget, with its parts behind the widgets that it holds.
class PictureInterface : public QAccessibleWidget {
 public:
  explicit PictureInterface(QWidget& widget) : QAccessibleWidget(&widget, QAccessible::Chart) {}
  ~PictureInterface() override {
    for (const QAccessible::Id id : parts_) QAccessible::deleteAccessibleInterface(id);
  }
  PictureInterface(const PictureInterface&) = delete;
  PictureInterface& operator=(const PictureInterface&) = delete;

  QString text(QAccessible::Text kind) const override {
    if (kind == QAccessible::Value) return PictureOf(widget())->AccessibleValue();
    return QAccessibleWidget::text(kind);
  }
  int childCount() const override { return QAccessibleWidget::childCount() + PartCount(); }
  QAccessibleInterface* child(int index) const override {
    const int widgets = QAccessibleWidget::childCount();
    if (index < widgets) return QAccessibleWidget::child(index);
    return index < childCount() ? PartAt(index - widgets) : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    for (int i = 0; i < PartCount(); ++i) {
      if (PartAt(i) == child) return QAccessibleWidget::childCount() + i;
    }
    return QAccessibleWidget::indexOfChild(child);
  }

 private:
  int PartCount() const { return static_cast<int>(PictureOf(widget())->AccessibleParts().size()); }
  QAccessibleInterface* PartAt(int number) const {
    while (static_cast<int>(parts_.size()) <= number) {
      auto* const part = new PartInterface(*widget(), static_cast<int>(parts_.size()));
      parts_.push_back(QAccessible::registerAccessibleInterface(part));
    }
    return QAccessible::accessibleInterface(parts_[static_cast<std::size_t>(number)]);
  }

  mutable std::vector<QAccessible::Id> parts_;  // made when they are asked for
};

QAccessibleInterface* Make(const QString&, QObject* object) {
  auto* const widget = qobject_cast<QWidget*>(object);
  return widget != nullptr && PictureOf(object) != nullptr ? new PictureInterface(*widget)
                                                           : nullptr;
}

}  // namespace

AccessiblePicture::AccessiblePicture(QWidget* widget) : widget_(widget) {
  rest_.setSingleShot(true);
  rest_.setInterval(kRestMs);
  QObject::connect(&rest_, &QTimer::timeout, widget, [this] {
    pointed_ = coming_;
    ValueChanged();
  });
}

void AccessiblePicture::SayPointed(const QString& line) {
  coming_ = line;
  if (!line.isEmpty()) return rest_.start();
  rest_.stop();
  pointed_.clear();
}

void AccessiblePicture::ValueChanged() {
  if (!QAccessible::isActive()) return;
  QAccessibleValueChangeEvent event(widget_, AccessibleValue());
  QAccessible::updateAccessibility(&event);
}

void MakePicturesAccessible() { QAccessible::installFactory(Make); }

}  // namespace cantorix
