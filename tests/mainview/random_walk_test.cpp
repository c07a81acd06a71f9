// random_walk_test.cpp - random commands over three documents against a small model that knows
// nothing of the program: samples, length, labels in their order, clipboard and undo. Fractional
// selections are the rule, whole ones the exception.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "document/label.h"
#include "mainview/commands.h"
#include "mainview/label_commands.h"
#include "mainview/view_commands.h"
#include "mainview/view_fixture.h"
#include "recording_model.h"

namespace cantorix {
namespace {

constexpr std::size_t kTiersInUse[] = {0, 3};
constexpr int kUnusedTier = 5;

struct ModelClipboard {
  bool full = false;
  double rateHz = 0.0;
  Recording content;
};

// One document: the program's and the model's side by side.
struct Subject {
  Subject(ViewWorld& world, double rate, std::int64_t length)
      : program(world, Ramp(length), rate), rateHz(rate) {
    for (const std::size_t tier : kTiersInUse) tiers()[tier].inUse = true;
    tiers()[kUnusedTier].labels = {LabelOf(7.0, "of no tier in use")};
    now.samples = Ramp(length);
    now.length = static_cast<double>(length);
    now.ms = now.length * 1000.0 / rateHz;
  }

  CSonadexView& view() { return program.view; }
  CChannel& channel() { return program.channel(); }
  Tiers& tiers() { return channel().tiers; }
  bool selected() const { return program.view.selectionShown(); }
  // What every edit does before it changes anything.
  void Keep() {
    before = now;
    undo = true;
  }

  ViewedRecording program;
  double rateHz;
  Recording now;
  Recording before;  // what an undo brings back
  bool undo = false;
  std::string marks;  // what is shown: "marker", "selection" or nothing
};

class Walk {
 public:
  explicit Walk(std::uint32_t seed) : random_(seed) {
    subjects_.push_back(std::make_unique<Subject>(world_, 1000.0, 900));
    subjects_.push_back(std::make_unique<Subject>(world_, 1000.0, 2500));
    subjects_.push_back(std::make_unique<Subject>(world_, 8000.0, 4000));
  }

  void Step() {
    Subject& subject = *subjects_[Below(subjects_.size())];
    const std::size_t kind = Below(12);
    if (kind < 3) return Select(subject);
    if (kind == 3) return Mark(subject);
    if (kind == 4) return Cut(subject);
    if (kind == 5) return Copy(subject);
    if (kind < 8) return Paste(subject);
    if (kind == 8) return Undo(subject);
    ChangeLabel(subject, kind - 9);
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
  double SomeMs(Subject& subject) {
    const double ms = subject.channel().totalDurationMs;
    const std::size_t kind = Below(8);
    if (kind < 2) return kind == 0 ? 0.0 : ms;
    return kind == 2 ? std::floor(ms * Fraction()) : ms * Fraction();
  }

  void Mark(Subject& subject) {
    PlaceMarker(subject.view(), SomeMs(subject));
    subject.marks = "marker";
  }

  void Select(Subject& subject) {
    subject.marks = "selection";
    const double startMs = SomeMs(subject);
    // Short ones, so that the recordings neither die out nor grow without end.
    const bool isLong = subject.now.length > 6000.0 || Below(6) == 0;
    SelectSpan(subject.view(), startMs, isLong ? SomeMs(subject) : startMs + 200.0 * Fraction());
  }

  // The selection, or the cursor where there is none.
  static Span Place(Subject& subject) {
    const CChannel& channel = subject.channel();
    if (subject.selected()) {
      return {channel.selectionStart.samples, channel.selectionEnd.samples,
              channel.selectionStart.ms, channel.selectionEnd.ms};
    }
    const double at = std::min(channel.cursor.samples, subject.now.length);
    const double atMs = std::min(channel.cursor.ms, subject.now.ms);
    return {at, at, atMs, atMs};
  }

  void Cut(Subject& subject) {
    const bool selected = subject.selected();
    const Span span = Place(subject);
    RunCommand(subject.view(), Command::kCut);
    if (!selected) return;
    clipboard_ = {true, subject.rateHz, Piece(subject.now, span)};
    subject.Keep();
    if (subject.now.length == Count(span)) return;  // refused
    Remove(subject.now, span);
    subject.marks.clear();
  }

  void Copy(Subject& subject) {
    if (subject.selected()) {
      clipboard_ = {true, subject.rateHz, Piece(subject.now, Place(subject))};
    }
    RunCommand(subject.view(), Command::kCopy);
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
    const Span span = Place(subject);
    RunCommand(subject.view(), Command::kPaste);
    if (!clipboard_.full) return;
    subject.Keep();
    const bool refused = clipboard_.rateHz != subject.rateHz || subject.now.length == Count(span);
    if (refused) return;
    Replace(subject.now, clipboard_.content, span);
    subject.marks.clear();
  }

  void Undo(Subject& subject) {
    RunCommand(subject.view(), Command::kUndo);
    if (!std::exchange(subject.undo, false)) return;
    subject.now = subject.before;
    subject.marks.clear();
  }

  // 0 adds a label, 1 moves one, 2 deletes one.
  void ChangeLabel(Subject& subject, std::size_t kind) {
    const std::size_t tier = kTiersInUse[Below(std::size(kTiersInUse))];
    const int slot = static_cast<int>(tier);
    std::vector<ModelLabel> labels = subject.now.labels[tier];
    if (kind == 0 ? labels.size() > 60 : labels.empty()) return;
    const double ms = SomeMs(subject);
    const int index = kind == 0 ? 0 : static_cast<int>(Below(labels.size()));
    subject.Keep();
    if (kind == 0) {
      labels.push_back({"label " + std::to_string(++labelCount_), ms});
      AddLabelToTier(subject.view(), slot, LabelOf(ms, labels.back().text));
    } else if (kind == 1) {
      labels[static_cast<std::size_t>(index)].ms = ms;
      MoveLabel(subject.view(), slot, index, ms, 0.5);
    } else {
      labels.erase(labels.begin() + index);
      DeleteLabel(subject.view(), slot, index);
    }
    subject.now.labels[tier] = labels;
  }

  void CompareOne(Subject& subject) {
    const CChannel& channel = subject.channel();
    const auto samples = channel.samples.samples();
    ASSERT_TRUE(std::equal(samples.begin(), samples.end(), subject.now.samples.begin(),
                           subject.now.samples.end()));
    ASSERT_DOUBLE_EQ(channel.totalLength, subject.now.length);
    ASSERT_NEAR(channel.totalDurationMs, subject.now.ms, 1e-6);
    ASSERT_EQ(LabelsOf(channel, kUnusedTier), "of no tier in use@7");
    for (const std::size_t tier : kTiersInUse) {
      const std::vector<Label>& labels = channel.tiers[tier].labels;
      const std::vector<ModelLabel>& expected = subject.now.labels[tier];
      ASSERT_EQ(labels.size(), expected.size()) << "tier " << tier;
      for (std::size_t i = 0; i < labels.size(); ++i) {
        ASSERT_EQ(labels[i].text, expected[i].text);
        ASSERT_NEAR(labels[i].timeMs, expected[i].ms, 1e-6) << labels[i].text;
        ASSERT_LE(labels[i].timeMs, channel.totalDurationMs + 1e-6);
      }
    }
    const CSonadexView& view = subject.view();
    ASSERT_EQ(view.markerSet()        ? "marker"
              : view.selectionShown() ? "selection"
                                      : "",
              subject.marks);
    ASSERT_EQ(view.undoAvailable, subject.undo);
    ASSERT_EQ(world_.clipboard.clipboardFull, clipboard_.full);
  }

  std::mt19937 random_;
  ViewWorld world_;
  std::vector<std::unique_ptr<Subject>> subjects_;
  ModelClipboard clipboard_;
  int labelCount_ = 0;
};

TEST(RandomWalk, OfCommandsAgreesWithTheModel) {
  Walk walk(20261121);
  for (int step = 0; step < 6000; ++step) {
    SCOPED_TRACE("step " + std::to_string(step));
    walk.Step();
    walk.Compare();
    if (::testing::Test::HasFailure()) return;
  }
}

}  // namespace
}  // namespace cantorix
