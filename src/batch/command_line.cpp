// command_line.cpp - the verbs and their options.
#include "batch/command_line.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <map>
#include <sstream>

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
  cantorix-batch convert talk.wav talk.qrv
  cantorix-batch config show --set pitch.highHz=600

Tables are tab-separated with a header line; times are in milliseconds.
Exit status: 0 all done, 1 some file failed, 2 wrong usage.)";

std::vector<std::string> Split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::istringstream stream(text);
  for (std::string part; std::getline(stream, part, separator);) parts.push_back(part);
  return parts;
}

Assignment ParseAssignment(const std::string& text) {
  const std::size_t equals = text.find('=');
  if (equals == std::string::npos || equals == 0) {
    throw CLI::ValidationError("--set", "expected GROUP.FIELD=VALUE, not " + text);
  }
  return {text.substr(0, equals), text.substr(equals + 1)};
}

// "HEADER,RATE,8|16,low|high,binary|ascii"
GenericParameters ParseGeneric(const std::string& text) {
  const auto parts = Split(text, ',');
  GenericParameters parameters;
  const auto oneOf = [](const std::string& part, const char* no, const char* yes) {
    if (part != no && part != yes) throw CLI::ValidationError("--generic", "not known: " + part);
    return part == yes ? 1 : 0;
  };
  if (parts.size() != 5) {
    throw CLI::ValidationError("--generic", "expected HEADER,RATE,8|16,low|high,binary|ascii");
  }
  if (!CLI::detail::lexical_cast(parts[0], parameters.headerBytes) || parameters.headerBytes < 0) {
    throw CLI::ValidationError("--generic", "not a header size in bytes: " + parts[0]);
  }
  if (!CLI::detail::lexical_cast(parts[1], parameters.rateHz) || parameters.rateHz <= 0) {
    throw CLI::ValidationError("--generic", "not a rate in Hz: " + parts[1]);
  }
  parameters.sixteenBit = oneOf(parts[2], "8", "16");
  parameters.highByteFirst = oneOf(parts[3], "low", "high");
  parameters.binary = oneOf(parts[4], "ascii", "binary");
  return parameters;
}

// Declares the verbs on a CLI11 application and collects what they give.
class Grammar {
 public:
  Grammar() {
    app_.description("Measures, converts and describes recordings of speech without a display.");
    app_.footer(kFooter);
    app_.set_version_flag("--version", std::string("cantorix-batch ") + CANTORIX_VERSION);
    app_.require_subcommand(1);
    DeclareInfo();
    DeclarePitch();
    DeclareIntensity();
    DeclareSpectrum();
    DeclareSpectrogram();
    DeclareFormants();
    DeclareConvert();
    DeclareConfig();
  }

  CLI::App& app() { return app_; }

  Request Take() {
    // The options of a verb are named last, so they win over --set.
    auto& assignments = request_.assignments;
    assignments.insert(assignments.end(), verbAssignments_.begin(), verbAssignments_.end());
    if (request_.verb == Verb::kConvert) request_.files = {convertInput_};
    return request_;
  }

 private:
  CLI::App* Declare(CLI::App& parent, const char* name, const char* description, Verb verb) {
    CLI::App* app = parent.add_subcommand(name, description);
    app->final_callback([this, verb] { request_.verb = verb; });
    return app;
  }

  // The option sets one field of the settings.
  CLI::Option* Sets(CLI::App* app, const char* option, const char* field, const char* description) {
    const auto assign = [this, field](const std::string& text) {
      verbAssignments_.push_back({field, text});
    };
    return app->add_option_function<std::string>(option, assign, description)->type_name("NUMBER");
  }

  void SetsPoints(CLI::App* app, const char* field, const std::string& meaning) {
    Sets(app, "--points", field, meaning.c_str())
        ->check(CLI::IsMember({"32", "64", "128", "256", "512", "1024", "2048", "4096", "8192"}));
  }

  void AddSettings(CLI::App* app) {
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

  void AddOpening(CLI::App* app) {
    AddSettings(app);
    app->add_option("--channel", request_.channel, "Channel to read of a file with several")
        ->type_name("N")
        ->check(CLI::Range(1, 65535));
    const auto generic = [this](const std::string& text) { request_.generic = ParseGeneric(text); };
    app->add_option_function<std::string>("--generic", generic,
                                          "How to read a file of no known kind")
        ->type_name("HEADER,RATE,8|16,low|high,binary|ascii");
    app->add_option("--memory-minutes", request_.memoryMinutes,
                    "Recordings of this length and more stay on the disk")
        ->type_name("N")
        ->check(CLI::NonNegativeNumber);
  }

  void AddFiles(CLI::App* app) {
    app->add_option("FILE", request_.files, "Recordings")->required();
    app->add_option("-o,--output", request_.output,
                    "File to write, or folder when there are several files")
        ->type_name("OUT");
    app->add_option("-j,--jobs", request_.jobs, "Files at a time")
        ->type_name("N")
        ->check(CLI::Range(1, 256));
    AddOpening(app);
  }

  void AddRange(CLI::App* app) {
    app->add_option("--from", request_.fromMs, "Start of the stretch")->type_name("MS");
    app->add_option("--to", request_.toMs, "End of the stretch")->type_name("MS");
  }

  void AddTable(CLI::App* app) {
    AddRange(app);
    AddExact(app);
  }

  void AddExact(CLI::App* app) {
    app->add_flag("--exact", request_.exact, "17 significant digits instead of one decimal");
  }

  void DeclareInfo() {
    auto* app =
        Declare(app_, "info", "Format, rate, length, storage, tiers and labels", Verb::kInfo);
    AddFiles(app);
    app->add_flag("--json", request_.json, "Every carried field, one JSON object a line");
  }

  void DeclarePitch() {
    auto* app =
        Declare(app_, "pitch", "The pitch track: time and Hz, 0 where unvoiced", Verb::kPitch);
    AddFiles(app);
    AddTable(app);
    const std::map<std::string, std::string> methods{{"cepstral", "0"}, {"autocorrelation", "1"}};
    Sets(app, "--method", "pitch.method", "cepstral or autocorrelation (default)")
        ->type_name("NAME")
        ->transform(CLI::Transformer(methods))
        ->check(CLI::IsMember({"0", "1"}).description(""));
    Sets(app, "--window", "pitch.windowMs", "Cepstral: window length, ms")
        ->check(CLI::PositiveNumber);
    Sets(app, "--step", "pitch.stepMs", "Cepstral: step size, ms")->check(CLI::PositiveNumber);
    Sets(app, "--low", "pitch.lowHz", "Low end of the search, Hz")->check(CLI::PositiveNumber);
    Sets(app, "--high", "pitch.highHz", "High end of the search, Hz")->check(CLI::PositiveNumber);
    Sets(app, "--threshold", "pitch.thresholdPercent",
         "Cepstral: frames below this part of the largest energy are unvoiced, %");
    Sets(app, "--deviation", "pitch.deviationHz", "Cepstral: largest step between frames, Hz");
    Sets(app, "--level", "pitch.voicingLevel", "Autocorrelation: level of a voiced frame");
    Sets(app, "--tolerance", "pitch.tolerancePercent",
         "Autocorrelation: largest step between frames, %");
  }

  void DeclareIntensity() {
    auto* app = Declare(app_, "intensity", "The level contour: time and dB", Verb::kIntensity);
    AddFiles(app);
    AddTable(app);
    Sets(app, "--window", "intensity.windowMs", "Window length, ms")->check(CLI::PositiveNumber);
    Sets(app, "--step", "intensity.stepMs", "Step size, ms")->check(CLI::PositiveNumber);
    const auto relative = [this](std::int64_t) {
      verbAssignments_.push_back({"intensity.relative", "1"});
    };
    app->add_flag_function("--relative", relative, "dB above the quietest frame");
    app->add_flag("--samples", request_.perSample, "One row per sample instead of per frame");
  }

  void DeclareSpectrum() {
    auto* app = Declare(app_, "spectrum",
                        "FFT spectrum, LPC envelope and formants of a frame or of the average over "
                        "a stretch; -1 where there is no formant",
                        Verb::kSpectrum);
    AddFiles(app);
    auto* place = app->add_option_group("Place");
    auto* at = place->add_option("--at", request_.atMs, "Start of the frame")->type_name("MS");
    AddRange(place);
    place->require_option(1, 2);
    at->excludes(place->get_option("--from"), place->get_option("--to"));
    AddExact(app);
    SetsPoints(app, "fftlpc.points", "FFT size");
    Sets(app, "--window", "fftlpc.windowMs", "Applied window length, ms");
    Sets(app, "--lpc", "fftlpc.lpcOrder", "LPC coefficients, and the LPC frame's length in ms");
    Sets(app, "--fmax", "fftlpc.rangeHz", "Upper frequency, Hz");
    Sets(app, "--preemphasis", "spectrogram.preEmphasis", "0 to 1; 0 adds nothing");
    Sets(app, "--step", "fftlpc.stepMs", "Between the frames of an average, ms")
        ->check(CLI::NonNegativeNumber);
    app->add_option("--display", request_.displayPoints, "Display points: rows of the table")
        ->capture_default_str()
        ->type_name("N")
        ->check(CLI::Range(1, 1000000));
  }

  // What the spectrogram and its formants alone have in common.
  void AddSpectrogram(CLI::App* app) {
    AddFiles(app);
    AddTable(app);
    app->add_option("--rows", request_.rows, "Rows of the picture, 0 Hz to the upper frequency")
        ->capture_default_str()
        ->type_name("N")
        ->check(CLI::Range(1, 100000));
    SetsPoints(app, "spectrogram.points", "Analysis window length");
    Sets(app, "--fmax", "spectrogram.rangeHz", "Upper frequency, Hz");
    Sets(app, "--dynamic", "spectrogram.dynamicRangeDb",
         "Dynamic range, dB; columns that stay below half of it are silent");
    Sets(app, "--preemphasis", "spectrogram.preEmphasis", "0 to 1; 0 adds nothing");
    Sets(app, "--lpc", "spectrogram.lpcOrder",
         "LPC coefficients of the formants, and their frame's length in ms")
        ->check(CLI::Range(1, 400));
  }

  CLI::Option* AddColumns(CLI::App* app) {
    return app->add_option("--columns", request_.columns, "Columns the stretch is divided into")
        ->type_name("N")
        ->check(CLI::Range(std::int64_t{1}, std::int64_t{100000000}));
  }

  void DeclareSpectrogram() {
    auto* app = Declare(app_, "spectrogram",
                        "Level matrix: a row for each time, a column for each frequency, in dB",
                        Verb::kSpectrogram);
    AddSpectrogram(app);
    AddColumns(app)->capture_default_str();
    app->add_flag("--formants", request_.formantColumns,
                  "F1 to F5 behind the levels, in Hz: 0 where silent, - where there is none");
  }

  void DeclareFormants() {
    auto* app = Declare(app_, "formants",
                        "Formants over time: F1 to F5 in Hz, 0 where silent, - where there is none",
                        Verb::kFormants);
    AddSpectrogram(app);
    auto* division = app->add_option_group("Division");
    division->add_option("--step", request_.columnStepMs, "Between the rows")
        ->type_name("MS")
        ->check(CLI::PositiveNumber);
    AddColumns(division);
    division->require_option(1);
  }

  void DeclareConvert() {
    auto* app = Declare(app_, "convert", "Save as a native file (.qrv) or export as WAV (.wav)",
                        Verb::kConvert);
    app->add_option("IN", convertInput_, "Recording")->required();
    app->add_option("OUT", request_.output, "File to write; its ending chooses the format")
        ->required()
        ->check([](const std::string& path) {
          const bool known = path.ends_with(".qrv") || path.ends_with(".wav");
          return std::string(known ? "" : "the name must end in .qrv or .wav: " + path);
        });
    AddRange(app);
    AddOpening(app);
  }

  void DeclareConfig() {
    auto* config = app_.add_subcommand("config", "The settings record");
    config->require_subcommand(1);
    auto* show = Declare(*config, "show", "Every field with its place, value and meaning",
                         Verb::kConfigShow);
    show->add_option("FILE", request_.configFile, "Settings record (default: the defaults)");
    show->add_flag("--json", request_.json, "One JSON object");
    AddSettings(show);
    auto* defaults = Declare(*config, "default",
                             "Write the defaults as a settings record of "
                             "1152 bytes",
                             Verb::kConfigDefault);
    defaults->add_option("FILE,-o,--output", request_.output, "File to write");
    AddSettings(defaults);
  }

  CLI::App app_;
  Request request_;
  std::string convertInput_;
  std::vector<Assignment> verbAssignments_;
};

}  // namespace

CommandLine ParseCommandLine(int argc, const char* const* argv) {
  Grammar grammar;
  try {
    grammar.app().parse(argc, argv);
    return {grammar.Take(), 0};
  } catch (const CLI::Success& help) {
    grammar.app().exit(help);
    return {{}, 0};
  } catch (const CLI::Error& error) {
    std::fprintf(stderr, "cantorix-batch: %s (--help explains)\n", error.what());
    return {{}, 2};
  }
}

}  // namespace cantorix::batch
