// batch_prompts.cpp - answers from the options.
#include "batch/batch_prompts.h"

#include "mainview/editing.h"

namespace cantorix::batch {

void BatchPrompts::Say(const std::string& text) {
  // The edit that lost its undo goes on: no reason to take it for one that failed.
  if (text != kUndoNotWritten) ++reasonsSaid_;
  if (interrupted_) return;
  // The report of a failed open begins with the path, and so does every line here.
  const bool named = text.starts_with(opened_ + " ");
  console_.Report(file_, named ? text.substr(opened_.size() + 1) : text);
}

void BatchPrompts::Note(const std::string& text) {
  if (!interrupted_) console_.Report(file_, text);
}

void BatchPrompts::Decline(const std::string& text) {
  declined_ = true;
  Say(text);
}

void BatchPrompts::Message(const std::string& text) { Say(text); }

Answer BatchPrompts::Ask(const std::string& text, Buttons) {
  // The one question that a file raises before it is open is how to read one of unknown kind.
  if (request_.generic) return Answer::kOk;
  Decline(text + " (--generic answers)");
  return Answer::kCancel;
}

std::optional<int> BatchPrompts::ChooseChannel(const std::string& text, int channelCount) {
  if (!request_.channel && request_.verb == Verb::kInfo) return 0;  // it tells of all of them
  if (!request_.channel) {
    Decline(text + " (--channel 1 to " + std::to_string(channelCount) + " answers)");
    return {};
  }
  if (*request_.channel > channelCount) {
    Decline("There is no channel " + std::to_string(*request_.channel) + ", the file has " +
            std::to_string(channelCount) + ".");
    return {};
  }
  return *request_.channel - 1;
}

std::optional<GenericParameters> BatchPrompts::AskGenericParameters(const GenericParameters&,
                                                                    GenericPreview&) {
  return request_.generic;
}

}  // namespace cantorix::batch
