// scripted_prompts.h - a user whose answers a test has written down beforehand.
// Answers are given in the order they were scripted; everything shown or asked is kept as a
// transcript, one line per prompt. A question without an answer left, an answer of the wrong kind,
// an answer never asked for and a transcript nobody looked at each fail the test.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "platform/prompts.h"

namespace cantorix {

// All that a file dialog was asked for: "TITLE, NAME.EXTENSION, FILTER #INDEX" and what it must do.
inline std::string TextOf(const FileRequest& request) {
  return request.title + ", " + request.proposedName + "." + request.defaultExtension + ", " +
         request.filter + " #" + std::to_string(request.filterIndex) +
         (request.fileMustExist ? ", must exist" : "") +
         (request.overwritePrompt ? ", asks before overwriting" : "") +
         (request.hideReadOnly ? ", hides read-only" : "");
}

class ScriptedPrompts : public Prompts {
 public:
  ScriptedPrompts() = default;
  ScriptedPrompts(const ScriptedPrompts&) = delete;
  ~ScriptedPrompts() override {
    EXPECT_TRUE(answers_.empty()) << answers_.size() << " scripted answers were never asked for";
    for (const std::string& line : transcript_) ADD_FAILURE() << "unexpected prompt: " << line;
  }

  // The next answers, in order.
  void WillAnswer(Answer answer) { answers_.emplace_back(answer); }
  void WillChooseFile(std::string path, int filterIndex = 1) {
    answers_.emplace_back(FileChoice{std::move(path), filterIndex});
  }
  void WillChooseFolder(std::string path) { answers_.emplace_back(std::move(path)); }
  void WillChooseChannel(int channel) { answers_.emplace_back(channel); }
  void WillSetGeneric(const GenericParameters& parameters) { answers_.emplace_back(parameters); }
  // Cancels whatever dialog comes next.
  void WillCancel() { answers_.emplace_back(Cancelled{}); }

  // The prompts since the last call, oldest first: "beep", "message: TEXT",
  // "ask ok/cancel: TEXT", "ask yes/no/cancel: TEXT", "open: TITLE", "save: TITLE",
  // "folder: START", "channel of COUNT: TEXT", "generic".
  std::vector<std::string> TakeTranscript() { return std::exchange(transcript_, {}); }

  std::vector<FileRequest> fileRequests;  // of open and save dialogs, oldest first

  void Beep() override { transcript_.emplace_back("beep"); }
  void Message(const std::string& text) override { transcript_.push_back("message: " + text); }
  Answer Ask(const std::string& text, Buttons buttons) override {
    const char* kind = buttons == Buttons::kOkCancel ? "ok/cancel" : "yes/no/cancel";
    return Next<Answer>(std::string("ask ") + kind + ": " + text).value_or(Answer::kCancel);
  }
  std::optional<FileChoice> ChooseFileToOpen(const FileRequest& request) override {
    fileRequests.push_back(request);
    return Next<FileChoice>("open: " + request.title);
  }
  std::optional<FileChoice> ChooseFileToSave(const FileRequest& request) override {
    fileRequests.push_back(request);
    return Next<FileChoice>("save: " + request.title);
  }
  std::optional<std::string> ChooseFolder(const std::string& startFolder) override {
    return Next<std::string>("folder: " + startFolder);
  }
  std::optional<int> ChooseChannel(const std::string& text, int channelCount) override {
    return Next<int>("channel of " + std::to_string(channelCount) + ": " + text);
  }
  std::optional<GenericParameters> AskGenericParameters(const GenericParameters&,
                                                        GenericPreview&) override {
    return Next<GenericParameters>("generic");
  }

 private:
  struct Cancelled {};
  using Scripted = std::variant<Cancelled, Answer, FileChoice, std::string, int, GenericParameters>;

  // Notes the prompt and takes the next answer; nothing when it is a cancel or missing.
  template <typename T>
  std::optional<T> Next(std::string line) {
    transcript_.push_back(std::move(line));
    if (answers_.empty()) {
      ADD_FAILURE() << "no answer scripted for: " << transcript_.back();
      return std::nullopt;
    }
    const Scripted answer = std::exchange(answers_.front(), Cancelled{});
    answers_.pop_front();
    if (std::holds_alternative<Cancelled>(answer)) return std::nullopt;
    if (const T* given = std::get_if<T>(&answer)) return *given;
    ADD_FAILURE() << "the scripted answer is of another kind than: " << transcript_.back();
    return std::nullopt;
  }

  std::deque<Scripted> answers_;
  std::vector<std::string> transcript_;
};

}  // namespace cantorix
