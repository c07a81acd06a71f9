// readout_strip.h - readouts as pairs of a name and a value, in as many lines as the width needs.
// Each pair keeps its place while its value changes. The texts can be copied.
#pragma once

#include <QWidget>
#include <vector>

#include "windows/analysis_window.h"

namespace cantorix {

class ReadoutStrip : public QWidget {
 public:
  explicit ReadoutStrip(QWidget* parent);

  void Show(std::vector<WindowReadout> readouts);
  // "name value" of all pairs, separated by TABs.
  QString Text() const;

  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  int CellWidth() const;
  int ColumnsIn(int width) const;

  std::vector<WindowReadout> readouts_;
};

}  // namespace cantorix
