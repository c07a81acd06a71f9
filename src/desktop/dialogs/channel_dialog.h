// channel_dialog.h - "Select channels": which channel of a recording is read.
#pragma once

#include <QDialog>

class QComboBox;

namespace cantorix {

class ChannelDialog : public QDialog {
 public:
  // Offers the first ten channels of more.
  ChannelDialog(const QString& text, int channelCount, QWidget* parent);

  // Counted from 0.
  int Entered() const;

 private:
  QComboBox* list_;
};

}  // namespace cantorix
