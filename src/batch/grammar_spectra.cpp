// grammar_spectra.cpp - the verbs of the frequency domain.
#include "batch/grammar.h"

namespace cantorix::batch {
namespace {

void DeclareSpectrum(Grammar& grammar) {
  Request& request = grammar.request();
  auto* app = grammar.Declare(grammar.app(), "spectrum",
                              "FFT spectrum, LPC envelope and formants of a frame or of the "
                              "average over a stretch; -1 where there is no formant",
                              Verb::kSpectrum);
  grammar.AddFiles(app);
  auto* place = app->add_option_group("Place");
  auto* at = grammar.AddTime(place, "--at", request.atMs, "Start of the frame");
  grammar.AddRange(place);
  place->require_option(1, 2);
  at->excludes(OptionOf(*place, "--from"), OptionOf(*place, "--to"));
  grammar.AddStyle(app);
  grammar.SetsAll(app, SpectrumParameters());
  app->add_option("--display", request.displayPoints, "Display points: rows of the table")
      ->capture_default_str()
      ->type_name("N")
      ->check(CLI::Range(1, kMostDisplayPoints));
}

// What the spectrogram and its formants alone have in common.
void AddSpectrogram(Grammar& grammar, CLI::App* app) {
  grammar.AddFiles(app);
  grammar.AddRange(app);
  grammar.AddStyle(app);
  app->add_option("--rows", grammar.request().rows,
                  "Rows of the picture, 0 Hz to the upper frequency")
      ->capture_default_str()
      ->type_name("N")
      ->check(CLI::Range(1, kMostRows));
  grammar.SetsAll(app, SpectrogramParameters());
}

CLI::Option* AddColumns(Grammar& grammar, CLI::App* app) {
  return app
      ->add_option("--columns", grammar.request().columns, "Columns the stretch is divided into")
      ->type_name("N")
      ->check(CLI::Range(std::int64_t{1}, std::int64_t{kMostColumns}));
}

void DeclareSpectrogram(Grammar& grammar) {
  auto* app = grammar.Declare(grammar.app(), "spectrogram",
                              "Level matrix: a row for each time, a column for each frequency, "
                              "in dB",
                              Verb::kSpectrogram);
  AddSpectrogram(grammar, app);
  AddColumns(grammar, app)->capture_default_str();
  app->add_flag("--formants", grammar.request().formantColumns,
                "F1 to F5 behind the levels, in Hz: 0 where silent, - where there is none");
}

void DeclareFormants(Grammar& grammar) {
  auto* app = grammar.Declare(grammar.app(), "formants",
                              "Formants over time: F1 to F5 in Hz, 0 where silent, - where there "
                              "is none",
                              Verb::kFormants);
  AddSpectrogram(grammar, app);
  auto* division = app->add_option_group("Division");
  division->add_option("--step", grammar.request().columnStepMs, "Between the rows")
      ->type_name("MS")
      ->check(CLI::PositiveNumber);
  AddColumns(grammar, division);
  division->require_option(1);
}

}  // namespace

void DeclareSpectra(Grammar& grammar) {
  DeclareSpectrum(grammar);
  DeclareSpectrogram(grammar);
  DeclareFormants(grammar);
}

}  // namespace cantorix::batch
