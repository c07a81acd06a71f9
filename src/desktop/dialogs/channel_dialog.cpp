// channel_dialog.cpp - one entry for each channel.
#include "desktop/dialogs/channel_dialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

namespace cantorix {

ChannelDialog::ChannelDialog(const QString& text, int channelCount, QWidget* parent)
    : QDialog(parent), list_(new QListWidget(this)) {
  setWindowTitle(QStringLiteral("Select channels"));
  auto* const column = new QVBoxLayout(this);
  auto* const question = new QLabel(text, this);
  question->setTextFormat(Qt::PlainText);
  question->setWordWrap(true);
  question->setBuddy(list_);
  for (int i = 0; i < channelCount; ++i) {
    list_->addItem(QStringLiteral("Channel %1").arg(i + 1));
  }
  list_->setCurrentRow(0);
  list_->setAccessibleName(QStringLiteral("Channels"));
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(list_, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
  column->addWidget(question);
  column->addWidget(list_);
  column->addWidget(buttons);
}

int ChannelDialog::Entered() const { return list_->currentRow(); }

}  // namespace cantorix
