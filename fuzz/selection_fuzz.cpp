// selection_fuzz.cpp - a part of any recording saved by itself, natively and as WAV: refused, or
// read back with the samples and labels that a plain count says. In memory and in the disk store.
#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "document/document.h"
#include "document/label.h"
#include "document/native_file.h"
#include "document/sample_store.h"
#include "document/wav_file.h"
#include "fuzz_host.h"
#include "fuzz_input.h"
#include "platform/file_error.h"

namespace {

using namespace cantorix;

constexpr int kTiers = 3;

struct Case {
  std::vector<std::int16_t> samples;
  double rateHz = 0.0;
  std::vector<std::pair<int, Label>> labels;  // tier and label
  double startMs = 0.0;
  double endMs = 0.0;
  bool onDisk = false;
};

double Fraction(FuzzInput& input) { return input.Take<std::uint16_t>() / 65535.0; }

Case CaseIn(FuzzInput input) {
  Case made;
  made.onDisk = input.Below(2) == 1;
  made.rateHz = input.Below(2) == 1 ? std::abs(input.Take<double>()) : 8000.0 * Fraction(input);
  made.startMs = Fraction(input);
  made.endMs = Fraction(input);
  const int labels = input.Below(8);
  for (int i = 0; i < labels; ++i) {
    Label label;
    label.timeMs = Fraction(input);
    const int tier = input.Below(kTiers);
    label.text = input.Text();
    label.text.resize(std::min(label.text.find('\0'), label.text.size()));
    made.labels.emplace_back(tier, label);
  }
  made.samples.resize(1 + input.Take<std::uint16_t>() % 1024);
  for (std::int16_t& sample : made.samples) sample = input.Take<std::int16_t>();
  return made;
}

void Fill(CSonadexDoc& document, const Case& given) {
  CChannel& channel = document.channel();
  channel.sampleRateHz = given.rateHz;
  channel.totalLength = static_cast<double>(given.samples.size());
  channel.totalDurationMs = channel.totalLength * 1000.0 / given.rateHz;
  channel.ShowWholeFile();
  for (int i = 0; i < kTiers; ++i) channel.tiers[static_cast<std::size_t>(i)].inUse = true;
  for (auto [tier, label] : given.labels) {
    label.timeMs *= channel.totalDurationMs;
    channel.AddLabel(tier, label);
  }
  if (given.onDisk) {
    auto store = std::make_unique<SampleStore>(document.host().programDirectory,
                                               document.host().storeCounter);
    store->Append(given.samples);
    document.HoldOnDisk(std::move(store));
  } else {
    SampleBlock block(std::ssize(given.samples));
    std::copy(given.samples.begin(), given.samples.end(), block.samples().begin());
    document.HoldInMemory(std::move(block));
  }
  document.loaded = true;
}

std::vector<std::int16_t> SamplesOf(const CSonadexDoc& document) {
  std::vector<std::int16_t> samples(static_cast<std::size_t>(document.Samples().length()));
  document.Samples().Read(0, samples);
  return samples;
}

std::vector<std::int16_t> Part(const Case& given, double start, double length) {
  const auto first = given.samples.begin() + static_cast<std::ptrdiff_t>(start);
  return {first, std::min(first + static_cast<std::ptrdiff_t>(length), given.samples.end())};
}

void CheckLabels(const CSonadexDoc& document, const CSonadexDoc& back, const NativeRange& range) {
  for (std::size_t i = 0; i < kTiers; ++i) {
    std::vector<Label> expected;
    for (Label label : document.channel().tiers[i].labels) {
      if (label.timeMs < range.start.ms || label.timeMs > range.end.ms) continue;
      label.timeMs -= range.start.ms;
      expected.push_back(label);
    }
    Require(back.channel().tiers[i].labels == expected);
  }
}

bool IsWritten(const std::string& path, const CSonadexDoc& document, const NativeRange& range,
               bool asWave) {
  auto& mutableDocument = const_cast<CSonadexDoc&>(document);
  try {
    if (asWave) {
      ExportWave(mutableDocument, path, SampleRange{range.start.samples, range.end.samples});
    } else {
      SaveNative(mutableDocument, path, range);
    }
    return true;
  } catch (const SaveRefused&) {
    return false;
  }
}

void Check(FuzzHost& host, const Case& given, bool asWave) {
  CSonadexDoc document(host.host);
  Fill(document, given);
  const double durationMs = document.channel().totalDurationMs;
  if (!std::isfinite(durationMs)) return;
  const NativeRange range{document.channel().PointAtTime(given.startMs * durationMs),
                          document.channel().PointAtTime(given.endMs * durationMs)};
  const double length = range.end.samples - range.start.samples;
  const std::string path = host.folder + "/part";
  if (!IsWritten(path, document, range, asWave)) {
    Require(!(length >= 1.0) || !(given.rateHz >= 1.0) || given.rateHz > 4294967295.0);
    return;
  }
  CSonadexDoc back(host.host);
  Require(back.OnOpenDocument(path));
  Require(SamplesOf(back) == Part(given, range.start.samples, length));
  Require(back.channel().sampleRateHz == (asWave ? std::floor(given.rateHz) : given.rateHz));
  if (!asWave) CheckLabels(document, back, range);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static FuzzHost host;
  const Case given = CaseIn({data, size});
  for (const bool asWave : {false, true}) Check(host, given, asWave);
  return 0;
}
