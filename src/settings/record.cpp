// record.cpp - moving values between a Settings object and the bytes of the record.
#include "settings/record.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <string>

#include "platform/bytes.h"
#include "platform/numbers.h"
#include "settings/settings.h"

namespace cantorix {
namespace {

constexpr std::size_t kVersionBytes = 16;
constexpr double kRateEnd = 50000.0;
constexpr std::int32_t kLeastPoints = 32;
constexpr std::int32_t kMostPoints = 8192;

void StoreField(std::span<std::byte> record, const Field& field, const Settings& settings) {
  const ConstFieldValue value = field.place.of(settings);
  switch (field.storage) {
    case Storage::kInt32:
      return StoreLittle(record, field.offset, *std::get<const std::int32_t*>(value));
    case Storage::kDouble:
      return StoreLittle(record, field.offset, *std::get<const double*>(value));
    case Storage::kTruncatedDouble:
      return StoreLittle(record, field.offset, TruncateToInt32(*std::get<const double*>(value)));
    case Storage::kText:
      return StoreText(record, field.offset, kFieldTextBytes, *std::get<const std::string*>(value));
  }
}

void LoadField(std::span<const std::byte> record, const Field& field, Settings& settings) {
  const FieldValue value = field.place.in(settings);
  switch (field.storage) {
    case Storage::kInt32:
      *std::get<std::int32_t*>(value) = LoadLittle<std::int32_t>(record, field.offset);
      return;
    case Storage::kDouble:
      *std::get<double*>(value) = LoadLittle<double>(record, field.offset);
      return;
    case Storage::kTruncatedDouble:
      *std::get<double*>(value) = LoadLittle<std::int32_t>(record, field.offset);
      return;
    case Storage::kText:
      // A slot without a NUL loses its last byte, as it would when written.
      *std::get<std::string*>(value) = std::string(
          CutText(LoadText(record, field.offset, kFieldTextBytes), kFieldTextBytes - 1));
      return;
  }
}

bool IsFftSize(std::int32_t points) {
  return points >= kLeastPoints && points <= kMostPoints &&
         std::has_single_bit(static_cast<std::uint32_t>(points));
}

// A double that is not finite takes the value of the same field in `defaults`.
void GuardDoubles(Settings& settings, const Settings& defaults) {
  for (const Field& field : Fields()) {
    if (field.storage == Storage::kInt32 || field.storage == Storage::kText) continue;
    double& value = *std::get<double*>(field.place.in(settings));
    if (!std::isfinite(value)) value = *std::get<const double*>(field.place.of(defaults));
  }
}

// More coefficients would be cut to this many, from a frame that is longer for nothing.
void GuardOrder(std::int32_t& order, std::int32_t usual) {
  constexpr std::int32_t kMostCoefficients = 400;
  if (order < 0 || order > kMostCoefficients) order = usual;
}

}  // namespace

Record EncodeRecord(const Settings& settings) {
  Record record{};
  StoreText(record, 0, kVersionBytes, kRecordVersion);
  for (const Field& field : Fields()) StoreField(record, field, settings);
  return record;
}

bool IsRecord(std::span<const std::byte> bytes) {
  return bytes.size() == kRecordBytes && LoadText(bytes, 0, kVersionBytes) == kRecordVersion;
}

bool DecodeRecord(std::span<const std::byte> bytes, Settings& settings) {
  if (!IsRecord(bytes)) return false;
  for (const Field& field : Fields()) LoadField(bytes, field, settings);
  GuardSettings(settings);
  return true;
}

bool PatchRecord(std::span<std::byte> bytes, SettingsDialog dialog, const Settings& settings) {
  if (!IsRecord(bytes)) return false;
  for (const Field& field : Fields()) {
    if (field.dialog == dialog) StoreField(bytes, field, settings);
  }
  return true;
}

std::optional<double> StoredReferenceRate(std::span<const std::byte> bytes) {
  if (!IsRecord(bytes)) return std::nullopt;
  const double rateHz = LoadLittle<double>(bytes, FindField("document.referenceRateHz")->offset);
  if (!IsUsableRate(rateHz)) return std::nullopt;
  return rateHz;
}

bool IsUsableRate(double rateHz) { return rateHz > 0.0 && rateHz < kRateEnd; }

void GuardSettings(Settings& settings) {
  const Settings defaults{{}, DefaultDocumentSettings()};
  GuardDoubles(settings, defaults);

  DocumentSettings& document = settings.document;
  const DocumentSettings& usual = defaults.document;
  if (!IsUsableRate(document.referenceRateHz)) document.referenceRateHz = usual.referenceRateHz;
  if (document.intensity.windowMs == 0.0) document.intensity.windowMs = usual.intensity.windowMs;
  if (document.intensity.stepMs == 0.0) document.intensity.stepMs = usual.intensity.stepMs;
  if (document.fftLpc.stepMs < 1) document.fftLpc.stepMs = usual.fftLpc.stepMs;
  GuardOrder(document.fftLpc.lpcOrder, usual.fftLpc.lpcOrder);
  GuardOrder(document.spectrogram.lpcOrder, usual.spectrogram.lpcOrder);
  if (!IsFftSize(document.fftLpc.points)) {
    document.fftLpc.points = usual.fftLpc.points;
    document.fftLpc.sizeIndex = usual.fftLpc.sizeIndex;
  }
  if (!IsFftSize(document.spectrogram.points)) {
    document.spectrogram.points = usual.spectrogram.points;
    document.spectrogram.sizeIndex = usual.spectrogram.sizeIndex;
  }
}

}  // namespace cantorix
