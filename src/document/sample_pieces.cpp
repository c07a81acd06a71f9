// sample_pieces.cpp - few pieces, so they are looked through from the first one on.
#include "document/sample_pieces.h"

#include <algorithm>
#include <utility>

namespace cantorix {

SamplePieces::SamplePieces(std::unique_ptr<SampleSource> whole)
    : whole_(std::move(whole)), pieces_{{0, whole_->length()}}, length_(whole_->length()) {}

void SamplePieces::Remove(std::int64_t first, std::int64_t end) {
  std::vector<Piece> left;
  left.reserve(pieces_.size() + 1);
  std::int64_t at = 0;
  for (const Piece& piece : pieces_) {
    const auto before = std::clamp<std::int64_t>(first - at, 0, piece.count);
    const auto after = std::clamp<std::int64_t>(end - at, 0, piece.count);
    if (before > 0) left.push_back({piece.start, before});
    if (after < piece.count) left.push_back({piece.start + after, piece.count - after});
    at += piece.count;
  }
  pieces_ = std::move(left);
  length_ -= end - first;
}

std::optional<std::int64_t> SamplePieces::InOnePiece(std::int64_t start, std::int64_t count) const {
  std::int64_t at = 0;
  for (const Piece& piece : pieces_) {
    if (start < at + piece.count) {
      if (start + count > at + piece.count) return std::nullopt;
      return piece.start + (start - at);
    }
    at += piece.count;
  }
  return std::nullopt;
}

std::span<const std::int16_t> SamplePieces::View(std::int64_t start, std::int64_t count,
                                                 std::vector<std::int16_t>& scratch) const {
  if (const auto place = InOnePiece(start, count)) return whole_->View(*place, count, scratch);
  scratch.resize(static_cast<std::size_t>(count));
  std::int64_t at = 0;
  for (const Piece& piece : pieces_) {
    const std::int64_t first = std::max(start, at);
    const std::int64_t end = std::min(start + count, at + piece.count);
    if (first < end) {
      whole_->Read(piece.start + (first - at),
                   std::span(scratch).subspan(static_cast<std::size_t>(first - start),
                                              static_cast<std::size_t>(end - first)));
    }
    at += piece.count;
  }
  return scratch;
}

std::optional<FileStretch> SamplePieces::InFile(std::int64_t start, std::int64_t count) const {
  const auto place = InOnePiece(start, count);
  return place ? whole_->InFile(*place, count) : std::nullopt;
}

}  // namespace cantorix
