// witness.h - the user under faults.
#pragma once

#include <array>
#include <atomic>
#include <new>
#include <optional>
#include <string>

#include "audio/sound_notices.h"
#include "platform/quiet_prompts.h"

namespace cantorix::faults {

// A user who agrees to all and counts what is said, without a block of memory.
class Witness : public QuietPrompts, public NoticeSink {
 public:
  void Beep() override { ++told; }
  void Message(const std::string& text) override {
    ++told;
    last[text.copy(last.data(), last.size() - 1)] = '\0';
  }
  void Notice(const std::string& text) override { Message(text); }
  Answer Ask(const std::string&, Buttons buttons) override {
    return buttons == Buttons::kOkCancel ? Answer::kOk : answer;
  }
  std::optional<FileChoice> ChooseFileToOpen(const FileRequest&) override {
    return FileChoice{chosen, 1};
  }
  std::optional<FileChoice> ChooseFileToSave(const FileRequest&) override {
    return FileChoice{chosen, 1};
  }

  std::string chosen;
  Answer answer = Answer::kYes;
  std::atomic<int> told{0};
  std::array<char, 200> last{};
};

// What callers of these take for a failure.
template <typename Body>
bool Succeeds(Body body) {
  try {
    return body();
  } catch (const std::bad_alloc&) {
    return false;
  }
}

}  // namespace cantorix::faults
