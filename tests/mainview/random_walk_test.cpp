// random_walk_test.cpp - 20,000 random commands over three documents against a small model that
// knows nothing of the program: samples, length, labels in their order, clipboard, undo and what is
// enabled. Fractional selections are the rule, whole ones the exception.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "document/label.h"
#include "mainview/commands.h"
#include "mainview/label_commands.h"
#include "mainview/view_commands.h"
#include "recording_model.h"
#include "view_fixture.h"

namespace cantorix {
namespace {

constexpr std::array kTiersInUse{0, 3};

struct ModelClipboard {
  bool full = false;
  double rateHz = 0.0;
  Recording content;
};

// One document: the program's and the model's side by side.
struct Subject {
  Subject(ViewWorld& world, double rate, const Samples& samples)
      : program(world, samples, rate), rateHz(rate) {
    for (const int tier : kTiersInUse) {
      program.channel().tiers[static_cast<std::size_t>(tier)].inUse = true;
    }
    now.samples = samples;
    now.length = static_cast<double>(samples.size());
    now.ms = now.length * 1000.0 / rateHz;
  }

  ViewedRecording program;
  double rateHz;
  Recording now;
  Recording before;  // what an undo brings back
  bool undo = false;
  bool marker = false;
  bool selection = false;
};

Samples Saw(std::size_t length) {
  Samples samples(length);
  for (std::size_t i = 0; i < length; ++i) samples[i] = static_cast<std::int16_t>(i * 37 % 20011);
  return samples;
}

class Walk {
 public:
  explicit Walk(std::uint32_t seed) : random_(seed) {
    subjects_.push_back(std::make_unique<Subject>(world_, 1000.0, Saw(900)));
    subjects_.push_back(std::make_unique<Subject>(world_, 1000.0, Saw(2500)));
    subjects_.push_back(std::make_unique<Subject>(world_, 8000.0, Saw(4000)));
  }

  void Step() {
    Subject& subject = *subjects_[Below(subjects_.size())];
    switch (Below(16)) {
      case 0:
      case 1:
      case 2:
        return Select(subject);
      case 3:
        return Mark(subject);
      case 4:
        return Cut(subject);
      case 5:
        return Copy(subject);
      case 6:
      case 7:
        return Paste(subject);
      case 8:
        return Clear(subject);
      case 9:
        return Smooth(subject);
      case 10:
        return Undo(subject);
      case 11:
        return AddLabel(subject);
      case 12:
        return MoveLabel(subject);
      case 13:
        return EditLabel(subject);
      case 14:
        return DeleteLabel(subject);
      default:
        return Zoom(subject);
    }
  }

  // Compares every document, whichever the step was on.
  void Compare() {
    for (const auto& subject : subjects_) CompareOne(*subject);
    world_.test.prompts.TakeTranscript();
  }

 private:
  std::size_t Below(std::size_t bound) { return random_() % bound; }
  double Fraction() { return static_cast<double>(random_() % 1000003) / 1000003.0; }
  // A time in the recording: often its ends, sometimes a whole sample.
  double SomeMs(const Subject& subject) {
    const double ms = subject.program.document.channel().totalDurationMs;
    switch (Below(8)) {
      case 0:
        return 0.0;
      case 1:
        return ms;
      case 2:
        return std::floor(ms * Fraction());
      default:
        return ms * Fraction();
    }
  }

  void Select(Subject& subject) {
    if (Below(12) == 0) {
      RunCommand(subject.program.view,
                 Below(2) == 0 ? Command::kSelectAll : Command::kSelectWindow);
    } else {
      const double startMs = SomeMs(subject);
      // Short ones, so that the recordings neither die out nor grow without end.
      const bool isLong = subject.now.length > 6000.0 || Below(6) == 0;
      SelectSpan(subject.program.view, startMs,
                 isLong ? SomeMs(subject) : startMs + 200.0 * Fraction());
    }
    subject.selection = true;
    subject.marker = false;
  }

  void Mark(Subject& subject) {
    PlaceMarker(subject.program.view, SomeMs(subject));
    subject.marker = true;
    subject.selection = false;
  }

  static Span SelectionOf(const Subject& subject) {
    const CChannel& channel = subject.program.document.channel();
    return {channel.selectionStart.samples, channel.selectionEnd.samples, channel.selectionStart.ms,
            channel.selectionEnd.ms};
  }

  // What every edit does before it changes anything.
  static void Keep(Subject& subject) {
    subject.before = subject.now;
    subject.undo = true;
  }

  void Run(Subject& subject, Command command, bool enabled) {
    const Facts facts = FactsOf(&subject.program.view);
    EXPECT_EQ(IsEnabled(RowOf(command), facts), enabled) << RowOf(command).text;
    RunCommand(subject.program.view, command);
  }

  void Cut(Subject& subject) {
    const Span span = SelectionOf(subject);
    Run(subject, Command::kCut, subject.selection);
    if (!subject.selection) return;
    clipboard_ = {true, subject.rateHz, Piece(subject.now, span)};
    Keep(subject);
    if (subject.now.length == Count(span)) return;  // refused
    Remove(subject.now, span);
    subject.selection = false;
  }

  void Copy(Subject& subject) {
    const Span span = SelectionOf(subject);
    Run(subject, Command::kCopy, subject.selection);
    if (subject.selection) clipboard_ = {true, subject.rateHz, Piece(subject.now, span)};
  }

  // Labels multiply by pasting, too.
  bool PasteWouldGrowTooLong(const Subject& subject) const {
    std::size_t labels = 0;
    for (const auto& tier : subject.now.labels) labels += tier.size();
    for (const auto& tier : clipboard_.content.labels) labels += tier.size();
    return labels > 200 || subject.now.length + clipboard_.content.length > 12000.0;
  }

  void Paste(Subject& subject) {
    if (PasteWouldGrowTooLong(subject)) return Cut(subject);
    const Span span = SelectionOf(subject);
    const TimePoint cursor = subject.program.document.channel().cursor;
    Run(subject, Command::kPaste, clipboard_.full);
    if (!clipboard_.full) return;
    Keep(subject);
    if (clipboard_.rateHz != subject.rateHz) return;  // refused
    if (subject.selection) {
      if (subject.now.length == Count(span)) return;  // refused
      Replace(subject.now, clipboard_.content, span);
    } else {
      const double at = std::min(cursor.samples, subject.now.length);
      const double atMs = std::min(cursor.ms, subject.now.ms);
      Replace(subject.now, clipboard_.content, {at, at, atMs, atMs});
    }
    subject.selection = false;
    subject.marker = false;
  }

  void Clear(Subject& subject) {
    const Span span = SelectionOf(subject);
    Run(subject, Command::kClearToReference, subject.selection);
    if (!subject.selection) return;
    Keep(subject);
    for (std::size_t i = Whole(span.start); i < Whole(span.end); ++i) subject.now.samples.at(i) = 0;
  }

  void Smooth(Subject& subject) {
    Run(subject, Command::kSmooth, true);
    Keep(subject);
    // How the ends are smoothed is the program's choice: only what lies between is compared.
    const auto samples = subject.program.document.channel().samples.samples();
    const std::vector<std::int16_t> old = subject.now.samples;
    for (std::size_t i = 1; i + 1 < old.size(); ++i) {
      const double mean = (old[i - 1] + old[i] + old[i + 1]) / 3.0;
      EXPECT_NEAR(samples[i], mean, 1.0) << "smoothed sample " << i;
    }
    subject.now.samples.assign(samples.begin(), samples.end());
  }

  void Undo(Subject& subject) {
    Run(subject, Command::kUndo, subject.undo);
    if (!subject.undo) return;
    subject.now = subject.before;
    subject.undo = false;
    subject.selection = false;
    subject.marker = false;
  }

  std::vector<ModelLabel>& LabelsOf(Subject& subject, int tier) {
    return subject.now.labels[static_cast<std::size_t>(tier)];
  }
  int SomeTier() { return kTiersInUse[Below(kTiersInUse.size())]; }

  void AddLabel(Subject& subject) {
    const int tier = SomeTier();
    if (LabelsOf(subject, tier).size() > 60) return;
    Label label;
    label.text = "label " + std::to_string(++labelCount_);
    label.timeMs = SomeMs(subject);
    Keep(subject);
    LabelsOf(subject, tier).push_back({label.text, label.timeMs});
    AddLabelToTier(subject.program.view, tier, label);
  }

  // A label of the tier, or nothing in an empty tier.
  int SomeLabel(Subject& subject, int tier) {
    const std::size_t count = LabelsOf(subject, tier).size();
    return count == 0 ? -1 : static_cast<int>(Below(count));
  }

  void MoveLabel(Subject& subject) {
    const int tier = SomeTier();
    const int index = SomeLabel(subject, tier);
    if (index < 0) return;
    const double ms = SomeMs(subject);
    Keep(subject);
    LabelsOf(subject, tier)[static_cast<std::size_t>(index)].ms = ms;
    cantorix::MoveLabel(subject.program.view, tier, index, ms, 0.5);
  }

  void EditLabel(Subject& subject) {
    const int tier = SomeTier();
    const int index = SomeLabel(subject, tier);
    if (index < 0) return;
    const auto at = static_cast<std::size_t>(index);
    Label edited =
        subject.program.document.channel().tiers[static_cast<std::size_t>(tier)].labels.at(at);
    edited.text += "!";
    if (edited.text.size() > 40) edited.text.resize(10);
    Keep(subject);
    std::vector<ModelLabel>& labels = LabelsOf(subject, tier);
    labels.erase(labels.begin() + index);
    labels.push_back({edited.text, edited.timeMs});
    cantorix::EditLabel(subject.program.view, tier, index, edited);
  }

  void DeleteLabel(Subject& subject) {
    const int tier = SomeTier();
    const int index = SomeLabel(subject, tier);
    if (index < 0) return;
    Keep(subject);
    LabelsOf(subject, tier).erase(LabelsOf(subject, tier).begin() + index);
    cantorix::DeleteLabel(subject.program.view, tier, index);
  }

  void Zoom(Subject& subject) {
    static constexpr std::array kZooms{Command::kZoomIn,        Command::kZoomOut,
                                       Command::kZoomSelection, Command::kZoomFromCursor,
                                       Command::kHome,          Command::kUnZoom};
    const Command command = kZooms[Below(kZooms.size())];
    const bool enabled = command == Command::kZoomOut          ? subject.program.view.zoomed()
                         : command == Command::kZoomSelection  ? subject.selection
                         : command == Command::kZoomFromCursor ? subject.marker
                                                               : true;
    Run(subject, command, enabled);
  }

  void CompareOne(Subject& subject) {
    const CChannel& channel = subject.program.document.channel();
    const auto samples = channel.samples.samples();
    ASSERT_EQ(samples.size(), subject.now.samples.size());
    ASSERT_TRUE(std::equal(samples.begin(), samples.end(), subject.now.samples.begin()));
    ASSERT_DOUBLE_EQ(channel.totalLength, subject.now.length);
    ASSERT_NEAR(channel.totalDurationMs, subject.now.ms, 1e-6);
    for (std::size_t tier = 0; tier < subject.now.labels.size(); ++tier) {
      const std::vector<Label>& labels = channel.tiers[tier].labels;
      const std::vector<ModelLabel>& expected = subject.now.labels[tier];
      ASSERT_EQ(labels.size(), expected.size()) << "tier " << tier;
      for (std::size_t i = 0; i < labels.size(); ++i) {
        ASSERT_EQ(labels[i].text, expected[i].text);
        ASSERT_NEAR(labels[i].timeMs, expected[i].ms, 1e-6) << labels[i].text;
      }
    }
    ASSERT_EQ(subject.program.view.undoAvailable, subject.undo);
    ASSERT_EQ(subject.program.view.selectionShown(), subject.selection);
    ASSERT_EQ(subject.program.view.markerSet(), subject.marker);
    ASSERT_EQ(world_.clipboard.clipboardFull, clipboard_.full);
    ASSERT_GE(channel.visibleStart.samples, 0.0);
    ASSERT_DOUBLE_EQ(channel.visibleLength.samples,
                     channel.visibleEnd.samples - channel.visibleStart.samples);
  }

  std::mt19937 random_;
  ViewWorld world_;
  std::vector<std::unique_ptr<Subject>> subjects_;
  ModelClipboard clipboard_;
  int labelCount_ = 0;
};

TEST(RandomWalk, OfCommandsAgreesWithTheModel) {
  constexpr int kSteps = 20000;
  Walk walk(20261121);
  for (int step = 0; step < kSteps; ++step) {
    SCOPED_TRACE("step " + std::to_string(step));
    walk.Step();
    walk.Compare();
    if (::testing::Test::HasFailure()) return;
  }
}

}  // namespace
}  // namespace cantorix
