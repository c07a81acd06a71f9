// field_table.h - the one table of the settings record: every field's name, place and storage.
// Reading, writing, patching, the command line and the generated pages all go through it; no other
// file knows an offset. Bytes that no field covers are written as zero and ignored on reading.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace cantorix {

struct Settings;

enum class Storage {
  kInt32,            // std::int32_t
  kDouble,           // double
  kTruncatedDouble,  // double, kept truncated in 32 bits
  kText,             // std::string in a NUL-terminated slot of kFieldTextBytes
};

// The dialog whose OK writes a field into the configuration file.
enum class SettingsDialog {
  kNone,  // written only with the whole record
  kRecordPlay,
  kDisplay,
  kZoom,
  kGain,
  kTiers,
  kFftLpc,
  kLog,
  kIntensity,
  kSpectrogram,
  kPitch,
};

inline constexpr std::size_t kFieldTextBytes = 64;

// Where a field's value lives in a Settings object.
using FieldValue = std::variant<std::int32_t*, double*, std::string*>;
using ConstFieldValue = std::variant<const std::int32_t*, const double*, const std::string*>;

// The two ways from a Settings object to a value of it.
struct FieldPlace {
  FieldValue (*in)(Settings&);
  ConstFieldValue (*of)(const Settings&);
};

struct Field {
  std::string_view group;  // first half of the name "GROUP.FIELD"
  std::string_view name;
  std::size_t offset;  // bytes from the start of the record
  Storage storage;
  SettingsDialog dialog;
  FieldPlace place;
  std::string_view unit;  // "" for switches, choices and texts
  std::string_view description;
};

// All fields in the order of their offsets.
std::span<const Field> Fields();

// The field called "GROUP.FIELD"; null when there is none.
const Field* FindField(std::string_view fullName);

// Bytes that the field takes in the record.
std::size_t StoredBytes(Storage storage);

}  // namespace cantorix
