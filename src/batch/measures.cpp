// measures.cpp - one entry for each verb.
#include "batch/measures.h"

#include "batch/log_rows.h"
#include "batch/outcome.h"
#include "batch/own_output.h"
#include "batch/verbs.h"
#include "document/label.h"
#include "labelfile/label_formats.h"
#include "mainview/selection_statistics.h"

namespace cantorix::batch {
namespace {

using WriteRows = bool (*)(Session&, TextSink&);

Measure LogOf(const char* suffix, std::size_t values, WriteRows write) {
  const auto rows = [write](Session& session, bool, TextSink& sink) {
    return write(session, sink);
  };
  // Every row of a log names its recording by itself.
  return {LogCaptions(values), suffix, rows, false};
}

Measure LogFor(const Request& request) {
  switch (request.verb) {
    case Verb::kPitch:
      return LogOf(".pitch.log.txt", kTrackValues, LogTracks);
    case Verb::kIntensity:
      return LogOf(".intensity.log.txt", kTrackValues, LogTracks);
    case Verb::kSpectrum:
      return LogOf(".spectrum.log.txt", kSpectrumValues, LogSpectrum);
    case Verb::kSpectrogram:
      return LogOf(".spectrogram.log.txt", SpectrogramValues(request), LogSpectrogram);
    case Verb::kMeasure:
      return LogOf(".measure.log.txt", kStatisticsNames.size(), LogMeasure);
    case Verb::kFormants:
      return LogOf(".formants.log.txt", kFormantValues, LogFormants);
    default:
      return LogOf(".labels.log.txt", kLabelValues, LogLabels);
  }
}

Measure SavingBy(bool (*save)(Session&)) {
  const auto write = [save](Session& session, bool, TextSink&) {
    RequireNotForeign(session);
    return save(session);
  };
  return {"", "", write};
}

}  // namespace

Measure MeasureFor(const Request& request) {
  if (request.log) return LogFor(request);
  if (const LabelFormat* format = LabelFormatOf(request.labelExport.format)) {
    if (request.files.size() > 1 && request.output.empty()) {
      throw WrongUsage("the label files of several recordings need a folder (-o)");
    }
    return {"", '.' + std::string(format->ending), WriteLabelFile};
  }
  switch (request.verb) {
    case Verb::kPitch:
      return {"time_ms\tpitch_hz\n", ".pitch.tsv", WritePitch};
    case Verb::kIntensity:
      return {"time_ms\tintensity_db\n", ".intensity.tsv", WriteIntensity};
    case Verb::kSpectrum:
      return {"", ".spectrum.tsv", WriteSpectrum};
    case Verb::kSpectrogram:
      return {"", ".spectrogram.tsv", WriteSpectrogram};
    case Verb::kFormants:
      return {"time_ms\tF1\tF2\tF3\tF4\tF5\n", ".formants.tsv", WriteFormants};
    case Verb::kLabels:
      return {"tier\ttext\ttime_ms\tpitch_hz\tintensity_db\n", ".labels.tsv", WriteLabels};
    case Verb::kMeasure:
      return {MeasureHeader(), ".measure.tsv", WriteMeasure};
    case Verb::kConvert:
      return SavingBy(ConvertWithLabels);
    case Verb::kImportLabels:
      return SavingBy(ImportLabels);
    case Verb::kEdit:
      return SavingBy(Edit);
    default:
      return {"", request.json ? ".info.json" : ".info.txt", WriteInfo};
  }
}

bool WritesRecording(Verb verb) {
  return verb == Verb::kConvert || verb == Verb::kImportLabels || verb == Verb::kEdit;
}

bool IsListing(Verb verb) {
  return verb == Verb::kConfigShow || verb == Verb::kConfigDefault || verb == Verb::kCommands;
}

}  // namespace cantorix::batch
