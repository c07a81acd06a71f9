// recorded_state.cpp - fields through the tables of the native layout; labels as the stretch of a
// tier between what is the same before and behind it.
#include "journal/recorded_state.h"

#include <algorithm>
#include <utility>

#include "document/document.h"
#include "document/label.h"
#include "document/native_layout.h"
#include "journal/list_change.h"
#include "platform/numbers.h"
#include "settings/local_settings.h"
#include "settings/record.h"

namespace cantorix {
namespace {

using Bytes = std::vector<std::byte>;

Bytes Taken(const PayloadWriter& payload) {
  return {payload.bytes().begin(), payload.bytes().end()};
}

Bytes FieldsOf(const CChannel& channel) {
  PayloadWriter out;
  for (const auto& field : native::kRealFields) out.Put(channel.*field.member);
  for (const auto& field : native::kWholeFields) out.Put(channel.*field.member);
  for (const auto& field : native::kWordFields) out.Put(channel.*field.member);
  for (const double value : channel.channelValues) out.Put(value);
  out.Put(channel.bitsPerSample);
  out.PutText(channel.channelName);
  out.PutText(channel.channelComment);
  return Taken(out);
}

// Throws BadRecord.
void TakeFields(std::span<const std::byte> bytes, CChannel& channel) {
  PayloadReader in(bytes);
  for (const auto& field : native::kRealFields) channel.*field.member = in.Take<double>();
  for (const auto& field : native::kWholeFields) channel.*field.member = in.Take<double>();
  for (const auto& field : native::kWordFields) channel.*field.member = in.Take<std::uint32_t>();
  for (double& value : channel.channelValues) value = in.Take<double>();
  channel.bitsPerSample = in.Take<std::int32_t>();
  channel.channelName = in.TakeText();
  channel.channelComment = in.TakeText();
  in.RequireEnd();
}

// The settings, and what of them the configuration file would hold.
Bytes SettingsOf(const CSonadexDoc& document) {
  PayloadWriter out;
  out.PutBytes(EncodeRecord({{}, document.settings}));
  out.PutBytes(EncodeRecord({{}, document.localSettings.ForFile(document.settings)}));
  return Taken(out);
}

void PutLabel(PayloadWriter& out, const Label& label) {
  out.Put(label.timeMs);
  out.Put(label.verticalPosition);
  out.Put(label.alignment);
  out.Put(label.colour);
  out.Put(label.reservedWord);
  for (const std::int32_t edge : label.labelBox) out.Put(edge);
  out.Put(label.flag);
  out.PutBytes(label.font.bytes);
  out.PutText(label.text);
}

// The bytes of a label without text.
constexpr std::size_t kLeastLabelBytes = 2 * 8 + 3 * 4 + 4 * 4 + 1 + FontDescription::kBytes + 4;

Label TakeLabel(PayloadReader& in) {
  Label label;
  label.timeMs = in.Take<double>();
  label.verticalPosition = in.Take<double>();
  label.alignment = in.Take<std::int32_t>();
  label.colour = in.Take<std::uint32_t>();
  label.reservedWord = in.Take<std::uint32_t>();
  for (std::int32_t& edge : label.labelBox) edge = in.Take<std::int32_t>();
  label.flag = in.Take<std::int8_t>();
  const auto font = in.TakeBytes(FontDescription::kBytes);
  std::copy(font.begin(), font.end(), label.font.bytes.begin());
  label.text = in.TakeText();
  return label;
}

bool SameHead(const Tier& a, const Tier& b) {
  return a.inUse == b.inUse && a.tierWord == b.tierWord && a.name == b.name;
}

void AppendTier(JournalWriter& writer, std::size_t slot, const Tier& tier) {
  PayloadWriter out;
  out.Put(static_cast<std::uint8_t>(slot));
  out.Put(static_cast<std::uint8_t>(tier.inUse ? 1 : 0));
  out.Put(tier.tierWord);
  out.PutText(tier.name);
  writer.Append(RecordKind::kTier, out.bytes());
}

void AppendLabels(JournalWriter& writer, std::size_t slot, const Tier& tier, ListChange change) {
  PayloadWriter out;
  out.Put(static_cast<std::uint8_t>(slot));
  out.Put(static_cast<std::uint32_t>(change.first));
  out.Put(static_cast<std::uint32_t>(change.removed));
  out.Put(static_cast<std::uint32_t>(change.added));
  for (std::size_t i = 0; i < change.added; ++i) PutLabel(out, tier.labels[change.first + i]);
  writer.Append(RecordKind::kLabels, out.bytes());
}

void CopyHead(const Tier& from, Tier& to) {
  to.inUse = from.inUse;
  to.tierWord = from.tierWord;
  to.name = from.name;
}

// In pieces, so that no record grows without a bound: those of the list `now` in the order of time
// can be taken one after the other. False when `mostLabels` were too few.
bool AppendTierChanges(JournalWriter& writer, std::size_t slot, Tier& written, const Tier& now,
                       std::size_t& mostLabels) {
  constexpr std::size_t kPiece = 4096;
  if (!SameHead(written, now)) {
    AppendTier(writer, slot, now);
    CopyHead(now, written);
  }
  ListChange change = ChangeOf(written.labels, now.labels);
  while (!change.empty()) {
    if (mostLabels == 0) return false;
    ListChange piece = change;
    piece.added = std::min({change.added, kPiece, mostLabels});
    // The last piece takes what is left of the old ones.
    piece.removed =
        piece.added < change.added ? std::min(piece.added, change.removed) : change.removed;
    AppendLabels(writer, slot, now, piece);
    Make(piece, written.labels, now.labels);
    mostLabels -= std::max<std::size_t>(1, piece.added);
    change = {change.first + piece.added, change.removed - piece.removed,
              change.added - piece.added};
  }
  return true;
}

Tier& TierIn(PayloadReader& in, RecordedState& state) {
  const auto slot = in.Take<std::uint8_t>();
  if (slot >= state.tiers.size()) throw BadRecord();
  return state.tiers[slot];
}

void TakeTier(PayloadReader& in, RecordedState& state) {
  Tier& tier = TierIn(in, state);
  tier.inUse = in.Take<std::uint8_t>() != 0;
  tier.tierWord = in.Take<std::int32_t>();
  tier.name = in.TakeText();
  in.RequireEnd();
}

void TakeLabels(PayloadReader& in, RecordedState& state) {
  std::vector<Label>& labels = TierIn(in, state).labels;
  const std::size_t first = in.Take<std::uint32_t>();
  const std::size_t removed = in.Take<std::uint32_t>();
  if (first > labels.size() || removed > labels.size() - first) throw BadRecord();
  std::vector<Label> added(in.TakeCount(kLeastLabelBytes));
  for (Label& label : added) label = TakeLabel(in);
  in.RequireEnd();
  const auto at = labels.begin() + static_cast<std::ptrdiff_t>(first);
  labels.insert(labels.erase(at, at + static_cast<std::ptrdiff_t>(removed)),
                std::make_move_iterator(added.begin()), std::make_move_iterator(added.end()));
}

bool CanBeShown(const Label& label, double durationMs) {
  const auto isWithin = [](auto x, auto low, auto high) { return x >= low && x <= high; };
  return isWithin(label.timeMs, 0.0, durationMs) && isWithin(label.verticalPosition, 0.0, 1.0) &&
         isWithin(label.alignment, kAlignLeft, kAlignRight) &&
         label.text.size() <= kMaxLabelBytes && label.font.height() <= 100 &&
         label.font.width() <= 3000;
}

void ApplySettings(const Bytes& bytes, CSonadexDoc& document) {
  const auto records = std::span(bytes);
  Settings own;
  Settings ofFile;
  if (records.size() != 2 * kRecordBytes || !DecodeRecord(records.first(kRecordBytes), own) ||
      !DecodeRecord(records.subspan(kRecordBytes), ofFile)) {
    return;
  }
  const auto differ = [&](auto DocumentSettings::*group, auto member) {
    return own.document.*group.*member != ofFile.document.*group.*member;
  };
  using Spectrogram = SpectrogramSettings;
  const auto spectrogram = &DocumentSettings::spectrogram;
  if (differ(spectrogram, &Spectrogram::points) || differ(spectrogram, &Spectrogram::rangeHz) ||
      differ(spectrogram, &Spectrogram::lpcOrder) ||
      differ(spectrogram, &Spectrogram::dynamicRangeDb)) {
    document.localSettings.Begin(ofFile.document.spectrogram);
  }
  const auto fftLpc = &DocumentSettings::fftLpc;
  if (differ(fftLpc, &FftLpcSettings::points) || differ(fftLpc, &FftLpcSettings::rangeHz) ||
      differ(fftLpc, &FftLpcSettings::lpcOrder)) {
    document.localSettings.Begin(ofFile.document.fftLpc);
  }
  document.settings = own.document;
}

}  // namespace

std::uint32_t Update(RecordedState& state, const CSonadexDoc& document, DocumentChanges changes) {
  std::size_t count = 0;
  if (changes.HasAny(kRecordedChanges)) {
    Bytes fields = FieldsOf(document.channel());
    if (fields != state.fields) ++count;
    state.fields = std::move(fields);
  }
  if (changes.HasAny(DocumentChange::kLabels | DocumentChange::kSamples)) {
    for (std::size_t i = 0; i < state.tiers.size(); ++i) {
      Tier& known = state.tiers[i];
      const Tier& now = document.channel().tiers[i];
      if (!SameHead(known, now)) ++count;
      CopyHead(now, known);
      const ListChange change = ChangeOf(known.labels, now.labels);
      count += change.touched();
      Make(change, known.labels, now.labels);
    }
  }
  if (changes.Has(DocumentChange::kSettings)) state.settings = SettingsOf(document);
  return static_cast<std::uint32_t>(count);
}

bool AppendChanges(JournalWriter& writer, RecordedState& written, const RecordedState& now,
                   std::size_t mostLabels) {
  if (written.fields != now.fields) writer.Append(RecordKind::kFields, now.fields);
  written.fields = now.fields;
  for (std::size_t i = 0; i < now.tiers.size(); ++i) {
    if (!AppendTierChanges(writer, i, written.tiers[i], now.tiers[i], mostLabels)) return false;
  }
  if (written.settings != now.settings) writer.Append(RecordKind::kSettings, now.settings);
  written.settings = now.settings;
  return true;
}

void TakeRecord(const JournalRecord& record, RecordedState& state) {
  PayloadReader in(record.content);
  if (record.kind == RecordKind::kTier) return TakeTier(in, state);
  if (record.kind == RecordKind::kLabels) return TakeLabels(in, state);
  if (record.kind == RecordKind::kSettings) {
    state.settings = record.content;
    return;
  }
  CChannel checked;
  TakeFields(record.content, checked);
  state.fields = record.content;
}

bool HasPossibleFields(const RecordedState& state, std::int64_t& lengthSamples, double& rateHz) {
  if (state.fields.empty()) return false;
  CChannel channel;
  TakeFields(state.fields, channel);
  if (native::FindImpossible(channel.totalLength, channel.sampleRateHz, channel.totalDurationMs)) {
    return false;
  }
  lengthSamples = channel.sampleCount();
  rateHz = channel.sampleRateHz;
  return true;
}

void Apply(const RecordedState& state, CSonadexDoc& document) {
  CChannel& channel = document.channel();
  TakeFields(state.fields, channel);
  channel.ShowWholeFile();
  ApplyTiers(state, channel);
  ApplySettings(state.settings, document);
}

void ApplyTiers(const RecordedState& state, CChannel& channel) {
  channel.tiers = state.tiers;
  for (Tier& tier : channel.tiers) {
    std::erase_if(tier.labels,
                  [&](const Label& label) { return !CanBeShown(label, channel.totalDurationMs); });
  }
}

}  // namespace cantorix
