// channel_dialog.h - "Select channels": which channel of a recording is read.
#pragma once

#include <QDialog>

class QListWidget;

namespace cantorix {

class ChannelDialog : public QDialog {
 public:
  ChannelDialog(const QString& text, int channelCount, QWidget* parent);

  // Counted from 0.
  int Entered() const;

 private:
  QListWidget* list_;
};

}  // namespace cantorix
