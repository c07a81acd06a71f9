// sample_payload_test.cpp - edits without those that were taken back, the length they leave, and
// which samples count as the same.
#include "journal/sample_payload.h"

#include <gtest/gtest.h>

#include "journal/crc32.h"

namespace cantorix {
namespace {

using Kind = SampleEdit::Kind;

RecordedEdit Edit(Kind kind, std::int64_t first = 0, std::int64_t end = 0,
                  std::vector<std::int64_t> inserted = {}) {
  RecordedEdit edit{{.kind = kind, .first = first, .end = end}, {}};
  for (const std::int64_t count : inserted) edit.inserted.push_back({0, count});
  return edit;
}

TEST(SamplePayload, UndoTakesBackWhatFollowedTheLastPoint) {
  // A letter is a fill that ends at its place in the alphabet, "." an undo point, "<" an undo.
  const auto left = [](std::string_view text) -> std::string {
    std::vector<RecordedEdit> edits;
    for (const char c : text) {
      edits.push_back(c == '.'   ? Edit(Kind::kUndoPoint)
                      : c == '<' ? Edit(Kind::kUndo)
                                 : Edit(Kind::kFill, 0, c));
    }
    const auto found = WithoutUndone(edits);
    if (!found) return "nothing";
    std::string letters;
    for (const RecordedEdit& edit : *found) letters += static_cast<char>(edit.edit.end);
    return letters;
  };
  EXPECT_EQ(left(""), "");
  EXPECT_EQ(left("abc"), "abc");
  EXPECT_EQ(left("a.bc<"), "a");
  EXPECT_EQ(left("a.b.c<d"), "abd");
  EXPECT_EQ(left(".a<b<c"), "c");
  EXPECT_EQ(left("ab<"), "nothing");
}

TEST(SamplePayload, LengthIsThatOfTheSpliced) {
  const struct {
    std::vector<RecordedEdit> edits;
    std::optional<std::int64_t> length;
  } rows[] = {
      {{}, 100},
      {{Edit(Kind::kSplice, 10, 30)}, 80},
      {{Edit(Kind::kSplice, 100, 100, {5, 6})}, 111},
      {{Edit(Kind::kSplice, 0, 100, {7}), Edit(Kind::kGain, 0, 7), Edit(Kind::kFill, 3, 7)}, 7},
      {{Edit(Kind::kSplice, 0, 100, {7}), Edit(Kind::kSmooth, 0, 8)}, std::nullopt},
      {{Edit(Kind::kFill, -1, 5)}, std::nullopt},
      {{Edit(Kind::kFill, 6, 5)}, std::nullopt},
      {{Edit(Kind::kFill, 0, 101)}, std::nullopt},
      {{Edit(Kind::kUnknown)}, std::nullopt},
  };
  for (const auto& row : rows) EXPECT_EQ(LengthAfter(row.edits, 100), row.length) << &row - rows;
}

TEST(SamplePayload, FingerprintsTellSamplesApart) {
  // 64 stretches of 512 samples cover this recording without a gap, so that the print, which other
  // versions have to find, too, is the checksum of its length and all of it.
  std::vector<std::int16_t> samples(32768);
  for (std::size_t i = 0; i < samples.size(); ++i) samples[i] = static_cast<std::int16_t>(i * i);
  PayloadWriter bytes;
  bytes.Put(std::int64_t{32768});
  for (const std::int16_t sample : samples) bytes.Put(sample);
  const std::uint32_t print = Fingerprint(SpanSource(samples));
  EXPECT_EQ(print, Crc32(bytes.bytes()));
  EXPECT_NE(Fingerprint(SpanSource(std::span(samples).first(32767))), print);
  for (std::size_t at = 0; at < samples.size(); at += at % 512 == 0 ? 511 : 1) {
    auto changed = samples;
    changed[at] = static_cast<std::int16_t>(changed[at] ^ 4);
    EXPECT_NE(Fingerprint(SpanSource(changed)), print) << at;
  }
  // Of a long one both ends.
  std::vector<std::int16_t> ends(1000003);
  for (const std::size_t at : {std::size_t{0}, ends.size() - 1}) {
    auto changed = ends;
    changed[at] = 1;
    EXPECT_NE(Fingerprint(SpanSource(changed)), Fingerprint(SpanSource(ends))) << at;
  }
  EXPECT_NE(Fingerprint(SpanSource({})), Fingerprint(SpanSource(std::span(ends).first(1))));
}

}  // namespace
}  // namespace cantorix
