// verbs.h - what each verb does with one open file. Each returns false when it failed, with the
// reason said through the session.
#pragma once

#include "batch/session.h"
#include "batch/text_sink.h"

namespace cantorix::batch {

// The verbs that measure: rows or lines to `sink`, without the table's header line. With
// `namesFile` every row begins with the file's name.
bool WriteInfo(Session& session, bool namesFile, TextSink& sink);
bool WritePitch(Session& session, bool namesFile, TextSink& sink);
bool WriteIntensity(Session& session, bool namesFile, TextSink& sink);
bool WriteFormants(Session& session, bool namesFile, TextSink& sink);

// The verbs whose columns depend on the file: with header lines of their own.
bool WriteSpectrum(Session& session, bool namesFile, TextSink& sink);
bool WriteSpectrogram(Session& session, bool namesFile, TextSink& sink);

// Saves the recording, or the chosen range of it, as the native or the WAV file that the request's
// output names.
bool Convert(Session& session);

// The settings record: as a table of its fields, and as its 1152 bytes.
void ShowConfig(const Settings& settings, bool json, TextSink& sink);
void WriteConfig(const Settings& settings, TextSink& sink);

}  // namespace cantorix::batch
