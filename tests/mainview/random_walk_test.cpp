// random_walk_test.cpp - random commands over three documents against a small model that knows
// nothing of the program: samples, length, labels in their order, clipboard and undo. Fractional
// selections are the rule, whole ones the exception.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "document/label.h"
#include "mainview/commands.h"
#include "mainview/label_commands.h"
#include "mainview/view_commands.h"
#include "mainview/view_fixture.h"

namespace cantorix {
namespace {

constexpr int kTiersInUse[] = {0, 3};
constexpr int kUnusedTier = 5;

struct ModelLabel {
  int tier;
  std::string text;
  double ms;
};

// A recording, or what was copied of one.
struct Recording {
  Samples samples;
  double ms = 0.0;
  std::vector<ModelLabel> labels;
};

// A part of a recording. Samples come and go whole; a label that would come to stand before the cut
// or behind the end goes with it.
struct Part {
  Part(const Recording& of, const TimePoint& start, const TimePoint& end)
      : first(static_cast<std::ptrdiff_t>(start.samples)),
        last(static_cast<std::ptrdiff_t>(end.samples)),
        lengthMs(static_cast<double>(last - first) * of.ms /
                 static_cast<double>(of.samples.size())),
        startMs(std::min(start.ms, of.ms - lengthMs)),
        endMs(std::max(end.ms, startMs + lengthMs)) {}
  bool Holds(const ModelLabel& label) const {
    return endMs > startMs && label.ms >= startMs && label.ms <= endMs;
  }
  bool IsAll(const Recording& of) const { return last - first == std::ssize(of.samples); }

  std::ptrdiff_t first, last;
  double lengthMs, startMs, endMs;
};

Recording Piece(const Recording& from, const Part& part) {
  const auto begin = from.samples.begin();
  Recording piece{{begin + part.first, begin + part.last}, part.lengthMs, {}};
  for (const ModelLabel& label : from.labels) {
    if (!part.Holds(label)) continue;
    piece.labels.push_back({label.tier, label.text, label.ms - part.startMs});
  }
  return piece;
}

// Puts `piece` in place of `part`; either may be empty.
void Replace(Recording& in, const Recording& piece, const Part& part) {
  const auto begin = in.samples.begin();
  in.samples.insert(in.samples.erase(begin + part.first, begin + part.last), piece.samples.begin(),
                    piece.samples.end());
  std::erase_if(in.labels, [&](const ModelLabel& label) { return part.Holds(label); });
  for (ModelLabel& label : in.labels) {
    if (label.ms > part.endMs) label.ms -= part.lengthMs;
    if (label.ms > part.startMs) label.ms += piece.ms;
  }
  for (const ModelLabel& label : piece.labels) {
    in.labels.push_back({label.tier, label.text, label.ms + part.startMs});
  }
  in.ms += piece.ms - part.lengthMs;
}

// One document: the program's and the model's side by side.
struct Subject {
  Subject(ViewWorld& world, double rate, std::int64_t length)
      : program(world, Ramp(length), rate), rateHz(rate) {
    for (const int tier : kTiersInUse) tierAt(tier).inUse = true;
    tierAt(kUnusedTier).labels = {LabelOf(7.0, "of no tier in use")};
    now.samples = Ramp(length);
    now.ms = static_cast<double>(length) * 1000.0 / rateHz;
  }
  Tier& tierAt(int tier) { return program.channel().tiers[static_cast<std::size_t>(tier)]; }
  bool selected() const { return program.view.selectionShown(); }
  // The selection, or the cursor where there is none.
  Part Place() {
    const CChannel& channel = program.channel();
    if (selected()) return {now, channel.selectionStart, channel.selectionEnd};
    const TimePoint at{std::min(channel.cursor.samples, static_cast<double>(now.samples.size())),
                       std::min(channel.cursor.ms, now.ms)};
    return {now, at, at};
  }
  // What every edit does before it changes anything.
  void Keep() {
    before = now;
    undo = true;
  }

  ViewedRecording program;
  double rateHz;
  Recording now, before;  // what an undo brings back
  bool undo = false;
  std::string marks;  // what is shown: "marker", "selection" or nothing
};

class Walk {
 public:
  void Step() {
    Subject& subject = *std::array{&subjects_.a, &subjects_.b, &subjects_.c}.at(Below(3));
    const std::size_t kind = Below(12);
    if (kind < 3) return Select(subject);
    if (kind == 3) return Mark(subject);
    if (kind == 4) return Cut(subject);
    if (kind == 5) return Copy(subject);
    if (kind < 8) return Paste(subject);
    if (kind == 8) return Undo(subject);
    ChangeLabel(subject, kind);
  }
  // Compares every document, whichever the step was on.
  void Compare() {
    for (Subject* const subject : {&subjects_.a, &subjects_.b, &subjects_.c}) CompareOne(*subject);
    world_.test.prompts.TakeTranscript();
  }

 private:
  std::size_t Below(std::size_t bound) { return random_() % bound; }
  double Fraction() { return static_cast<double>(random_() % 1000003) / 1000003.0; }
  // A time in the recording: often its ends, sometimes a whole sample.
  double SomeMs(const Subject& subject) {
    const std::size_t kind = Below(8);
    if (kind < 2) return kind == 0 ? 0.0 : subject.now.ms;
    const double ms = subject.now.ms * Fraction();
    return kind == 2 ? std::floor(ms) : ms;
  }

  void Mark(Subject& subject) {
    PlaceMarker(subject.program.view, SomeMs(subject));
    subject.marks = "marker";
  }

  void Select(Subject& subject) {
    subject.marks = "selection";
    const double startMs = SomeMs(subject);
    // Short ones, so that the recordings neither die out nor grow without end.
    const bool isLong = subject.now.samples.size() > 6000 || Below(6) == 0;
    SelectSpan(subject.program.view, startMs,
               isLong ? SomeMs(subject) : startMs + 200.0 * Fraction());
  }

  void Copy(Subject& subject) {
    if (subject.selected()) {
      clipboardRateHz_ = subject.rateHz;
      clipboard_ = Piece(subject.now, subject.Place());
    }
    RunCommand(subject.program.view, Command::kCopy);
  }

  void Cut(Subject& subject) {
    Copy(subject);
    if (subject.selected()) Put(subject, {});
    RunCommand(subject.program.view, Command::kCut);
  }

  void Paste(Subject& subject) {
    // Labels multiply by pasting, too.
    if (subject.now.labels.size() + clipboard_.labels.size() > 200 ||
        subject.now.samples.size() + clipboard_.samples.size() > 12000) {
      return Cut(subject);
    }
    if (clipboardRateHz_ == subject.rateHz) {
      Put(subject, clipboard_);
    } else if (clipboardRateHz_ > 0.0) {
      subject.Keep();  // and refused
    }
    RunCommand(subject.program.view, Command::kPaste);
  }

  // Nothing may be put in the place of everything.
  static void Put(Subject& subject, const Recording& piece) {
    const Part part = subject.Place();
    subject.Keep();
    if (part.IsAll(subject.now)) return;
    Replace(subject.now, piece, part);
    subject.marks.clear();
  }

  static void Undo(Subject& subject) {
    RunCommand(subject.program.view, Command::kUndo);
    if (!std::exchange(subject.undo, false)) return;
    subject.now = subject.before;
    subject.marks.clear();
  }

  // 9 adds a label, 10 moves one, 11 deletes one.
  void ChangeLabel(Subject& subject, std::size_t kind) {
    const int tier = kTiersInUse[Below(2)];
    CSonadexView& view = subject.program.view;
    std::vector<std::size_t> labels;  // of the tier
    for (std::size_t i = 0; i < subject.now.labels.size(); ++i) {
      if (subject.now.labels[i].tier == tier) labels.push_back(i);
    }
    if (kind == 9 ? labels.size() > 60 : labels.empty()) return;
    const double ms = SomeMs(subject);
    subject.Keep();
    if (kind == 9) {
      subject.now.labels.push_back({tier, "label " + std::to_string(++labelCount_), ms});
      return AddLabelToTier(view, tier, LabelOf(ms, subject.now.labels.back().text));
    }
    const std::size_t index = Below(labels.size());
    if (kind == 10) {
      subject.now.labels[labels[index]].ms = ms;
      return MoveLabel(view, tier, static_cast<int>(index), ms, 0.5);
    }
    subject.now.labels.erase(subject.now.labels.begin() +
                             static_cast<std::ptrdiff_t>(labels[index]));
    DeleteLabel(view, tier, static_cast<int>(index));
  }

  void CompareOne(Subject& subject) {
    const CChannel& channel = subject.program.channel();
    ASSERT_EQ(subject.program.samples(), subject.now.samples);
    ASSERT_DOUBLE_EQ(channel.totalLength, static_cast<double>(subject.now.samples.size()));
    ASSERT_NEAR(channel.totalDurationMs, subject.now.ms, 1e-6);
    ASSERT_EQ(LabelsOf(channel, kUnusedTier), "of no tier in use@7");
    for (const int tier : kTiersInUse) {
      const std::vector<Label>& labels = subject.tierAt(tier).labels;
      std::size_t i = 0;
      for (const ModelLabel& expected : subject.now.labels) {
        if (expected.tier != tier) continue;
        ASSERT_LT(i, labels.size());
        ASSERT_EQ(labels[i].text, expected.text);
        ASSERT_NEAR(labels[i++].timeMs, expected.ms, 1e-6) << expected.text;
      }
      ASSERT_EQ(i, labels.size());
    }
    const CSonadexView& view = subject.program.view;
    ASSERT_EQ(view.markerSet() ? "marker" : subject.selected() ? "selection" : "", subject.marks);
    ASSERT_EQ(view.undoAvailable, subject.undo);
    ASSERT_EQ(world_.clipboard.clipboardFull, clipboardRateHz_ > 0.0);
  }

  std::mt19937 random_{20261121};
  ViewWorld world_;
  struct {
    Subject a, b, c;
  } subjects_{{world_, 1000.0, 900}, {world_, 1000.0, 2500}, {world_, 8000.0, 4000}};
  double clipboardRateHz_ = 0.0;  // 0 while it is empty
  Recording clipboard_;
  int labelCount_ = 0;
};

TEST(RandomWalk, OfCommandsAgreesWithTheModel) {
  Walk walk;
  for (int step = 0; step < 6000; ++step) {
    SCOPED_TRACE("step " + std::to_string(step));
    walk.Step();
    walk.Compare();
    if (::testing::Test::HasFailure()) return;
  }
}

}  // namespace
}  // namespace cantorix
