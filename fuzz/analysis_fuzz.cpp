// analysis_fuzz.cpp - every measurement of any samples under any settings record: it ends in a
// result that keeps its word or in one of the refusals that are foreseen. How long one takes and
// how much it holds is the fuzzer's to watch.
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "analysisview/fft_lpc_log.h"
#include "document/document.h"
#include "fuzz_host.h"
#include "fuzz_input.h"
#include "measure/analyses.h"
#include "measure/no_result.h"
#include "measure/wrong_usage.h"
#include "platform/abandon.h"
#include "settings/record.h"
#include "settings/settings.h"

namespace {

using namespace cantorix;

constexpr std::int64_t kMostPerSample = 16;  // entries of a track
constexpr std::int64_t kAlwaysGranted = 1'048'576;

// The defaults with some of the record's fields overwritten by any bits.
DocumentSettings SettingsIn(FuzzInput& input) {
  Settings settings;
  Record record = EncodeRecord(settings);
  for (int changes = input.Below(16); changes > 0; --changes) {
    const Field& field = Fields()[static_cast<std::size_t>(input.Below(256)) % Fields().size()];
    const auto bits = std::as_bytes(input.Bytes(StoredBytes(field.storage)));
    std::copy(bits.begin(), bits.end(), record.begin() + static_cast<std::ptrdiff_t>(field.offset));
  }
  Require(DecodeRecord(record, settings));
  return settings.document;
}

double RateIn(FuzzInput& input) {
  static constexpr std::array kRates{8000.0, 11025.0, 16000.0, 44100.0, 48000.0, 192000.0, 1000.5};
  const auto choice = static_cast<std::size_t>(input.Below(8));
  return choice < kRates.size() ? kRates[choice] : 4.0e5 * input.Take<std::uint16_t>() / 65535.0;
}

// A short pattern, again and again, a little weaker each time.
std::vector<std::int16_t> SamplesIn(FuzzInput& input) {
  std::vector<std::int16_t> samples(1 + input.Take<std::uint16_t>() % 4096);
  std::vector<std::int16_t> pattern;
  while (!input.atEnd() && pattern.size() < samples.size()) {
    pattern.push_back(input.Take<std::int16_t>());
  }
  if (pattern.empty()) pattern.push_back(0);
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const auto turn = static_cast<std::int16_t>(1 + i / pattern.size());
    samples[i] = static_cast<std::int16_t>(pattern[i % pattern.size()] / turn);
  }
  return samples;
}

void Fill(CSonadexDoc& document, FuzzInput& input) {
  document.settings = SettingsIn(input);
  CChannel& channel = document.channel();
  channel.sampleRateHz = RateIn(input);
  if (!(channel.sampleRateHz > 0.0)) channel.sampleRateHz = 1.0;
  const auto samples = SamplesIn(input);
  channel.totalLength = static_cast<double>(samples.size());
  channel.totalDurationMs = channel.totalLength * 1000.0 / channel.sampleRateHz;
  channel.ShowWholeFile();
  SampleBlock block(std::ssize(samples));
  std::copy(samples.begin(), samples.end(), block.samples().begin());
  document.HoldInMemory(std::move(block));
  document.loaded = true;
}

template <typename Measure>
void Attempt(const Measure& measure) {
  try {
    measure();
  } catch (const WrongUsage&) {
  } catch (const NoResult&) {
  } catch (const Abandoned&) {
  }
}

void RequireInProportion(std::int64_t entries, const CSonadexDoc& document) {
  Require(entries <= std::max(kMostPerSample * document.channel().sampleCount(), kAlwaysGranted));
}

// No dialog takes a pre-emphasis above 1; a record may hold one that leaves no number finite.
void RequireLevels(std::span<const double> levelsDb, const CSonadexDoc& document) {
  if (document.settings.spectrogram.preEmphasis > 1.0) return;
  for (const double db : levelsDb) Require(std::isfinite(db) && db >= 0.0);
}

void CheckPitch(CSonadexDoc& document, const MeasureOptions& options) {
  for (const std::int32_t method : {kCepstral, kAutoCorrelation}) {
    document.settings.pitch.method = method;
    Attempt([&] {
      const PitchResult result = MeasurePitch(document, options);
      RequireInProportion(result.count(), document);
      for (const double hz : result.entries()) Require(std::isfinite(hz) && hz >= 0.0);
    });
  }
}

void CheckIntensity(CSonadexDoc& document, const MeasureOptions& options) {
  Attempt([&] {
    const IntensityResult result = MeasureIntensity(document, options);
    RequireInProportion(std::ssize(result.IntensityTrack.levels()), document);
    Require(result.IntensityTrack.size() == document.channel().sampleCount());
    const double last = result.IntensityTrack[result.IntensityTrack.size() - 1];
    Require(!(last > 200.0) || std::isinf(last));
  });
}

void CheckSpectrum(CSonadexDoc& document, const MeasureOptions& options) {
  Attempt([&] {
    CFFTLPCView view(document);
    MeasureSpectrum(
        document, options, [](const std::string&) {}, view);
    const Spectrum& spectrum = view.spectrum();
    RequireLevels(spectrum.fftDb, document);
    RequireLevels(spectrum.lpcDb, document);
    for (std::size_t i = 0; i < kFormants; ++i) {
      Require(std::isfinite(spectrum.formants.frequencyHz[i]));
      Require(std::isfinite(spectrum.formants.bandwidthHz[i]));
    }
    const auto rows = FftLpcEntireFrameEntries("", spectrum, document.settings.logStepHz);
    Require(rows.size() <= spectrum.fftDb.size() + 100'000);
  });
}

void CheckSpectrogram(CSonadexDoc& document, const MeasureOptions& options) {
  Attempt([&] {
    CSpectrogramView view(document);
    MeasureSpectrogram(
        document, options, [](const std::string&) {}, view);
    const Spectrogram& picture = view.spectrogram();
    for (std::int64_t column = 0; column < picture.columns; ++column) {
      RequireLevels(picture.Column(column), document);
    }
    Require(picture.formants.empty() || std::ssize(picture.formants) == picture.columns);
  });
  Attempt([&] {
    CSpectrogramView view(document);
    MeasureFormants(
        document, options, [](const std::string&) {}, view);
    Require(std::ssize(view.spectrogram().formants) == view.spectrogram().columns);
  });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static FuzzHost host;
  host.memory.end = 100'000'000;
  FuzzInput input(data, size);
  MeasureOptions options;
  options.columns = 1 + input.Below(16);
  options.rows = 1 + input.Below(64);
  options.displayPoints = 1 + input.Below(64);
  options.formantColumns = input.Below(2) == 1;
  options.usualLpcOrder = input.Below(2) == 1;
  CSonadexDoc document(host.host);
  Fill(document, input);
  CheckPitch(document, options);
  CheckIntensity(document, options);
  CheckSpectrum(document, options);
  CheckSpectrogram(document, options);
  return 0;
}
