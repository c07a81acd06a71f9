// batch_prompts.h - the prompts port of one file: messages become lines on standard error, the
// dialogs are answered from the options, and a question without an answer is declined with a word
// on how to answer it.
#pragma once

#include <atomic>
#include <optional>
#include <string>

#include "batch/console.h"
#include "batch/request.h"
#include "platform/prompts.h"

namespace cantorix::batch {

class BatchPrompts : public Prompts {
 public:
  // Once `interrupted` is set nothing more is said: what fails then fails for that reason.
  BatchPrompts(Console& console, std::string file, const Request& request,
               const std::atomic<bool>& interrupted)
      : console_(console),
        file_(file),
        opened_(std::move(file)),
        request_(request),
        interrupted_(interrupted) {}

  void Beep() override {}
  void Message(const std::string& text) override;
  Answer Ask(const std::string& text, Buttons buttons) override;
  std::optional<FileChoice> ChooseFileToOpen(const FileRequest&) override { return {}; }
  std::optional<FileChoice> ChooseFileToSave(const FileRequest&) override { return {}; }
  std::optional<std::string> ChooseFolder(const std::string&) override { return {}; }
  std::optional<int> ChooseChannel(const std::string& text, int channelCount) override;
  std::optional<GenericParameters> AskGenericParameters(const GenericParameters& preset,
                                                        GenericPreview& preview) override;

  // Whether a question had no answer among the options, which was said then.
  bool declined() const { return declined_; }
  // How many reasons for a failure were said so far, or would have been but for an interrupt.
  int reasonsSaid() const { return reasonsSaid_; }
  // The file is opened from its copy at `path`; messages that begin with that path are about it.
  void OpensFrom(const std::string& path) { opened_ = path; }
  // One line about the file.
  void Say(const std::string& text);
  // The same for what is no reason for a failure.
  void Note(const std::string& text);

 private:
  // Says why a question is not answered.
  void Decline(const std::string& text);

  Console& console_;
  std::string file_;
  std::string opened_;  // path under which the document knows it
  const Request& request_;
  const std::atomic<bool>& interrupted_;
  bool declined_ = false;
  int reasonsSaid_ = 0;
};

}  // namespace cantorix::batch
