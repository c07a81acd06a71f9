// strip_fields.h - the settings at hand in the strip of an analysis window: numbers and lists with
// their names. What is typed counts after Enter or a rest. In a strip that is too short for all of
// it names and separators go, and lists show less.
#pragma once

#include <QComboBox>
#include <QSpinBox>
#include <QTimer>
#include <QToolBar>
#include <functional>
#include <string>
#include <vector>

namespace cantorix {

inline constexpr int kRangeStepHz = 500;  // of the fields for a range of frequencies

struct StripNumber {
  QString name;  // with its mnemonic
  QString toolTip;
  QString suffix;
  QString prefix;  // without its name
  int least = 1;
  int most = 1;
  int step = 1;
};

// A list that shows the short text of its choice, its user data, where there is no room.
class StripList : public QComboBox {
 public:
  using QComboBox::QComboBox;
  void SetNarrow(bool narrow);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool isNarrow_ = false;
};

class StripFields : public QObject {
 public:
  struct Surroundings {
    std::function<void()> edited;  // told when typing begins or ends
    std::function<bool()> busy;    // what was typed waits meanwhile
  };
  StripFields(QToolBar& strip, Surroundings around);

  QSpinBox* AddNumber(const StripNumber& number, std::function<void(int)> set);
  // The bandwidths at a rate, from 32 points on; `set` gets the points.
  StripList* AddSizes(double rateHz, int count, std::function<void(std::int32_t)> set);
  // A list made elsewhere.
  void AddList(const QString& name, StripList& list);

  // Shows values that were set elsewhere, unless they are being typed.
  void Show(QSpinBox& box, int value) const;
  static void ShowPoints(QComboBox& list, std::int32_t points);
  // Whether something is typed that does not count yet.
  bool edited() const { return typedInto_ != nullptr; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Prefixed {
    QSpinBox* box;
    QString prefix;
  };

  void FitInto(int width);
  void Add(const QString& name, QWidget& field);
  void Typed(QSpinBox& box);
  void Take();

  QToolBar& strip_;
  Surroundings around_;
  QSpinBox* typedInto_ = nullptr;
  QTimer rest_;
  std::vector<QAction*> names_;
  std::vector<QAction*> separators_;  // that are hidden now
  std::vector<Prefixed> numbers_;
  std::vector<StripList*> lists_;
  int wideWidth_ = 0;  // pixels that all of the strip needs
  bool isNarrow_ = false;
};

}  // namespace cantorix
