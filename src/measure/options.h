// options.h - what one measurement of a recording is asked for beyond its settings, as plain
// values. parameters.h names the settings that each measurement has an option for.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace cantorix {

// A field of the settings and the text of its new value.
struct Assignment {
  std::string field;  // "group.field"
  std::string text;
};

struct MeasureOptions {
  std::vector<Assignment> assignments;  // in the order given; later ones win
  std::optional<double> fromMs, toMs;   // a range; without one the whole recording
  std::optional<double> atMs;           // spectrum: where the frame starts; without it the range
  bool perSample = false;               // intensity: one level per sample
  int displayPoints = 500;              // spectrum: points from 0 Hz upward
  std::int64_t columns = 500;           // spectrogram and formants
  int rows = 200;                       // of the picture that decides what is silent, too
  bool formantColumns = false;          // spectrogram: F1 to F5 beside the levels
  std::optional<double> columnStepMs;   // formants: between columns, instead of their number
  bool usualLpcOrder = false;           // the LPC order goes by the recording's rate
};

}  // namespace cantorix
