// request.h - what the user asked for, as plain values. command_line.h fills it, the verbs read it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "document/label_import_options.h"
#include "measure/options.h"
#include "platform/generic_parameters.h"

namespace cantorix::batch {

enum class Verb {
  kInfo,
  kPitch,
  kIntensity,
  kSpectrum,
  kSpectrogram,
  kFormants,
  kLabels,
  kMeasure,
  kCorpus,
  kConvert,
  kImportLabels,
  kEdit,
  kConfigShow,
  kConfigDefault,
  kCommands,
};

// Labels from a file.
struct LabelImport {
  std::string file;    // empty: none
  std::string tier;    // empty: those that the file names
  std::string format;  // a key of the label formats; empty: that which the file shows
  bool emptyIntervals = false;
  std::optional<TimeStampUnit> unit;  // of plain text, which is read as such when it is given
  LabelImportOptions options;         // without the unit
};

// A file of labels instead of a table.
struct LabelExport {
  std::string format;  // empty: the table
  std::string tier;    // empty: all in use
  bool asIntervals = false;
};

// The verb corpus.
struct CorpusRequest {
  std::string tables;       // "pitch,formants"
  int points = 5;           // of each stretch
  std::string labelEnding;  // of label files beside the recordings; empty: there are none
  std::string column;       // of the paths in a table; empty: the first
  bool resume = false;
};

// One step of `edit`.
struct EditStep {
  enum Kind {
    kSelect,  // first and second: ends of the span, ms
    kCursor,  // first: ms
    kCut,
    kCopy,
    kPaste,
    kClear,
    kGain,  // first: %, second: reference in sample units
    kSmooth,
    kUndo,
    kLabel,  // first: ms; tier and label
  };
  std::string text;  // as it was given
  Kind kind;
  double first = 0.0;
  double second = 0.0;
  std::string tier{};
  std::string label{};
};

// What the verbs that measure are asked for is with them.
struct Request : MeasureOptions {
  Verb verb = Verb::kInfo;
  std::vector<std::string> files;

  // Common to all verbs.
  std::string output;            // file or, for several files, folder; empty: standard output
  std::string configFile;        // settings record to start from; empty: none
  std::string programDirectory;  // empty: a private temporary one
  std::optional<std::int32_t> memoryMinutes;
  std::optional<int> channel;  // counted from 1
  std::optional<GenericParameters> generic;
  int jobs = 1;                // files at a time
  int threads = 0;             // that compute at one time; 0: one for each processor
  bool force = false;          // the output may take the place of a recording
  std::optional<bool> asWave;  // format of a saved recording; else its name says it
  bool exact = false;          // 17 significant digits instead of one decimal
  bool json = false;
  bool log = false;   // rows of the measurement log instead of a table
  bool html = false;  // commands: a page of the manual

  LabelImport labelImport;  // import-labels and convert
  CorpusRequest corpus;
  LabelExport labelExport;      // labels
  std::vector<EditStep> steps;  // edit
};

}  // namespace cantorix::batch
