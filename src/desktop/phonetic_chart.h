// phonetic_chart.h - a small window with the chart of phonetic signs. A click gives a sign to the
// label that is typed; the window never takes the keyboard.
#pragma once

#include <QWidget>
#include <functional>
#include <string>

#include "mainview/phonetic_signs.h"

class QAbstractButton;
class QGridLayout;

namespace cantorix {

class PhoneticChart : public QWidget {
 public:
  // `chosen` is told the sign of each click.
  PhoneticChart(QWidget* owner, std::function<void(const std::string&)> chosen);

  void Toggle();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QWidget* NewGroup(SignGroup group);
  void AddHeadings(QGridLayout& grid, SignGroup group);
  void AddSign(QGridLayout& grid, const PhoneticSign& sign);

  std::function<void(const std::string&)> chosen_;
  bool placed_ = false;
};

}  // namespace cantorix
