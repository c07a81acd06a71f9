// markers.cpp - cue points and marks.
#include "document/readers/markers.h"

#include <algorithm>
#include <utility>

#include "document/document.h"
#include "document/file_window.h"
#include "document/label.h"
#include "document/readers/chunks.h"
#include "document/riff.h"

namespace cantorix {
namespace {

constexpr std::int64_t kFirstChunk = 12;
constexpr std::int64_t kCueBytes = 24;
constexpr std::size_t kCueFrame = 20;
constexpr std::int64_t kMostTextBytes = kMaxLabelBytes;

// `bytes` of text at `offset`, as many as a label holds, up to the first NUL.
std::string TextAt(FileWindow& window, std::int64_t offset, std::int64_t bytes) {
  const auto width = static_cast<std::size_t>(std::clamp<std::int64_t>(bytes, 0, kMostTextBytes));
  return LoadText(window.At(offset, width), 0, width);
}

// A chunk says how many records of at least `least` bytes follow; so many fit.
std::int64_t CountThatFits(std::int64_t count, std::int64_t bytes, std::int64_t least) {
  return std::clamp<std::int64_t>(count, 0, std::max<std::int64_t>(bytes, 0) / least);
}

std::vector<Marker> CuesOf(const File& file, const FileChunk& chunk) {
  FileWindow window(file);
  const std::int64_t claimed = LoadLittle<std::uint32_t>(window.At(chunk.content, 4), 0);
  std::vector<Marker> cues;
  for (std::int64_t i = 0; i < CountThatFits(claimed, chunk.bytes - 4, kCueBytes); ++i) {
    const auto cue = window.At(chunk.content + 4 + i * kCueBytes, kCueBytes);
    cues.push_back({LoadLittle<std::uint32_t>(cue, 0), LoadLittle<std::uint32_t>(cue, kCueFrame)});
  }
  return cues;
}

using Texts = std::map<std::int64_t, std::string>;  // by the number of the marker

void TakeTexts(const File& file, const FileChunk& list, Texts& texts) {
  FileWindow window(file);
  if (list.bytes < 4 || !HasText(window.At(list.content, 4), 0, "adtl")) return;
  ChunkWalk walk(file, list.content + 4, list.content + list.bytes, ByteOrder::kLowFirst);
  while (const auto chunk = walk.Next()) {
    if (chunk->id != "labl" || chunk->bytes < 4) continue;
    const std::int64_t id = LoadLittle<std::uint32_t>(window.At(chunk->content, 4), 0);
    texts.emplace(id, TextAt(window, chunk->content + 4, chunk->bytes - 4));
  }
}

}  // namespace

std::vector<Marker> WaveMarkers(const File& file, const RiffHeader& header) {
  std::vector<Marker> markers;
  Texts texts;
  ChunkWalk walk(file, kFirstChunk, file.Size(), ByteOrder::kLowFirst);
  while (const auto chunk = walk.Next()) {
    if (chunk->content == header.dataOffset) {
      // Its length may stand elsewhere.
      const auto bytes = static_cast<std::int64_t>(header.dataLength);
      walk.GoOnAt(chunk->content + bytes + (bytes & 1));
    } else if (chunk->id == "cue ") {
      markers = CuesOf(file, *chunk);
    } else if (chunk->id == "LIST") {
      TakeTexts(file, *chunk, texts);
    }
  }
  for (Marker& marker : markers) {
    if (const auto text = texts.find(marker.id); text != texts.end()) marker.text = text->second;
  }
  return markers;
}

std::vector<Marker> AiffMarkers(const File& file, const FileChunk& chunk) {
  constexpr ByteOrder kOrder = ByteOrder::kHighFirst;
  FileWindow window(file);
  const std::int64_t end = chunk.content + chunk.bytes;
  const int count = LoadIn<std::uint16_t>(kOrder, window.At(chunk.content, 2), 0);
  std::vector<Marker> markers;
  std::int64_t at = chunk.content + 2;
  for (int i = 0; i < count && at + 7 <= end; ++i) {
    const auto mark = window.At(at, 7);
    Marker marker{LoadIn<std::uint16_t>(kOrder, mark, 0), LoadIn<std::uint32_t>(kOrder, mark, 2)};
    const auto bytes = std::to_integer<std::int64_t>(mark[6]);
    marker.text = TextAt(window, at + 7, std::min(bytes, end - at - 7));
    markers.push_back(std::move(marker));
    at += 6 + (bytes + 2) / 2 * 2;  // the text with its length fills an even number of bytes
  }
  return markers;
}

void SetMarkerLabels(CSonadexDoc& document, std::vector<Marker> markers) {
  CChannel& channel = document.channel();
  std::erase_if(markers, [&](const Marker& marker) {
    return static_cast<double>(marker.frame) > channel.totalLength;
  });
  if (markers.empty()) return;
  std::sort(markers.begin(), markers.end(), [](const Marker& a, const Marker& b) {
    return std::pair(a.frame, a.id) < std::pair(b.frame, b.id);
  });
  for (const Marker& marker : markers) {
    Label label;
    label.text = marker.text.empty() ? std::to_string(marker.id) : marker.text;
    label.timeMs = static_cast<double>(marker.frame) * channel.msPerSample();
    label.timeMs = std::min(label.timeMs, channel.totalDurationMs);
    channel.AddLabel(0, std::move(label));
  }
  channel.tiers[0].inUse = true;
}

}  // namespace cantorix
