// verbs.h - what each verb does with one open file. Each returns false when it failed, with the
// reason said through the session.
#pragma once

#include "batch/session.h"
#include "batch/text_sink.h"

namespace cantorix {
struct Settings;
}

namespace cantorix::batch {

// The verbs that measure: rows or lines to `sink`, without the table's header line. With
// `namesFile` every row begins with the file's name.
bool WriteInfo(Session& session, bool namesFile, TextSink& sink);
bool WritePitch(Session& session, bool namesFile, TextSink& sink);
bool WriteIntensity(Session& session, bool namesFile, TextSink& sink);
bool WriteFormants(Session& session, bool namesFile, TextSink& sink);
bool WriteLabels(Session& session, bool namesFile, TextSink& sink);
bool WriteMeasure(Session& session, bool namesFile, TextSink& sink);
// The header line of its table.
std::string MeasureHeader();

// The labels as a file of the format that the request names; what it cannot hold is said.
bool WriteLabelFile(Session& session, bool namesFile, TextSink& sink);

// The verbs whose columns depend on the file: with header lines of their own.
bool WriteSpectrum(Session& session, bool namesFile, TextSink& sink);
bool WriteSpectrogram(Session& session, bool namesFile, TextSink& sink);

// The same measurements as the rows that the desktop's log would hold, and how many values the
// widest of them has. Spectra: the formants, then the entire frame. A spectrogram: the entire frame
// of every column, then the formants if they were asked for.
inline constexpr std::size_t kTrackValues = 3;
inline constexpr std::size_t kLabelValues = 5;
inline constexpr std::size_t kSpectrumValues = 10;
inline constexpr std::size_t kFormantValues = 6;
std::size_t SpectrogramValues(const Request& request);
bool LogTracks(Session& session, TextSink& sink);
bool LogLabels(Session& session, TextSink& sink);
bool LogSpectrum(Session& session, TextSink& sink);
bool LogSpectrogram(Session& session, TextSink& sink);
bool LogFormants(Session& session, TextSink& sink);
bool LogMeasure(Session& session, TextSink& sink);

// Saves the recording, or the chosen range of it, as the native or the WAV file that the request's
// output names.
bool Convert(Session& session);
// Adds the labels of the request's label file, if it names one, first.
bool ConvertWithLabels(Session& session);
// Does the steps of the request, adds the labels of its label file, and saves the result.
bool Edit(Session& session);
bool ImportLabels(Session& session);

// The settings record: as a table of its fields, and as its 1152 bytes.
void ShowConfig(const Settings& settings, bool json, TextSink& sink);
void WriteConfig(const Settings& settings, TextSink& sink);

// The commands of the desktop, as a table or as the page of the manual.
void ShowCommands(bool html, TextSink& sink);

}  // namespace cantorix::batch
