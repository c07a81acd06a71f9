// bounds_test.cpp - a settings record from a stranger, and pipes that give nothing: neither holds
// the program up.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <functional>

#include "analysisview/fft_lpc_log.h"
#include "batch/command.h"
#include "measure/analyses.h"
#include "measure/no_result.h"
#include "measure/wrong_usage.h"
#include "platform/abandon.h"
#include "platform/bytes.h"
#include "platform/descriptor.h"
#include "platform/numbers.h"
#include "platform/quiet_prompts.h"
#include "settings/record.h"
#include "support/temporary_folder.h"
#include "support/test_host.h"

namespace cantorix::batch {
namespace {

constexpr double kRateHz = 48000.0;
constexpr std::size_t kSamples = 6000;

// The record with one of its numbers replaced.
DocumentSettings With(const Field& field, double value) {
  Settings settings;
  Record record = EncodeRecord(settings);
  if (field.storage == Storage::kDouble) {
    StoreLittle(std::span<std::byte>(record), field.offset, value);
  } else {
    StoreLittle(std::span<std::byte>(record), field.offset, TruncateToInt32(value));
  }
  EXPECT_TRUE(DecodeRecord(record, settings));
  return settings.document;
}

void Fill(CSonadexDoc& document) {
  SampleBlock block(kSamples);
  std::uint32_t noise = 1;
  for (std::int16_t& sample : block.samples()) {
    noise = noise * 1664525U + 1013904223U;
    sample = static_cast<std::int16_t>(noise >> 18U);
  }
  document.HoldInMemory(std::move(block));
  CChannel& channel = document.channel();
  channel.sampleRateHz = kRateHz;
  channel.totalLength = kSamples;
  channel.totalDurationMs = kSamples * 1000.0 / kRateHz;
  document.loaded = true;
}

// Each gives the number of its frames.
std::vector<std::function<std::int64_t()>> MeasuresOf(CSonadexDoc& document) {
  MeasureOptions options;
  options.columns = options.rows = 2;
  options.displayPoints = 8;
  options.atMs = 0.0;
  const auto pitch = [&document, options](std::int32_t method) {
    document.settings.pitch.method = method;
    return MeasurePitch(document, options).count();
  };
  const Remark unheard = [](const std::string&) {};
  return {[=] { return pitch(kCepstral); },
          [=] { return pitch(kAutoCorrelation); },
          [&document, options] {
            return std::ssize(MeasureIntensity(document, options).IntensityTrack.levels());
          },
          [&document, options, unheard] {
            CFFTLPCView view(document);
            MeasureSpectrum(document, options, unheard, view);
            return std::int64_t{1};
          },
          [&document, options, unheard] {
            CSpectrogramView view(document);
            MeasureSpectrogram(document, options, unheard, view);
            return view.spectrogram().columns;
          },
          [&document, options, unheard] {
            CSpectrogramView view(document);
            MeasureFormants(document, options, unheard, view);
            return view.spectrogram().columns;
          }};
}

// Seconds for each frame of the slowest measurement.
double SlowestFrame(CSonadexDoc& document) {
  double slowest = 0.0;
  for (const auto& measure : MeasuresOf(document)) {
    const auto start = std::chrono::steady_clock::now();
    std::int64_t frames = 1;
    try {
      frames = std::max<std::int64_t>(measure(), 1);
    } catch (const WrongUsage&) {  // and that is as good
    } catch (const NoResult&) {
    } catch (const Abandoned&) {
    }
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    slowest = std::max(slowest, took.count() / static_cast<double>(frames));
  }
  return slowest;
}

TEST(SettingsOfAStranger, HoldNoMeasurementUp) {
  TestHost host;
  QuietPrompts quiet;
  const DocumentHost around{.prompts = quiet,
                            .progress = host.progress,
                            .memory = host.memory,
                            .programDirectory = host.folder.path(),
                            .application = {},
                            .documentsWriteConfiguration = false};
  for (const Field& field : Fields()) {
    if (field.storage == Storage::kText || field.group == "application") continue;
    for (const double value : {-1.0, 0.5, 400.0, 100000.0, 1e300}) {
      DocumentHost own = around;
      CSonadexDoc document(own);
      document.settings = With(field, value);
      Fill(document);
      EXPECT_LT(SlowestFrame(document), 1.0) << field.group << "." << field.name << " = " << value;
    }
  }
}

TEST(SettingsOfAStranger, AskForNoMoreRowsThanSoundHas) {
  Spectrum spectrum;
  spectrum.fftDb = spectrum.lpcDb = {1.0, 2.0};
  spectrum.maxHz = 2e9;
  EXPECT_LE(FftLpcEntireFrameEntries("", spectrum, 1).size(), 250000U);
}

TEST(HangingPipe, IsLeftByAnInterrupt) {
  const TemporaryFolder folder;
  PutFile(folder / "ten.wav", Wave({1, 2, 3, 4}, 1000));
  const std::string pipe = folder / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  const std::string unread = folder / "unread";
  ASSERT_EQ(::mkfifo(unread.c_str(), 0600), 0);
  // Somebody holds it open, and gives the beginning of a recording at most.
  const Descriptor holder(::open(pipe.c_str(), O_RDWR | O_CLOEXEC));
  const struct {
    std::string given;
    Words words;
  } rows[] = {
      {"", {"info", pipe}},
      {Wave({1, 2, 3, 4}, 1000).substr(0, 46), {"info", pipe}},
      {"", {"convert", pipe, folder / "out.wav"}},
      {"", {"convert", folder / "ten.wav", unread, "--format", "wav"}},
  };
  for (const auto& row : rows) {
    ASSERT_EQ(::write(holder.number(), row.given.data(), row.given.size()), std::ssize(row.given));
    const Words interrupted{"--foreground", "--preserve-status",   "-k", "5", "-s", "INT",
                            "0.7",          CANTORIX_BATCH_PROGRAM};
    const CommandResult result = RunBatch(interrupted + row.words, {.program = "/usr/bin/timeout"});
    EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(row.words) << result.err;
    EXPECT_NE(result.err.find("interrupted"), std::string::npos) << result.err;
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
  }
}

}  // namespace
}  // namespace cantorix::batch
