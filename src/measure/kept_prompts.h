// kept_prompts.h - prompts of a recording that is opened without a user: what is said is kept, and
// the questions that a file raises are answered beforehand.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "measure/wrong_usage.h"
#include "platform/quiet_prompts.h"

namespace cantorix {

class KeptPrompts : public QuietPrompts {
 public:
  std::optional<int> channel;  // counted from 1
  std::optional<GenericParameters> generic;

  void Message(const std::string& text) override { said_.push_back(text); }
  Answer Ask(const std::string& text, Buttons buttons) override;
  std::optional<int> ChooseChannel(const std::string& text, int channelCount) override;
  std::optional<GenericParameters> AskGenericParameters(const GenericParameters&,
                                                        GenericPreview&) override {
    return generic;
  }

  // What was said since the last call, as one line.
  std::string TakeSaid();
  std::vector<std::string> TakeTexts();
  // Why the question for a channel had no answer.
  const std::optional<WrongUsage>& refusal() const { return refusal_; }

 private:
  std::vector<std::string> said_;
  std::optional<WrongUsage> refusal_;
};

}  // namespace cantorix
