// sound_status.cpp - a text of its own beside the panes of the keyboard, which no hint hides.
#include "desktop/sound/sound_status.h"

#include <QLabel>
#include <QStatusBar>

#include "desktop/paint/words.h"
#include "desktop/qt_text.h"
#include "mainview/sound_texts.h"

namespace cantorix {
namespace {

constexpr int kTicksPerText = 4;
constexpr int kNoteMs = 8000;

std::string TextOf(const SoundDesk& desk, const CSonadexDoc* front) {
  if (const auto progress = desk.recordingProgress()) {
    const auto level = desk.inputLevel();
    return level ? RecordingText(*progress, *level) : std::string();
  }
  if (!desk.isPlaying()) return {};
  const auto ms = front != nullptr ? desk.PlayedMs(*front) : std::nullopt;
  return ms ? PlayingText(*ms) : Marked("Playing in another window");
}

}  // namespace

SoundStatus::SoundStatus(QStatusBar& bar) : bar_(bar), text_(new QLabel(&bar)) {
  text_->setTextFormat(Qt::PlainText);
  text_->setAccessibleName(Tr("Sound"));
  text_->setContentsMargins(8, 0, 8, 0);
  bar.insertPermanentWidget(1, text_);  // behind the text on the left
  text_->hide();
}

void SoundStatus::Tick(const SoundDesk& desk, const CSonadexDoc* front) {
  if (--ticksToText_ <= 0) Show(desk, front);
}

void SoundStatus::Show(const SoundDesk& desk, const CSonadexDoc* front) {
  ticksToText_ = kTicksPerText;
  const QString text = Translated(TextOf(desk, front));
  text_->setText(text);
  text_->setVisible(!text.isEmpty());
}

void SoundStatus::Note(const std::string& text) { bar_.showMessage(Translated(text), kNoteMs); }

}  // namespace cantorix
