// record.h - the settings record: 1152 bytes, little-endian, opened by the version text.
// It is the configuration file and what the dialogs patch; field_table.h knows the places. Reading
// gives values that are safe to use, listed at GuardSettings.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "settings/field_table.h"

namespace cantorix {

inline constexpr std::size_t kRecordBytes = 1152;
inline constexpr std::string_view kRecordVersion = "2011.05.24.D";

using Record = std::array<std::byte, kRecordBytes>;

// The record of `settings`. Every byte outside the fields is 0.
Record EncodeRecord(const Settings& settings);

// Whether `bytes` is a record: its length and its version text.
bool IsRecord(std::span<const std::byte> bytes);

// Reads every field, guarded. False, with `settings` untouched, when `bytes` is no record.
// Writing what was read gives the same bytes for every record that EncodeRecord made.
bool DecodeRecord(std::span<const std::byte> bytes, Settings& settings);

// Replaces the fields that `dialog` writes by those of `settings`; every other byte stays. False,
// with nothing changed, when `bytes` is no record.
bool PatchRecord(std::span<std::byte> bytes, SettingsDialog dialog, const Settings& settings);

// The reference rate as it is stored, which may become the recording rate: nothing unless `bytes`
// is a record whose rate IsUsableRate.
std::optional<double> StoredReferenceRate(std::span<const std::byte> bytes);

// 0 < rateHz < 50000; false for NaN.
bool IsUsableRate(double rateHz);

// Puts the default in the place of each value that no dialog can produce and no analysis can use:
// a number that is not finite, an unusable reference rate, an intensity window or step of 0, an
// FFT/LPC step below 1 ms, an LPC order outside 0 ... 400, and an FFT size that is not a power of
// two from 32 to 8192 (with its index). A hostile value of any other field is harmless to keep: the
// analyses and windows limit what they read.
void GuardSettings(Settings& settings);

}  // namespace cantorix
