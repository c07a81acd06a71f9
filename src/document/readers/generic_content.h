// generic_content.h - a file of no known kind, read with what the user says of it.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "document/interleaved_samples.h"
#include "document/readers/ascii_numbers.h"
#include "platform/generic_parameters.h"

namespace cantorix {

// Where the samples of an integer-binary file stand.
InterleavedPlace BinaryPlace(const GenericParameters& parameters);

// The samples of a text file, one after the other.
class AsciiSamples {
 public:
  AsciiSamples(const File& file, const GenericParameters& parameters)
      : numbers_(file, parameters.headerBytes) {}

  // The next samples, rounded and clipped: fewer than out.size() only at the end. Throws what
  // AsciiNumbers throws.
  std::size_t Read(std::span<std::int16_t> out);
  // Numbers so far that no sample can be.
  std::int64_t clipped() const { return clipped_; }
  std::int64_t position() const { return numbers_.position(); }

 private:
  AsciiNumbers numbers_;
  std::int64_t clipped_ = 0;
};

// What a file would give, for the dialog.
class FilePreview : public GenericPreview {
 public:
  // `file` outlives the preview.
  explicit FilePreview(const File& file) : file_(file) {}
  GenericOutcome Try(const GenericParameters& parameters, int columns) override;

 private:
  GenericOutcome TryBinary(const GenericParameters& parameters, int columns) const;
  // A text is read once for a header size, however often the rate is changed.
  const GenericOutcome& TryText(const GenericParameters& parameters, int columns);

  const File& file_;
  std::optional<std::int32_t> textHeader_;
  GenericOutcome text_;
};

}  // namespace cantorix
