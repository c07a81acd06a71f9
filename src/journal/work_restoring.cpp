// work_restoring.cpp - edits one after the other, in memory or in the disk store.
#include "journal/work_restoring.h"

#include <algorithm>
#include <memory>

#include "document/document.h"
#include "document/sample_bytes.h"
#include "document/sample_changes.h"
#include "document/sample_loader.h"
#include "document/sample_splice.h"
#include "platform/file_error.h"

namespace cantorix {
namespace {

using Kind = SampleEdit::Kind;

// Silence is made for a recording of this length at most; a longer one would fill the disk.
constexpr std::int64_t kMostSilence = std::int64_t{1} << 31U;

// The samples [position, position + out.size()) of those that an edit inserted.
void ReadInserted(const RecordedEdit& edit, const File& journal, std::int64_t position,
                  std::span<std::int16_t> out) {
  for (const SampleChunk& chunk : edit.inserted) {
    if (out.empty()) return;
    if (position < chunk.count) {
      const auto count = std::min<std::int64_t>(chunk.count - position, std::ssize(out));
      const auto piece = out.first(static_cast<std::size_t>(count));
      journal.ReadExactly(chunk.at + position * 2, std::as_writable_bytes(piece));
      SwapFromLittle(piece);
      out = out.subspan(piece.size());
      position += count;
    }
    position -= chunk.count;
  }
}

void Splice(const RecordedEdit& recorded, const File& journal, CSonadexDoc& document) {
  const SampleEdit& edit = recorded.edit;
  const bool isAll = edit.first == 0 && edit.end == document.Samples().length();
  if (isAll) {
    const CChannel& channel = document.channel();
    const auto count = recorded.insertedCount();
    const double durationMs = static_cast<double>(count) * 1000.0 / channel.sampleRateHz;
    return LoadSamples(document, durationMs, channel.sampleRateHz, count,
                       [&](std::int64_t position, std::span<std::int16_t> out) {
                         ReadInserted(recorded, journal, position, out);
                       });
  }
  if (document.samplesOnDisk()) throw FileError("It is too long to be edited again.");
  std::vector<std::int16_t> inserted(static_cast<std::size_t>(recorded.insertedCount()));
  ReadInserted(recorded, journal, 0, inserted);
  document.HoldInMemory(
      Spliced(document.channel().samples.samples(), edit.first, edit.end, inserted));
}

// The samples [first, end) through `change`, in order.
template <typename Change>
void Rewrite(CSonadexDoc& document, const SampleEdit& edit, const Change& change) {
  if (!document.samplesOnDisk()) {
    return change(edit.first, document.channel().samples.samples().subspan(
                                  static_cast<std::size_t>(edit.first),
                                  static_cast<std::size_t>(edit.end - edit.first)));
  }
  const std::int64_t step = OneSecondOfSamples(document.channel().sampleRateHz);
  std::vector<std::int16_t> block;
  for (std::int64_t at = edit.first; at < edit.end; at += step) {
    block.resize(static_cast<std::size_t>(std::min(step, edit.end - at)));
    document.store()->Read(at, block);
    change(at, std::span(block));
    document.store()->Overwrite(at, block);
  }
}

void RedoEdit(const RecordedEdit& recorded, const File& journal, CSonadexDoc& document) {
  const SampleEdit& edit = recorded.edit;
  if (edit.kind == Kind::kSplice) return Splice(recorded, journal, document);
  if (edit.kind == Kind::kFill) {
    return Rewrite(document, edit, [&](std::int64_t, std::span<std::int16_t> samples) {
      std::fill(samples.begin(), samples.end(), edit.value);
    });
  }
  if (edit.kind == Kind::kGain) {
    const auto table = std::make_unique<GainTable>(edit.gainPercent, edit.reference);
    return Rewrite(document, edit,
                   [&](std::int64_t, std::span<std::int16_t> samples) { table->Apply(samples); });
  }
  Smoother smoother(document.Samples());
  Rewrite(document, edit, [&](std::int64_t position, std::span<std::int16_t> samples) {
    smoother.Apply(position, samples);
  });
}

}  // namespace

std::string ObstacleTo(const JournalledWork& work, const CSonadexDoc& document) {
  const DocumentHeader& header = work.header;
  const SampleSource& samples = document.Samples();
  if (header.origin.kind == SampleOrigin::Kind::kFile &&
      StateOf(header.origin.path) != header.originState) {
    return "' " + header.origin.path + " ' has changed since then.";
  }
  if (samples.length() != header.originSamples || Fingerprint(samples) != header.fingerprint) {
    return "' " + header.origin.path + " ' has other samples than it had then.";
  }
  const auto edits = WithoutUndone(work.edits);
  const auto length = edits ? LengthAfter(*edits, samples.length()) : std::nullopt;
  std::int64_t recorded = 0;
  double rateHz = 0.0;
  if (!HasPossibleFields(work.state, recorded, rateHz) || length != recorded) {
    return "Its samples could not be followed.";
  }
  return {};
}

void Redo(const JournalledWork& work, const File& journal, CSonadexDoc& document) {
  if (work.header.origin.kind == SampleOrigin::Kind::kNone) {
    std::int64_t count = 0;
    HasPossibleFields(work.state, count, document.channel().sampleRateHz);
  }
  const auto edits = WithoutUndone(work.edits);
  if (!edits) return;
  for (const RecordedEdit& edit : *edits) RedoEdit(edit, journal, document);
  Apply(work.state, document);
  document.loaded = true;
}

bool RestoreOverSilence(const JournalledWork& work, CSonadexDoc& document) {
  std::int64_t count = 0;
  double rateHz = 0.0;
  if (!HasPossibleFields(work.state, count, rateHz) || count > kMostSilence) return false;
  LoadSamples(document, static_cast<double>(count) * 1000.0 / rateHz, rateHz, count,
              [](std::int64_t, std::span<std::int16_t> out) {
                std::fill(out.begin(), out.end(), std::int16_t{0});
              });
  Apply(work.state, document);
  document.loaded = true;
  document.newRecording = true;
  return true;
}

void RestoreLabels(const JournalledWork& work, CSonadexDoc& document) {
  ApplyTiers(work.state, document.channel());
}

bool ChangesSamples(const JournalledWork& work) {
  const auto edits = WithoutUndone(work.edits);
  return !edits || !edits->empty();
}

}  // namespace cantorix
