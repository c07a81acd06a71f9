// sound_status.h - what the status bar says of sound: a recording or a playback while it runs, and
// for a few seconds what the desk has to tell.
#pragma once

#include <string>

class QLabel;
class QStatusBar;

namespace cantorix {

class CSonadexDoc;
class SoundDesk;

class SoundStatus {
 public:
  explicit SoundStatus(QStatusBar& bar);

  // To be called every kTickMs: the text follows several times a second. `front` may be null.
  void Tick(const SoundDesk& desk, const CSonadexDoc* front);
  // At once.
  void Show(const SoundDesk& desk, const CSonadexDoc* front);
  void Note(const std::string& text);

  const QLabel& text() const { return *text_; }

 private:
  QStatusBar& bar_;
  QLabel* text_;
  int ticksToText_ = 0;
};

}  // namespace cantorix
