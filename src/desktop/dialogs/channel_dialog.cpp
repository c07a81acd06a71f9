// channel_dialog.cpp - one entry for each channel.
#include "desktop/dialogs/channel_dialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/paint/words.h"

namespace cantorix {
namespace {

constexpr int kMostChannels = 10;

}  // namespace

ChannelDialog::ChannelDialog(const QString& text, int channelCount, QWidget* parent)
    : QDialog(parent), list_(new QComboBox(this)) {
  setWindowTitle(QStringLiteral("Select channels"));
  auto* const column = new QVBoxLayout(this);
  column->setSizeConstraint(QLayout::SetFixedSize);
  auto* const question = new QLabel(text, this);
  question->setTextFormat(Qt::PlainText);
  for (int i = 0; i < std::min(channelCount, kMostChannels); ++i) {
    list_->addItem(QStringLiteral("Channel #%1").arg(i + 1));
  }
  list_->setAccessibleName(Tr("Channels"));
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  column->addWidget(question);
  column->addWidget(list_);
  column->addWidget(buttons);
}

int ChannelDialog::Entered() const { return list_->currentIndex(); }

}  // namespace cantorix
