// open_fuzz.cpp - the whole way of a recording: any bytes are opened by their content, under any
// answers to the dialogs, into memory and into the disk store, saved, exported, and opened again.
// Every way there is the same recording. The last bytes of the input are the answers, so that a
// recording is an input as it stands.
#include <array>
#include <cmath>
#include <fstream>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "document/document.h"
#include "document/label.h"
#include "document/native_file.h"
#include "document/wav_file.h"
#include "fuzz_host.h"
#include "fuzz_input.h"
#include "platform/file_error.h"

namespace {

using namespace cantorix;

constexpr std::size_t kAnswerBytes = 4;
// A compressed recording may say that it has many more samples than it gives.
constexpr std::uint64_t kMemoryBytes = std::uint64_t{1} << 29U;

struct Answers {
  int channel = 0;
  std::optional<GenericParameters> generic;
  std::string name;
};

Answers AnswersIn(FuzzInput input) {
  static constexpr std::array kNames{"/input", "/input.qrv", "/input.WAV", "/input.mp3"};
  Answers answers;
  answers.channel = input.Below(4);
  const auto flags = static_cast<unsigned>(input.Below(256));
  answers.name = kNames[flags / 16 % kNames.size()];
  const std::int32_t headerBytes = input.Below(128);
  const std::int32_t rateHz = 100 * input.Below(256) + 1;
  if (flags % 2 == 0) return answers;
  answers.generic = {.headerBytes = headerBytes,
                     .rateHz = rateHz,
                     .sixteenBit = flags / 2 % 2 == 1,
                     .highByteFirst = flags / 4 % 2 == 1,
                     .binary = flags / 8 % 2 == 1};
  return answers;
}

class AnsweringPrompts : public QuietPrompts {
 public:
  Answer Ask(const std::string&, Buttons) override {
    return answers.generic ? Answer::kOk : Answer::kCancel;
  }
  std::optional<int> ChooseChannel(const std::string&, int count) override {
    return answers.channel % count;
  }
  std::optional<GenericParameters> AskGenericParameters(const GenericParameters&,
                                                        GenericPreview& preview) override {
    preview.Try(*answers.generic, 16);
    return answers.generic;
  }

  Answers answers;
};

// What a recording is, wherever it is held.
struct Recording {
  std::vector<std::int16_t> samples;
  double rateHz = 0.0;
  double durationMs = 0.0;
  std::vector<std::pair<std::string, std::vector<Label>>> tiers;  // those in use

  bool operator==(const Recording&) const = default;
};

Recording RecordingIn(const CSonadexDoc& document) {
  const CChannel& channel = document.channel();
  Require(document.loaded && !document.formatName.empty());
  Require(document.Samples().length() == channel.sampleCount());
  Recording recording;
  recording.samples.resize(static_cast<std::size_t>(channel.sampleCount()));
  document.Samples().Read(0, recording.samples);
  recording.rateHz = channel.sampleRateHz;
  recording.durationMs = channel.totalDurationMs;
  for (const Tier& tier : channel.tiers) {
    if (tier.inUse) recording.tiers.emplace_back(tier.name, tier.labels);
  }
  return recording;
}

void RequireSame(const Recording& a, const Recording& b) {
  Require(a.samples == b.samples);
  Require(a.rateHz == b.rateHz);
  Require(a.durationMs == b.durationMs);
  Require(a.tiers == b.tiers);
}

class Opening {
 public:
  Opening() { host_.application.memoryMinutes = std::numeric_limits<std::int32_t>::max(); }

  std::optional<Recording> Open(const std::string& path, bool inMemory) {
    surroundings_.memory.end = inMemory ? kMemoryBytes : 0;
    CSonadexDoc document(host_);
    if (!document.OnOpenDocument(path)) {
      Require(!document.openFailure.reason.empty() || document.openFailure.cancelled);
      return std::nullopt;
    }
    Require(document.samplesOnDisk() || inMemory);
    const Recording recording = RecordingIn(document);
    RequireItComesBack(document, recording);
    return recording;
  }

  const std::string& folder() const { return surroundings_.folder; }
  AnsweringPrompts prompts;

 private:
  Recording Again(const std::string& path) {
    CSonadexDoc document(host_);
    Require(document.OnOpenDocument(path));
    return RecordingIn(document);
  }

  void RequireItComesBack(CSonadexDoc& document, const Recording& recording) {
    const std::string saved = folder() + "/saved.qrv";
    SaveNative(document, saved, std::nullopt);
    RequireSame(Again(saved), recording);
    const std::string exported = folder() + "/exported.wav";
    try {
      ExportWave(document, exported, std::nullopt);
    } catch (const FileError&) {
      Require(recording.rateHz < 1.0 || recording.samples.empty());
      return;
    }
    const Recording wave = Again(exported);
    Require(wave.samples == recording.samples && wave.rateHz == std::floor(recording.rateHz));
  }

  FuzzHost surroundings_;
  DocumentHost host_{.prompts = prompts,
                     .progress = surroundings_.progress,
                     .memory = surroundings_.memory,
                     .programDirectory = surroundings_.folder,
                     .application = {},
                     .documentsWriteConfiguration = false};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Opening opening;
  const std::size_t content = size > kAnswerBytes ? size - kAnswerBytes : 0;
  opening.prompts.answers = AnswersIn({data + content, size - content});
  const std::string path = opening.folder() + opening.prompts.answers.name;
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  const auto inMemory = opening.Open(path, true);
  Require(opening.Open(path, false) == inMemory);
  return 0;
}
