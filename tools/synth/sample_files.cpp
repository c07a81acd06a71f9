// sample_files.cpp - the recording as a document with two tiers, saved like any other.
#include "synth/sample_files.h"

#include <algorithm>
#include <stdexcept>

#include "document/document.h"
#include "document/label.h"
#include "document/native_file.h"
#include "platform/progress.h"
#include "platform/prompts.h"
#include "platform/safe_file.h"
#include "platform/services.h"
#include "synth/sample_recording.h"

namespace cantorix::synth {
namespace {

// Writing a recording from memory asks nobody anything: a prompt would be a fault.
class NoPrompts : public Prompts {
 public:
  void Beep() override { Refuse(); }
  void Message(const std::string&) override { Refuse(); }
  Answer Ask(const std::string&, Buttons) override { Refuse(); }
  std::optional<FileChoice> ChooseFileToOpen(const FileRequest&) override { Refuse(); }
  std::optional<FileChoice> ChooseFileToSave(const FileRequest&) override { Refuse(); }
  std::optional<std::string> ChooseFolder(const std::string&) override { Refuse(); }
  std::optional<int> ChooseChannel(const std::string&, int) override { Refuse(); }
  std::optional<GenericParameters> AskGenericParameters(const GenericParameters&,
                                                        GenericPreview&) override {
    Refuse();
  }

 private:
  [[noreturn]] static void Refuse() { throw std::logic_error("prompt while writing the sample"); }
};

class PlentyOfMemory : public MemoryProbe {
 public:
  bool CanAllocate(std::uint64_t) const override { return true; }
};

Label LabelAt(const TimedText& text, bool line) {
  Label label;
  label.text = text.text;
  label.timeMs = text.ms;
  label.flag = line ? 1 : 0;
  return label;
}

void FillChannel(CChannel& channel, const SampleRecording& recording) {
  channel.channelName = "vowels";
  channel.channelComment = "bits";
  channel.sampleRateHz = recording.rateHz;
  channel.totalLength = static_cast<double>(recording.samples.size());
  channel.totalDurationMs = recording.durationMs();
  Tier& tones = channel.tiers[0];
  Tier& words = channel.tiers[1];
  tones.name = "tones";
  words.name = "words";
  tones.inUse = words.inUse = true;
  for (const TimedText& tone : recording.tones) channel.AddLabel(0, LabelAt(tone, false));
  for (const TimedText& word : recording.words) channel.AddLabel(1, LabelAt(word, true));
  channel.ShowWholeFile();
}

void WriteText(const std::string& path, const std::string& text) {
  ReplaceFile(path, std::as_bytes(std::span(text)));
}

}  // namespace

void WriteSampleFiles(const std::string& folder) {
  const SampleRecording recording = MakeSampleRecording();
  NoPrompts prompts;
  NoProgress progress;
  const PlentyOfMemory memory;
  DocumentHost host{prompts, progress, memory, folder, {}};
  CSonadexDoc document(host);
  document.writesConfiguration = false;
  FillChannel(document.channel(), recording);
  SampleBlock block(static_cast<std::int64_t>(recording.samples.size()));
  std::copy(recording.samples.begin(), recording.samples.end(), block.samples().begin());
  document.HoldInMemory(std::move(block));

  SaveNative(document, folder + "/" + kRecordingFile, std::nullopt);
  WriteText(folder + "/" + kPitchTruthFile, PitchTruthTable(recording));
  WriteText(folder + "/" + kFormantTruthFile, FormantTruthTable(recording));
}

}  // namespace cantorix::synth
