// grammar_tracks.cpp - the verbs that describe a recording, and those that follow it over time.
#include "batch/grammar.h"
#include "batch/option_texts.h"

namespace cantorix::batch {
namespace {

void DeclarePitch(Grammar& grammar) {
  auto* app = grammar.Declare(grammar.app(), "pitch",
                              "The pitch track: time and Hz, 0 where unvoiced", Verb::kPitch);
  grammar.AddFiles(app);
  grammar.AddRange(app);
  grammar.AddStyle(app);
  grammar.SetsAll(app, PitchParameters());
}

void DeclareMeasure(Grammar& grammar) {
  auto* app = grammar.Declare(grammar.app(), "measure",
                              "A stretch in one row: duration, pitch, voiced share, intensity, "
                              "amplitude and mean formants; - where there is none",
                              Verb::kMeasure);
  grammar.AddFiles(app);
  grammar.AddRange(app);
  grammar.AddStyle(app);
  grammar.SetsAll(app, PitchParameters());
  grammar.Sets(app, {"lpc", "spectrogram.lpcOrder",
                     "LPC coefficients of the formants; auto: one for each kHz of the "
                     "recording's rate and two more",
                     ParameterRule::kLpcOrder});
}

void DeclareIntensity(Grammar& grammar) {
  auto* app = grammar.Declare(grammar.app(), "intensity", "The level contour: time and dB",
                              Verb::kIntensity);
  grammar.AddFiles(app);
  grammar.AddRange(app);
  grammar.AddStyle(app);
  grammar.SetsAll(app, IntensityParameters());
  app->add_flag("--samples", grammar.request().perSample, "One row per sample instead of per frame")
      ->excludes(OptionOf(*app, "--log"));
}

}  // namespace

void DeclareDescriptions(Grammar& grammar) {
  auto* info = grammar.Declare(grammar.app(), "info",
                               "Format, rate, length, storage, tiers and labels", Verb::kInfo);
  grammar.AddFiles(info);
  info->add_flag("--json", grammar.request().json, "Every carried field, one JSON object a line");

  auto* labels = grammar.Declare(grammar.app(), "labels",
                                 "The labels of the tiers in use: tier, text, time and the pitch "
                                 "and intensity there",
                                 Verb::kLabels);
  grammar.AddFiles(labels);
  grammar.AddRange(labels);
  grammar.AddStyle(labels);
  LabelExport& file = grammar.request().labelExport;
  auto* format = labels
                     ->add_option("--format", file.format,
                                  "A label file for another program instead of the table: " +
                                      LabelFormatKeys())
                     ->type_name("FORMAT")
                     ->check(IsLabelFormat);
  for (const char* other : {"--from", "--to", "--exact", "--log"}) {
    format->excludes(OptionOf(*labels, other));
  }
  labels->add_option("--tier", file.tier, "The only tier in the label file")
      ->type_name("NAME")
      ->needs(format);
  labels
      ->add_flag("--intervals", file.asIntervals,
                 "Labels become intervals up to the next label instead of points")
      ->needs(format);
}

void DeclareTracks(Grammar& grammar) {
  DeclarePitch(grammar);
  DeclareIntensity(grammar);
  DeclareMeasure(grammar);
}

}  // namespace cantorix::batch
