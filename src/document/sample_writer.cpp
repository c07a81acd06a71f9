// sample_writer.cpp - copying samples out in blocks.
#include "document/sample_writer.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "document/sample_bytes.h"

namespace cantorix {
namespace {

constexpr std::int64_t kLargePiece = std::int64_t{1} << 20;  // samples

void WriteZeros(const ByteSink& sink, std::int64_t count) {
  const std::vector<std::byte> zeros(
      static_cast<std::size_t>(std::min(count, kLargePiece) * std::int64_t{2}));
  while (count > 0) {
    const std::int64_t now = std::min(count, kLargePiece);
    sink(std::span(zeros).first(static_cast<std::size_t>(now) * 2));
    count -= now;
  }
}

// Whether the sink has taken the samples out of the file that holds them.
bool AreTakenFromFile(const ByteSink& sink, const SampleSource& source, std::int64_t start,
                      std::int64_t count) {
  const auto stretch = source.InFile(start, count);
  return stretch && sink.TakeFrom(*stretch, count * std::int64_t{sizeof(std::int16_t)});
}

}  // namespace

void WriteSamples(const ByteSink& sink, const CSonadexDoc& document, std::int64_t start,
                  std::int64_t count, Progress& progress) {
  const SampleSource& source = document.Samples();
  const bool onDisk = document.samplesOnDisk();
  const std::int64_t there = std::clamp<std::int64_t>(source.length() - start, 0, count);
  const std::int64_t block =
      onDisk ? OneSecondOfSamples(document.channel().sampleRateHz) : kLargePiece;
  std::optional<ProgressScope> scope;
  if (onDisk) {
    scope.emplace(progress, kFileStatusText, static_cast<double>(count));
  }
  std::vector<std::int16_t> scratch;
  std::vector<std::int16_t> swapped;
  for (std::int64_t done = 0; done < there; done += block) {
    if (scope) scope->StepOrAbandon(static_cast<double>(done));
    const std::int64_t some = std::min(block, there - done);
    if (AreTakenFromFile(sink, source, start + done, some)) continue;
    sink(LittleBytes(source.View(start + done, some, scratch), swapped));
  }
  WriteZeros(sink, count - there);
}

}  // namespace cantorix
