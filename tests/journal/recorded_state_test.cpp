// recorded_state_test.cpp - records that cannot be true, labels that no recording can show, and
// work that does not tell of its recording.
#include "journal/recorded_state.h"

#include <gtest/gtest.h>

#include "document/document.h"
#include "document/label.h"
#include "journal/work_restoring.h"
#include "support/test_host.h"

namespace cantorix {
namespace {

TEST(RecordedState, LabelsThatCannotBeShownAreLeftOut) {
  const auto with = [](auto change) {
    Label label;
    label.timeMs = 50.0;
    change(label);
    return label;
  };
  const auto font = [&](std::size_t at, std::int32_t value) {
    return with([&](Label& l) { StoreLittle(l.font.bytes, at, value); });
  };
  const auto time = [&](double ms) { return with([&](Label& l) { l.timeMs = ms; }); };
  const auto height = [&](double y) { return with([&](Label& l) { l.verticalPosition = y; }); };
  const auto aligned = [&](std::int32_t a) { return with([&](Label& l) { l.alignment = a; }); };
  const auto text = [&](std::size_t n) { return with([&](Label& l) { l.text.assign(n, 'a'); }); };
  const std::vector<Label> shown{time(0.0),   time(100.0),         height(0.0),
                                 height(1.0), aligned(kAlignLeft), aligned(kAlignRight),
                                 text(255),   font(0, 100),        font(4, 3000)};
  const std::vector<Label> others{time(-0.1),
                                  time(100.1),
                                  height(-0.1),
                                  height(1.1),
                                  aligned(kAlignLeft - 1),
                                  aligned(kAlignRight + 1),
                                  text(256),
                                  font(0, 101),
                                  font(4, 3001)};
  RecordedState state;
  for (std::size_t i = 0; i < shown.size(); ++i) {
    state.tiers[9].labels.insert(state.tiers[9].labels.end(), {others[i], shown[i]});
  }
  CChannel channel;
  channel.totalDurationMs = 100.0;
  ApplyTiers(state, channel);
  EXPECT_TRUE(channel.tiers[9].labels == shown);
}

TEST(RecordedState, RefusesRecordsThatCannotBeTrue) {
  RecordedState state;
  state.tiers[9].labels.resize(3);
  // Of labels from `first` on, `removed` gone, and `added` of them, without what these hold.
  const auto isTaken = [&](int slot, std::uint32_t first, std::uint32_t removed,
                           std::uint32_t added, std::size_t more = 0) {
    PayloadWriter out;
    out.Put(static_cast<std::uint8_t>(slot));
    for (const std::uint32_t number : {first, removed, added}) out.Put(number);
    out.PutBytes(std::vector<std::byte>(more));
    RecordedState copy = state;
    try {
      TakeRecord({RecordKind::kLabels, 0, {out.bytes().begin(), out.bytes().end()}}, copy);
    } catch (const BadRecord&) {
      return false;
    }
    return copy.tiers[9].labels.size() == 3 - removed + added;
  };
  EXPECT_TRUE(isTaken(9, 3, 0, 0));
  EXPECT_TRUE(isTaken(9, 1, 2, 0));
  EXPECT_TRUE(isTaken(9, 0, 3, 0));
  // Two numbers, three words, four edges, a byte, a font and the length of the text.
  constexpr std::size_t kLabel = 16 + 12 + 16 + 1 + 60 + 4;
  EXPECT_TRUE(isTaken(9, 2, 1, 2, 2 * kLabel));
  EXPECT_FALSE(isTaken(9, 2, 1, 2, 2 * kLabel - 1));
  EXPECT_FALSE(isTaken(9, 2, 1, 2, 2 * kLabel + 1));
  EXPECT_FALSE(isTaken(10, 0, 0, 0));
  EXPECT_FALSE(isTaken(9, 4, 0, 0));
  EXPECT_FALSE(isTaken(9, 2, 2, 0));
  EXPECT_FALSE(isTaken(9, 1, 0xFFFFFFFFU, 0));
}

TEST(RecordedState, WithoutFieldsNothingIsRestored) {
  TestHost test;
  CSonadexDoc document(test.host);
  EXPECT_FALSE(RestoreOverSilence({}, document));
  EXPECT_FALSE(document.loaded);
  EXPECT_EQ(ObstacleTo({}, document), "'  ' has other samples than it had then.");
  JournalledWork work;
  work.header.fingerprint = Fingerprint(document.Samples());
  EXPECT_EQ(ObstacleTo(work, document), "Its samples could not be followed.");
}

}  // namespace
}  // namespace cantorix
