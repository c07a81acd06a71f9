// grammar.cpp - what the verbs have in common.
#include "batch/grammar.h"

#include <algorithm>
#include <map>
#include <stdexcept>

#include "batch/option_texts.h"
#include "batch/stream_place.h"
#include "settings/settings.h"

namespace cantorix::batch {
namespace {

constexpr const char* kFooter = R"(Examples:
  cantorix-batch info talk.wav
  cantorix-batch pitch talk.wav --method cepstral --low 75 --high 400
  cantorix-batch intensity talk.wav --from 500 --to 1500 --exact
  cantorix-batch pitch *.wav -o tracks -j 4
  cantorix-batch spectrum talk.wav --at 812.5
  cantorix-batch spectrogram talk.wav --columns 800 --rows 250 --points 256
  cantorix-batch formants talk.wav --step 10
  cantorix-batch labels talk.qrv --log
  cantorix-batch labels talk.qrv --format textgrid -o talk.TextGrid
  cantorix-batch measure talk.wav --from 500 --to 1500 --lpc auto
  cantorix-batch corpus speakers.tsv --do pitch,formants -o tables -j 4 --labels TextGrid
  cantorix-batch convert talk.wav talk.qrv
  cantorix-batch convert talk.wav talk.qrv --labels talk.TextGrid
  cantorix-batch import-labels talk.wav words.txt --tier words --unit s -o talk.qrv
  cantorix-batch edit talk.qrv -o short.qrv select:500:800 cut cursor:0 paste
  cantorix-batch config show --set pitch.highHz=600

Tables are tab-separated with a header line; times are in milliseconds.
Exit status: 0 all done, 1 some file failed, 2 wrong usage.)";

std::string OptionName(const Parameter& parameter) { return std::string("--") + parameter.name; }

std::string WithKnownEnding(const std::string& path) {
  const bool known = HasEnding(path, ".qrv") || HasEnding(path, ".wav") || IsStream(path);
  return known ? "" : "the name must end in .qrv or .wav: " + path;
}

}  // namespace

Grammar::Grammar() {
  app_.description("Measures, converts and describes recordings of speech without a display.");
  app_.footer(kFooter);
  app_.set_version_flag("--version", std::string("cantorix-batch ") + CANTORIX_VERSION);
  app_.require_subcommand(1);
  DeclareDescriptions(*this);
  DeclareTracks(*this);
  DeclareSpectra(*this);
  DeclareCorpus(*this);
  DeclareSaving(*this);
  DeclareListings(*this);
}

Request Grammar::Take() {
  // The options of a verb are named last, so they win over --set.
  auto& assignments = request_.assignments;
  assignments.insert(assignments.end(), verbAssignments_.begin(), verbAssignments_.end());
  if (!input_.empty()) request_.files = {input_};
  return request_;
}

CLI::App* Grammar::Declare(CLI::App& parent, const char* name, const char* description, Verb verb) {
  CLI::App* app = parent.add_subcommand(name, description);
  app->final_callback([this, verb] { request_.verb = verb; });
  return app;
}

CLI::Option* Grammar::SetsText(CLI::App* app, const Parameter& parameter) {
  const auto assign = [this, field = parameter.field](const std::string& text) {
    verbAssignments_.push_back({field, text});
  };
  return app->add_option_function<std::string>(OptionName(parameter), assign, parameter.description)
      ->type_name("NUMBER");
}

CLI::Option* Grammar::SetsLpcOrder(CLI::App* app, const Parameter& parameter) {
  const auto assign = [this, field = parameter.field](const std::string& text) {
    request_.usualLpcOrder = text == kAutomaticOrder;
    if (!request_.usualLpcOrder) verbAssignments_.push_back({field, text});
  };
  return app->add_option_function<std::string>(OptionName(parameter), assign, parameter.description)
      ->type_name("NUMBER|auto");
}

void Grammar::SetsFlag(CLI::App* app, const Parameter& parameter) {
  const auto assign = [this, field = parameter.field](std::int64_t) {
    verbAssignments_.push_back({field, "1"});
  };
  app->add_flag_function(OptionName(parameter), assign, parameter.description);
}

void Grammar::Sets(CLI::App* app, const Parameter& parameter) {
  const std::map<std::string, std::string> methods{{"cepstral", "0"}, {"autocorrelation", "1"}};
  switch (parameter.rule) {
    case ParameterRule::kNumber:
      SetsText(app, parameter);
      return;
    case ParameterRule::kPositive:
      SetsText(app, parameter)->check(CLI::PositiveNumber);
      return;
    case ParameterRule::kNotNegative:
      SetsText(app, parameter)->check(CLI::NonNegativeNumber);
      return;
    case ParameterRule::kFftSize:
      SetsText(app, parameter)
          ->check(CLI::IsMember({"32", "64", "128", "256", "512", "1024", "2048", "4096", "8192"}));
      return;
    case ParameterRule::kPitchMethod:
      SetsText(app, parameter)
          ->type_name("NAME")
          ->transform(CLI::CheckedTransformer(methods).description(""));
      return;
    case ParameterRule::kSwitch:
      return SetsFlag(app, parameter);
    case ParameterRule::kLpcOrder:
      SetsLpcOrder(app, parameter);
      return;
    case ParameterRule::kTrackingOrder:
      SetsLpcOrder(app, parameter)
          ->type_name("NUMBER:INT in [1 - 400]|auto")
          ->check([orders = CLI::Range(1, 400)](const std::string& text) {
            return text == kAutomaticOrder ? std::string() : orders(text);
          });
      return;
  }
}

void Grammar::SetsAll(CLI::App* app, std::span<const Parameter> parameters) {
  for (const Parameter& parameter : parameters) Sets(app, parameter);
}

void Grammar::AddSettings(CLI::App* app) {
  app->add_option("--config", request_.configFile, "Settings record to use")->type_name("FILE");
  const auto assign = [this](const std::vector<std::string>& texts) {
    for (const auto& text : texts) request_.assignments.push_back(ParseAssignment(text));
  };
  app->add_option_function<std::vector<std::string>>(
         "--set", assign, "Change a field of the settings (see 'config show')")
      ->type_name("GROUP.FIELD=VALUE")
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  app->add_option("--program-dir", request_.programDirectory,
                  "Folder of the configuration and the temporary files "
                  "(default: a private temporary one)")
      ->type_name("DIR")
      ->check(CLI::ExistingDirectory);
}

void Grammar::AddOpening(CLI::App* app) {
  AddSettings(app);
  app->add_option("--channel", request_.channel, "Channel to read of a file with several")
      ->type_name("N")
      ->check(CLI::Range(1, 65535));
  const auto generic = [this](const std::string& text) { request_.generic = ParseGeneric(text); };
  app->add_option_function<std::string>("--generic", generic, "How to read a file of no known kind")
      ->type_name("HEADER,RATE,8|16,low|high,binary|ascii");
  app->add_option("--memory-minutes", request_.memoryMinutes,
                  "Recordings of this length and more stay on the disk")
      ->type_name("N")
      ->check(CLI::NonNegativeNumber);
}

void Grammar::AddFiles(CLI::App* app) {
  app->add_option("FILE", request_.files, "Recordings")->required();
  app->add_option("-o,--output", request_.output,
                  "File to write, or folder when there are several files; - is standard output")
      ->type_name("OUT");
  AddForce(app);
  AddJobs(app, "Files at a time");
  AddOpening(app);
}

void Grammar::AddJobs(CLI::App* app, const char* description) {
  const CLI::Range count(1, 256);
  app->add_option("-j,--jobs", request_.jobs, description)->type_name("N")->check(count);
  app->add_option("--threads", request_.threads,
                  "Threads that compute at one time, files and parts of a long one together "
                  "(default: one for each processor)")
      ->type_name("N")
      ->check(count);
}

void Grammar::AddInput(CLI::App* app, const char* name) {
  app->add_option(name, input_, "Recording")->required();
  AddOpening(app);
}

CLI::Option* Grammar::AddSavedFile(CLI::App* app, const char* option, const char* description) {
  const std::map<std::string, bool> formats{{"qrv", false}, {"wav", true}};
  app->add_option("--format", request_.asWave,
                  "Instead of the one that the name ends in; streams get qrv")
      ->type_name("qrv|wav")
      ->transform(CLI::CheckedTransformer(formats).description(""));
  return AddOutput(app, option, description);
}

CLI::Option* Grammar::AddOutput(CLI::App* app, const char* option, const char* description) {
  AddForce(app);
  return app->add_option(option, request_.output, description)->required()->check(WithKnownEnding);
}

void Grammar::AddRange(CLI::App* app) {
  AddTime(app, "--from", request_.fromMs, "Start of the stretch");
  AddTime(app, "--to", request_.toMs, "End of the stretch");
}

CLI::Option* Grammar::AddTime(CLI::App* app, const char* option, std::optional<double>& ms,
                              const char* description) {
  // Judged with the recording, whose length the refusal names.
  const auto keep = [&ms](const std::string& text) { ms = NumberOrNan(text); };
  return app->add_option_function<std::string>(option, keep, description)->type_name("MS");
}

void Grammar::AddForce(CLI::App* app) {
  app->add_flag("--force", request_.force, "The output may take the place of the recording itself");
}

void Grammar::AddStyle(CLI::App* app) {
  auto* exact =
      app->add_flag("--exact", request_.exact, "17 significant digits instead of one decimal");
  app->add_flag("--log", request_.log, "The rows that the measurement log would hold, as its text")
      ->excludes(exact);
}

CLI::Option* OptionOf(CLI::App& app, const std::string& name) {
  for (CLI::Option* const option : app.get_options()) {
    const auto& names = option->get_lnames();
    if (std::find(names.begin(), names.end(), name.substr(2)) != names.end()) return option;
  }
  throw std::out_of_range(name);
}

}  // namespace cantorix::batch
