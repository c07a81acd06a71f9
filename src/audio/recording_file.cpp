// recording_file.cpp - making, filling and finding recording files.
#include "audio/recording_file.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <filesystem>
#include <string_view>
#include <tuple>

#include "platform/claimed_file.h"
#include "platform/file_error.h"
#include "platform/leftovers.h"

namespace cantorix {
namespace {

constexpr std::string_view kPrefix = "Recording-";
constexpr std::string_view kRateUnit = "Hz-";
constexpr std::string_view kSuffix = ".raw";
constexpr std::size_t kStampLength = 15;  // "20261121-143005"

// Takes a whole number off the front of `text`; nothing when there is none.
std::optional<std::uint32_t> TakeNumber(std::string_view& text) {
  std::uint32_t number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
  return number;
}

bool Take(std::string_view& text, std::string_view prefix) {
  if (!text.starts_with(prefix)) return false;
  text.remove_prefix(prefix.size());
  return true;
}

struct NameParts {
  std::string stamp;
  std::uint32_t rateHz;
};

std::optional<NameParts> ReadName(std::string_view name) {
  if (!Take(name, kPrefix) || name.size() < kStampLength) return std::nullopt;
  NameParts parts{std::string(name.substr(0, kStampLength)), 0};
  name.remove_prefix(kStampLength);
  if (!Take(name, "-")) return std::nullopt;
  const auto rateHz = TakeNumber(name);
  if (!rateHz || *rateHz == 0 || !Take(name, kRateUnit)) return std::nullopt;
  if (!TakeNumber(name) || name != kSuffix) return std::nullopt;
  parts.rateHz = *rateHz;
  return parts;
}

}  // namespace

std::unique_ptr<RecordingFile> RecordingFile::Create(const std::string& folder,
                                                     const std::string& stamp,
                                                     std::uint32_t rateHz) {
  const std::string start = folder + "/" + std::string(kPrefix) + stamp + "-" +
                            std::to_string(rateHz) + std::string(kRateUnit);
  int number = 0;
  const auto nextPath = [&] { return start + std::to_string(++number) + std::string(kSuffix); };
  return std::unique_ptr<RecordingFile>(
      new RecordingFile(ClaimFile(nextPath, Leftover::kKept), rateHz, 0));
}

std::unique_ptr<RecordingFile> RecordingFile::Reopen(const std::string& path) {
  const auto parts = ReadName(std::filesystem::path(path).filename().native());
  if (!parts) throw FileError("It is no recording.");
  File file = File::OpenTemporary(path);
  const std::int64_t length = file.Size() / 2;
  return std::unique_ptr<RecordingFile>(new RecordingFile(std::move(file), parts->rateHz, length));
}

void RecordingFile::Append(std::span<const std::int16_t> samples) {
  std::vector<std::int16_t> swapped;
  if constexpr (std::endian::native == std::endian::big) {
    swapped.assign(samples.begin(), samples.end());
    SwapFromLittle(swapped);
    samples = swapped;
  }
  try {
    file_.Write(lengthSamples_ * 2, std::as_bytes(samples));
  } catch (const FileError&) {
    CutToLength();
    throw;
  }
  lengthSamples_ += static_cast<std::int64_t>(samples.size());
  if (lengthSamples_ - syncedSamples_ < rateHz_) return;
  file_.Sync();
  syncedSamples_ = lengthSamples_;
}

void RecordingFile::CutToLength() noexcept {
  try {
    file_.Resize(lengthSamples_ * 2);
  } catch (const FileError&) {
    // Then the length that readers go by is the one kept here.
  }
}

void RecordingFile::Remove() noexcept {
  DeleteClaimed(file_);
  file_ = File();
}

std::vector<UnfinishedRecording> FindUnfinishedRecordings(const std::string& folder) {
  std::vector<UnfinishedRecording> found;
  for (const std::string& name : NamesInFolder(folder)) {
    const auto parts = ReadName(name);
    if (!parts) continue;
    try {
      std::string path = folder;
      if (!path.ends_with('/')) path += '/';
      const auto file = RecordingFile::Reopen(path += name);
      if (file->lengthSamples() > 0) {
        found.push_back({file->path(), parts->stamp, parts->rateHz, file->lengthSamples()});
      } else {
        file->Remove();
      }
    } catch (const FileError&) {
      continue;  // somebody is recording it, or it is not ours to read
    }
  }
  std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) {
    return std::tie(a.stamp, a.path) < std::tie(b.stamp, b.path);
  });
  return found;
}

std::optional<double> SecondsOfSpace(const std::string& folder, std::uint32_t rateHz) {
  std::error_code failed;
  const auto space = std::filesystem::space(folder, failed);
  if (failed || rateHz == 0) return std::nullopt;
  return static_cast<double>(space.available) / (2.0 * rateHz);
}

}  // namespace cantorix
