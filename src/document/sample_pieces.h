// sample_pieces.h - a recording out of which stretches are cut, as pieces of the whole one.
// A cut moves no sample, and what nobody looks at is never read.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/sample_source.h"

namespace cantorix {

class SamplePieces : public SampleSource {
 public:
  explicit SamplePieces(std::unique_ptr<SampleSource> whole);

  // Leaves out the samples [first, end), which must lie within [0, length()).
  void Remove(std::int64_t first, std::int64_t end);

  std::int64_t length() const override { return length_; }
  // Throws what the whole recording throws.
  std::span<const std::int16_t> View(std::int64_t start, std::int64_t count,
                                     std::vector<std::int16_t>& scratch) const override;
  // Nothing for a stretch of more than one piece.
  std::optional<FileStretch> InFile(std::int64_t start, std::int64_t count) const override;

 private:
  struct Piece {
    std::int64_t start;  // in the whole recording
    std::int64_t count;
  };
  // Where the samples [start, start + count) stand in the whole recording, if they follow there.
  std::optional<std::int64_t> InOnePiece(std::int64_t start, std::int64_t count) const;

  std::unique_ptr<SampleSource> whole_;
  std::vector<Piece> pieces_;
  std::int64_t length_;
};

}  // namespace cantorix
