// sample_files.h - the sample recording as the files of the samples folder.
// Relies on sample_recording.h for what they say and on the document for the native layout.
#pragma once

#include <string>

namespace cantorix::synth {

inline constexpr const char* kRecordingFile = "vowels.qrv";
inline constexpr const char* kPitchTruthFile = "vowels.truth.tsv";
inline constexpr const char* kFormantTruthFile = "vowels.formants.tsv";

// Writes the three files into `folder`, which must exist, replacing earlier ones. Throws FileError.
void WriteSampleFiles(const std::string& folder);

}  // namespace cantorix::synth
