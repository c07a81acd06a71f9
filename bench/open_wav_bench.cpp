// open_wav_bench.cpp - opening an hour of sound beside reading the plain file into fresh memory.
// The counter peakRatio is the largest resident memory of the run over the bytes of the samples.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "document/document.h"
#include "peak_memory.h"
#include "platform/bytes.h"
#include "platform/file.h"
#include "support/test_host.h"

namespace cantorix {
namespace {

constexpr std::uint32_t kRateHz = 44100;
constexpr std::int64_t kFrames = std::int64_t{60} * 60 * kRateHz;
constexpr int kHourMinutes = 61;

struct Layout {
  std::uint16_t channels;
  std::uint16_t bits;

  std::int64_t dataBytes() const { return kFrames * channels * bits / 8; }
};

// An hour of noise as a WAV file, made once for the whole run.
class HourOfSound {
 public:
  explicit HourOfSound(Layout layout)
      : path_(host_.folder / "hour.wav"), bytes_(layout.dataBytes()) {
    File file = File::Create(path_);
    std::array<std::byte, 44> header{};
    const std::span<std::byte> place(header);
    std::memcpy(header.data(), "RIFF\0\0\0\0WAVEfmt ", 16);
    StoreLittle(place, 16, std::uint32_t{16});
    StoreLittle(place, 20, std::uint16_t{1});
    StoreLittle(place, 22, layout.channels);
    StoreLittle(place, 24, kRateHz);
    StoreLittle(place, 32, static_cast<std::uint16_t>(layout.channels * layout.bits / 8));
    StoreLittle(place, 34, layout.bits);
    std::memcpy(header.data() + 36, "data", 4);
    StoreLittle(place, 40, static_cast<std::uint32_t>(bytes_));
    file.Write(0, header);
    std::vector<std::byte> block(std::size_t{1} << 20U);
    std::uint32_t noise = 1;
    for (std::int64_t done = 0; done < bytes_; done += static_cast<std::int64_t>(block.size())) {
      for (auto& byte : block) byte = std::byte((noise = noise * 1664525U + 1013904223U) >> 24U);
      const auto left = std::min<std::int64_t>(bytes_ - done, std::ssize(block));
      file.Write(44 + done, std::span(block).first(static_cast<std::size_t>(left)));
    }
  }

  TestHost& host() { return host_; }
  const std::string& path() const { return path_; }
  std::int64_t bytes() const { return bytes_; }

 private:
  TestHost host_;
  std::string path_;
  std::int64_t bytes_;
};

void ReadPlainFile(benchmark::State& state) {
  HourOfSound sound({1, 16});
  const auto size = static_cast<std::size_t>(sound.bytes());
  for (auto _ : state) {
    const int descriptor = ::open(sound.path().c_str(), O_RDONLY);
    void* memory = std::malloc(size);
    std::size_t got = 0;
    while (got < size) {
      const ssize_t now = ::read(descriptor, static_cast<char*>(memory) + got, size - got);
      if (now <= 0) return state.SkipWithError("the file cannot be read");
      got += static_cast<std::size_t>(now);
    }
    ::close(descriptor);
    std::free(memory);
  }
}
BENCHMARK(ReadPlainFile)->Unit(benchmark::kMillisecond)->UseRealTime();

void Open(benchmark::State& state, Layout layout, int limitMinutes) {
  HourOfSound sound(layout);
  TestHost& host = sound.host();
  host.host.application.memoryMinutes = limitMinutes;
  ForgetPeak();
  for (auto _ : state) {
    if (layout.channels > 1) host.prompts.WillChooseChannel(0);
    auto document = std::make_unique<CSonadexDoc>(host.host);
    if (!document->OnOpenDocument(sound.path())) return state.SkipWithError("it does not open");
    benchmark::DoNotOptimize(document->Samples().length());
  }
  host.prompts.TakeTranscript();
  state.counters["peakRatio"] = PeakBytes() / static_cast<double>(kFrames * 2);
}
BENCHMARK_CAPTURE(Open, mono16, Layout{1, 16}, kHourMinutes)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(Open, mono8, Layout{1, 8}, kHourMinutes)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(Open, mono24, Layout{1, 24}, kHourMinutes)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(Open, stereo16, Layout{2, 16}, kHourMinutes)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(Open, mono16IntoStore, Layout{1, 16}, 0)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
}  // namespace cantorix
