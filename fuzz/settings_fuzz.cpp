// settings_fuzz.cpp - arbitrary bytes as a configuration file: read, written, patched.
// An input that is not of a record's length and version is made one, so that the fields are
// reached as well; the input as it stands must only be declined or taken without harm.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <span>

#include "platform/bytes.h"
#include "settings/field_text.h"
#include "settings/record.h"
#include "settings/settings.h"

namespace {

using namespace cantorix;

void Require(bool holds) {
  if (!holds) std::abort();
}

// What was read is written the same way ever after, and patching every dialog with the values that
// a record already holds is no change.
void CheckStable(const Settings& settings) {
  const Record once = EncodeRecord(settings);
  Settings again;
  Require(DecodeRecord(once, again));
  Require(EncodeRecord(again) == once);

  Record patched = once;
  for (const Field& field : Fields()) Require(PatchRecord(patched, field.dialog, again));
  Require(patched == once);
}

void CheckTexts(const Settings& settings) {
  Settings copy;
  for (const Field& field : Fields()) {
    const std::string name = std::string(field.group) + "." + std::string(field.name);
    Require(!SetFieldFromText(copy, name, FieldText(settings, field)));
  }
  Require(EncodeRecord(copy) == EncodeRecord(settings));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Settings settings;
  const auto bytes = std::as_bytes(std::span(data, size));
  const std::optional<double> rateHz = StoredReferenceRate(bytes);
  Require(!rateHz || IsUsableRate(*rateHz));
  if (DecodeRecord(bytes, settings)) CheckStable(settings);

  Record record{};
  std::copy_n(bytes.begin(), std::min(bytes.size(), record.size()), record.begin());
  StoreText(record, 0, 16, kRecordVersion);
  Require(DecodeRecord(record, settings));
  const double rateOfRecord = settings.document.referenceRateHz;
  Require(StoredReferenceRate(record).value_or(rateOfRecord) == rateOfRecord);
  CheckStable(settings);
  CheckTexts(settings);
  return 0;
}
