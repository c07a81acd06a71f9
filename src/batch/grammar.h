// grammar.h - the verbs and their options as declarations on a CLI11 application, and the request
// that they fill. The functions at the end declare a group of verbs each; the class holds what they
// have in common.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "batch/request.h"
#include "measure/parameters.h"

namespace cantorix::batch {

class Grammar {
 public:
  Grammar();
  Grammar(const Grammar&) = delete;
  Grammar& operator=(const Grammar&) = delete;

  CLI::App& app() { return app_; }
  // What the options fill while they are parsed.
  Request& request() { return request_; }
  // The request when all is parsed.
  Request Take();

  CLI::App* Declare(CLI::App& parent, const char* name, const char* description, Verb verb);

  // The option sets a field of the settings.
  void Sets(CLI::App* app, const Parameter& parameter);
  void SetsAll(CLI::App* app, std::span<const Parameter> parameters);

  // --config, --set, --program-dir
  void AddSettings(CLI::App* app);
  // Those, and how files are opened.
  void AddOpening(CLI::App* app);
  // Any number of recordings, and where their results go.
  void AddFiles(CLI::App* app);
  // One recording, and the native or WAV file to write.
  void AddInput(CLI::App* app, const char* name);
  // Without --format, for a verb that has one of its own.
  CLI::Option* AddOutput(CLI::App* app, const char* option, const char* description);
  CLI::Option* AddSavedFile(CLI::App* app, const char* option, const char* description);
  // What works at one time: -j and --threads.
  void AddJobs(CLI::App* app, const char* description);
  void AddRange(CLI::App* app);
  // The option is a time in a recording, NaN when its text is no number.
  CLI::Option* AddTime(CLI::App* app, const char* option, std::optional<double>& ms,
                       const char* description);
  // --exact or --log: how the numbers of a table are written.
  void AddStyle(CLI::App* app);

 private:
  CLI::Option* SetsText(CLI::App* app, const Parameter& parameter);
  CLI::Option* SetsLpcOrder(CLI::App* app, const Parameter& parameter);
  void SetsFlag(CLI::App* app, const Parameter& parameter);
  void AddForce(CLI::App* app);

  CLI::App app_;
  Request request_;
  std::string input_;                        // of the verbs that take one recording
  std::vector<Assignment> verbAssignments_;  // of the options that set a field
};

// The option of `app` that is called so. The library's own search ends the program when memory runs
// out in it. Throws std::out_of_range without one.
CLI::Option* OptionOf(CLI::App& app, const std::string& name);

void DeclareDescriptions(Grammar& grammar);  // info, labels
void DeclareTracks(Grammar& grammar);        // pitch, intensity, measure
void DeclareSpectra(Grammar& grammar);       // spectrum, spectrogram, formants
void DeclareCorpus(Grammar& grammar);        // corpus
void DeclareSaving(Grammar& grammar);        // convert, import-labels, edit
void DeclareListings(Grammar& grammar);      // config, commands

}  // namespace cantorix::batch
