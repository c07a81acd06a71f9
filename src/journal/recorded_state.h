// recorded_state.h - what a document holds besides its samples, as a journal follows it: fields,
// tiers, labels and settings. A state is compared with the one that was recorded before, and only
// what differs is written.
#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "document/channel.h"
#include "document/document_observer.h"
#include "journal/journal_file.h"

namespace cantorix {

class CSonadexDoc;

struct RecordedState {
  std::vector<std::byte> fields;  // of channel 0, as a kFields record holds them
  Tiers tiers;
  std::vector<std::byte> settings;  // as a kSettings record holds them
};

inline constexpr DocumentChanges kRecordedChanges =
    DocumentChange::kLabels | DocumentChange::kReference | DocumentChange::kSamples |
    DocumentChange::kSettings;

// Brings the parts of `state` up to date that `changes` may have touched. Gives how many labels,
// tiers and fields differed. Settings count for nothing: they are no work by themselves.
std::uint32_t Update(RecordedState& state, const CSonadexDoc& document, DocumentChanges changes);

// Appends the records that turn `written` into `now`, and does the same with `written`; but no more
// than so many labels. False when there is more to do.
inline constexpr std::size_t kAllLabels = std::numeric_limits<std::size_t>::max();
bool AppendChanges(JournalWriter& writer, RecordedState& written, const RecordedState& now,
                   std::size_t mostLabels);

// Takes a record of one of the four kinds. Throws BadRecord, with `state` unchanged or partly so.
void TakeRecord(const JournalRecord& record, RecordedState& state);
// Whether the fields were recorded and describe a recording that can be: `lengthSamples` of it.
bool HasPossibleFields(const RecordedState& state, std::int64_t& lengthSamples, double& rateHz);

// Gives the document everything but the samples, of which it must have as many as the fields say.
void Apply(const RecordedState& state, CSonadexDoc& document);

// The tiers alone; labels that cannot be on the recording are left out.
void ApplyTiers(const RecordedState& state, CChannel& channel);

}  // namespace cantorix
