// strip_fields.h - the settings at hand in the strip of an analysis window: numbers and lists with
// their names. What is typed counts after Enter or a rest.
#pragma once

#include <QComboBox>
#include <QSpinBox>
#include <QTimer>
#include <QToolBar>
#include <functional>
#include <string>
#include <vector>

namespace cantorix {

struct StripNumber {
  QString name;  // with its mnemonic
  QString toolTip;
  QString suffix;
  int least = 1;
  int most = 1;
  int step = 1;
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
  QComboBox* AddSizes(double rateHz, int count, std::function<void(std::int32_t)> set);
  // A list made elsewhere.
  void AddList(const QString& name, QComboBox& list);

  // Shows values that were set elsewhere, unless they are being typed.
  void Show(QSpinBox& box, int value) const;
  static void ShowPoints(QComboBox& list, std::int32_t points);
  // Whether something is typed that does not count yet.
  bool edited() const { return typedInto_ != nullptr; }

 private:
  void Add(const QString& name, QWidget& field);
  void Typed(QSpinBox& box);
  void Take();

  QToolBar& strip_;
  Surroundings around_;
  QSpinBox* typedInto_ = nullptr;
  QTimer rest_;
};

}  // namespace cantorix
