// edits_fuzz.cpp - sequences of edits of samples, labels and tiers against the plain model of
// edits_model.h, in memory and in the disk store; at the end the recording is saved and read back.
#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "document/document.h"
#include "document/label.h"
#include "document/native_file.h"
#include "document/sample_store.h"
#include "edits_model.h"
#include "fuzz_host.h"
#include "fuzz_input.h"
#include "mainview/clipboard.h"
#include "mainview/dialog_answers.h"
#include "mainview/editing.h"
#include "mainview/label_commands.h"
#include "mainview/quiet_view.h"
#include "mainview/view_commands.h"
#include "platform/abandon.h"
#include "settings/settings.h"

namespace {

using namespace cantorix;
using namespace cantorix::edits;

constexpr std::size_t kMostSamples = 4000;
constexpr int kMostEdits = 64;

class TierDialogs : public QuietDialogs {
 public:
  std::optional<TierSetups> AskTiers(const TierSetups& preset) override {
    TierSetups setups = preset;
    setups[turned].inUse = !setups[turned].inUse;
    return setups;
  }

  std::size_t turned = 0;
};

class Measurer : public TextMeasurer {
 public:
  PixelSize Measure(const FontDescription&, std::string_view text) const override {
    return {static_cast<std::int32_t>(text.size()), 10};
  }
};

class Trial {
 public:
  Trial(FuzzHost& host, FuzzInput input, bool onDisk)
      : host_(host), input_(input), document_(host.host) {
    Fill(onDisk);
    view_.emplace(
        document_,
        ViewServices{clipboard_, host.folder + "/", measurer_, window_, window_, dialogs_, {}});
    view_->LayOut({400, 300});
    view_->FollowStretch();
  }

  void Run() {
    for (int edits = 0; edits < kMostEdits && !input_.atEnd(); ++edits) {
      if (model_.now.samples.size() > kMostSamples) break;
      Step();
      Compare(document_);
      Require(view_->undoAvailable == model_.before.has_value());
      Require(view_->selectionShown() == model_.selection.has_value());
    }
    SaveAndReadBack();
  }

 private:
  void Fill(bool onDisk) {
    model_.onDisk = onDisk;
    model_.reference = static_cast<std::int16_t>(input_.Below(256) - 128);
    model_.now.samples.resize(1 + input_.Take<std::uint8_t>());
    for (std::int16_t& sample : model_.now.samples) {
      sample = static_cast<std::int16_t>(input_.Below(256) * 256 - 32768);
    }
    CChannel& channel = document_.channel();
    channel.sampleRateHz = kRateHz;
    channel.totalLength = static_cast<double>(model_.now.samples.size());
    channel.totalDurationMs = channel.totalLength * kMsPerSample;
    channel.referenceLevel = model_.reference;
    channel.ShowWholeFile();
    if (onDisk) {
      auto store = std::make_unique<SampleStore>(host_.folder, host_.host.storeCounter);
      store->Append(model_.now.samples);
      document_.HoldOnDisk(std::move(store));
    } else {
      SampleBlock block(std::ssize(model_.now.samples));
      std::copy(model_.now.samples.begin(), model_.now.samples.end(), block.samples().begin());
      document_.HoldInMemory(std::move(block));
    }
    document_.loaded = true;
  }

  std::size_t Place() { return input_.Take<std::uint16_t>() % (model_.now.samples.size() + 1); }
  double Ms() { return static_cast<double>(Place()) * kMsPerSample; }
  std::size_t Tier() { return static_cast<std::size_t>(input_.Below(kTiers)); }

  // A label of the tier, if it has any.
  std::optional<std::size_t> LabelOf(std::size_t tier) {
    const std::size_t count = model_.now.tiers[tier].labels.size();
    const std::size_t wanted = input_.Take<std::uint8_t>();
    return count == 0 ? std::nullopt : std::optional(wanted % count);
  }

  template <typename Command>
  void Do(const Command& command) {
    try {
      command();
    } catch (const Abandoned&) {
    }
  }

  void Step() {
    switch (input_.Below(13)) {
      case 0:
        return Select();
      case 1:
        return Mark();
      case 2:
        return Both([this] { CopySelection(*view_); }, [this] { model_.Copy(); });
      case 3:
        return Both([this] { CutSelection(*view_); }, [this] { model_.Cut(); });
      case 4:
        return Both([this] { Paste(*view_); }, [this] { model_.Paste(); });
      case 5:
        return Both([this] { ClearToReference(*view_); }, [this] { model_.Clear(); });
      case 6:
        return Gain();
      case 7:
        return Both([this] { Smooth(*view_); }, [this] { model_.Smooth(); });
      case 8:
        if (!model_.before) return;
        return Both([this] { Undo(*view_); }, [this] { model_.Undo(); });
      case 9:
        return Add();
      case 10:
        return Delete();
      case 11:
        return Move();
      default:
        return TurnTier();
    }
  }

  template <typename Command, typename Plain>
  void Both(const Command& command, const Plain& plain) {
    plain();
    Do(command);
  }

  void Select() {
    const std::size_t a = Place();
    const std::size_t b = Place();
    SelectSpan(*view_, static_cast<double>(a) * kMsPerSample,
               static_cast<double>(b) * kMsPerSample);
    model_.selection = Span{std::min(a, b), std::max(a, b)};
    model_.cursor = a;
  }

  void Mark() {
    model_.cursor = Place();
    PlaceMarker(*view_, static_cast<double>(model_.cursor) * kMsPerSample);
    model_.selection.reset();
  }

  void Gain() {
    const int percent = input_.Below(256) - 128;
    const int moves = input_.Take<std::int16_t>();
    Both(
        [&] {
          ApplyReferenceAndGain(*view_, {double(percent), double(moves)});
        },
        [&] { model_.Gain(percent, moves); });
  }

  void Add() {
    Label label;
    label.timeMs = Ms();
    const std::size_t tier = Tier();
    label.text = std::string(1, static_cast<char>('a' + input_.Below(26)));
    model_.Keep(false);
    model_.now.tiers[tier].labels.push_back({label.timeMs, label.text});
    Do([&] { AddLabelToTier(*view_, static_cast<int>(tier), label); });
  }

  void Delete() {
    const std::size_t tier = Tier();
    const auto index = LabelOf(tier);
    if (!index) return;
    model_.Keep(false);
    auto& labels = model_.now.tiers[tier].labels;
    labels.erase(labels.begin() + static_cast<std::ptrdiff_t>(*index));
    Do([&] { DeleteLabel(*view_, static_cast<int>(tier), static_cast<int>(*index)); });
  }

  void Move() {
    const std::size_t tier = Tier();
    const auto index = LabelOf(tier);
    const double ms = Ms();
    if (!index) return;
    model_.Keep(false);
    model_.now.tiers[tier].labels[*index].ms = ms;
    Do([&] { MoveLabel(*view_, static_cast<int>(tier), static_cast<int>(*index), ms, 0.5); });
  }

  void TurnTier() {
    dialogs_.turned = Tier();
    bool& inUse = model_.now.tiers[dialogs_.turned].inUse;
    inUse = !inUse;
    Do([this] { SetTiers(*view_); });
  }

  void Compare(const CSonadexDoc& document) const {
    const CChannel& channel = document.channel();
    const auto count = std::ssize(model_.now.samples);
    Require(channel.sampleCount() == count && document.Samples().length() == count);
    Require(channel.totalDurationMs == static_cast<double>(count) * kMsPerSample);
    std::vector<std::int16_t> samples(model_.now.samples.size());
    document.Samples().Read(0, samples);
    Require(samples == model_.now.samples);
    for (std::size_t t = 0; t < kTiers; ++t) {
      const cantorix::Tier& tier = channel.tiers[t];
      Require(tier.inUse == model_.now.tiers[t].inUse);
      RequireLabels(tier, model_.now.tiers[t]);
    }
  }

  static void RequireLabels(const cantorix::Tier& tier, const ModelTier& expected) {
    std::vector<ModelLabel> labels;
    for (const Label& label : tier.labels) labels.push_back({label.timeMs, label.text});
    Require(labels == expected.labels);
  }

  void SaveAndReadBack() {
    const std::string path = host_.folder + "/edited.qrv";
    SaveNative(document_, path, std::nullopt);
    CSonadexDoc back(host_.host);
    Require(back.OnOpenDocument(path));
    std::size_t slot = 0;
    for (ModelTier tier : model_.now.tiers) {
      if (!tier.inUse) continue;
      // A cut moves no label of a tier that is not shown; those beyond the end are dropped, and
      // told.
      std::erase_if(tier.labels, [&](const ModelLabel& label) {
        return label.ms > document_.channel().totalDurationMs;
      });
      RequireLabels(back.channel().tiers[slot++], tier);
    }
    std::vector<std::int16_t> samples(model_.now.samples.size());
    Require(back.Samples().length() == std::ssize(samples));
    back.Samples().Read(0, samples);
    Require(samples == model_.now.samples);
  }

  FuzzHost& host_;
  FuzzInput input_;
  Model model_;
  CSonadexDoc document_;
  Clipboard clipboard_;
  Measurer measurer_;
  QuietWindow window_;
  TierDialogs dialogs_;
  std::optional<CSonadexView> view_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static FuzzHost host;
  host.memory.end = 1'000'000;
  for (const bool onDisk : {false, true}) Trial(host, {data, size}, onDisk).Run();
  return 0;
}
