// spectrogram_view.cpp - the computation, its failures, and what is left of it after an edit.
#include "analysisview/spectrogram_view.h"

#include <algorithm>
#include <new>
#include <tuple>

#include "platform/abandon.h"
#include "platform/numbers.h"
#include "platform/prompts.h"
#include "platform/services.h"

namespace cantorix {
namespace {

constexpr const char* kFormantFailure =
    "Error in evaluating the formants.\n"
    "Please make sure the number of coefficients are in the proper range.\n"
    "or turn off the formant tracking and repeat the process.";

// At the first picture of a window, and later.
constexpr const char* kNoDisplay =
    "Error in setting up display.\n"
    "This could be due to low memory. Please close some windows and try again.\n"
    "If the problem persists, please save work, close application and start again.";
constexpr const char* kLowMemory =
    "Low memory error\n"
    "Please close some windows and try again.\n"
    "If the problem persists, please save work, close application and start again.";

// Of the levels and formants; without an overflow for any size.
std::uint64_t PictureBytes(const SpectrogramSize& size) {
  const bool held = size.keepLevels && !size.takeLevels;
  const double rows = held ? size.rows * (size.keepSource ? 2.0 : 1.0) : 0.0;
  const double bytes = static_cast<double>(size.columns) * (rows * 8.0 + 18.0);
  return static_cast<std::uint64_t>(Truncate(bytes > 0.0 ? bytes : 0.0));
}

}  // namespace

bool CSpectrogramView::ComputeSpectrogram(const SampleRange& range, const SpectrogramSize& size) {
  const SpectrogramRequest request{.range = range,
                                   .totalSamples = channel().totalLength,
                                   .rateHz = channel().sampleRateHz,
                                   .columns = size.columns,
                                   .rows = size.rows,
                                   .keepLevels = size.keepLevels,
                                   .keepSource = size.keepSource,
                                   .takeLevels = size.takeLevels};
  spectrogram_ = {};
  ++computation_;
  ++levelsNumber_;
  range_ = range;
  shown_.reset();
  settings_ = document().settings.spectrogram;
  msPerSample_ = channel().msPerSample();
  wholeRecording_ = IsWholeRecording(range);
  Tried(false);
  if (!host().memory.CanAllocate(PictureBytes(size))) throw Abandoned(AbandonReason::kOutOfMemory);
  spectrogram_ = cantorix::ComputeSpectrogram(document().Samples(), request, settings_,
                                              host().progress, host().workers);
  if (spectrogram_.outcome == SpectrogramOutcome::kFormantFailure) {
    host().prompts.Message(kFormantFailure);
    throw Abandoned(AbandonReason::kFailed);
  }
  Tried(computed());
  cursorHz = std::min(cursorHz, spectrogram_.maxHz);
  PictureChanged();
  return computed();
}

bool CSpectrogramView::Show(const SampleRange& range) {
  markerSet = false;
  selectionShown = false;
  return ComputeOrSay(range, kNoDisplay);
}

// Memory that is short is said: a window that stays empty explains nothing.
bool CSpectrogramView::ComputeOrSay(const SampleRange& range, const char* lowMemory) {
  try {
    return ComputeSpectrogram(
        range, {.columns = wantedSize().columns, .rows = wantedSize().rows, .keepSource = true});
  } catch (const Abandoned& abandoned) {
    if (abandoned.reason() == AbandonReason::kOutOfMemory) host().prompts.Message(lowMemory);
    throw;
  } catch (const std::bad_alloc&) {
    host().prompts.Message(lowMemory);
    throw Abandoned(AbandonReason::kOutOfMemory);
  }
}

void CSpectrogramView::Update() {
  const SampleRange range = shown_ ? Remaining(*shown_, false) : Remaining(range_, wholeRecording_);
  if (!(range.length() > 0.0)) {
    spectrogram_ = {};
    return PictureChanged();
  }
  ComputeOrSay(range, kLowMemory);
}

bool CSpectrogramView::SettingsMatch() const {
  const auto computedWith = [](const SpectrogramSettings& s) {
    return std::tie(s.points, s.rangeHz, s.preEmphasis, s.trackFormants, s.lpcOrder);
  };
  const bool sameRange = settings_.dynamicRangeDb == document().settings.spectrogram.dynamicRangeDb;
  // With the source at hand a range needs no computation.
  return !computed() || ((sameRange || spectrogram_.source != nullptr) &&
                         computedWith(settings_) == computedWith(document().settings.spectrogram));
}

void CSpectrogramView::FollowDocument(DocumentChanges changes) {
  if (changes.Has(DocumentChange::kSamples)) {
    selectionShown = false;
    shown_.reset();
  }
  if (changes.Has(DocumentChange::kSettings)) FollowDynamicRange();
}

void CSpectrogramView::TakeStretch(const SampleRange& range) {
  shown_.reset();
  if (range != spectrogram_.range) shown_ = range;
}

void CSpectrogramView::FollowDynamicRange() {
  const std::int32_t wanted = document().settings.spectrogram.dynamicRangeDb;
  if (!computed() || !spectrogram_.source || settings_.dynamicRangeDb == wanted) return;
  ApplyDynamicRange(spectrogram_, wanted);
  settings_.dynamicRangeDb = wanted;
  ++levelsNumber_;
}

}  // namespace cantorix
