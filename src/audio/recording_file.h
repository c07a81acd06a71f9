// recording_file.h - the file that a recording grows in: raw 16-bit little-endian mono samples in
// the temporary folder. It outlives everything until somebody removes it, the program included:
// what a killed program was recording is found at the next start. Its name carries all that a raw
// file lacks: "Recording-<date>-<time>-<rate>Hz-N.raw". Locked while it is open.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/file.h"

namespace cantorix {

class RecordingFile {
 public:
  // Makes a new file that only this user can read; a link or file of that name is passed over.
  // `stamp` is the local date and time, "20261121-143005". Throws FileError.
  static std::unique_ptr<RecordingFile> Create(const std::string& folder, const std::string& stamp,
                                               std::uint32_t rateHz);
  // Opens one that was left behind, to place it in a document. Throws FileError when another
  // program has it or it is no such file.
  static std::unique_ptr<RecordingFile> Reopen(const std::string& path);

  const std::string& path() const { return file_.path(); }
  std::uint32_t rateHz() const { return rateHz_; }
  std::int64_t lengthSamples() const { return lengthSamples_; }

  // Writes all of `samples` behind the last one and, once a second of sound, through to the disk.
  // Throws FileError; what was appended before stays, and nothing of a stretch that was cut off.
  void Append(std::span<const std::int16_t> samples);
  // The samples for somebody who may use them longer than the name exists.
  File Samples() const { return file_.Duplicate(); }
  // Deletes the file. It must not be used any more.
  void Remove() noexcept;

 private:
  RecordingFile(File file, std::uint32_t rateHz, std::int64_t length)
      : file_(std::move(file)), rateHz_(rateHz), lengthSamples_(length) {}

  void CutToLength() noexcept;

  File file_;
  std::uint32_t rateHz_;
  std::int64_t lengthSamples_;
  std::int64_t syncedSamples_ = 0;
};

struct UnfinishedRecording {
  std::string path;
  std::string stamp;  // as it was made with
  std::uint32_t rateHz = 0;
  std::int64_t lengthSamples = 0;
};

// The recordings in `folder` that nobody has open, the oldest first. Empty ones are removed. A
// folder that cannot be read has none.
std::vector<UnfinishedRecording> FindUnfinishedRecordings(const std::string& folder);

// How many seconds of sound the disk of `folder` has room for; nothing when it does not say.
std::optional<double> SecondsOfSpace(const std::string& folder, std::uint32_t rateHz);

}  // namespace cantorix
