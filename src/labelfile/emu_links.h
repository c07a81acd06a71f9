// emu_links.h - the times of EMU's items: an item without samples of its own lasts as long as those
// together which it is linked to.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

namespace cantorix {

struct SampleSpan {
  double start = 0.0, end = 0.0;
};

class LinkedItems {
 public:
  // In the order in which Spans gives them; of items with the same number the first one counts.
  void Add(std::optional<std::int64_t> id, const std::optional<SampleSpan>& own);
  // From what is above to what is below.
  void Link(std::int64_t from, std::int64_t to);
  // Nothing for an item that leads to no samples; a circle of links ends where it began.
  std::vector<std::optional<SampleSpan>> Spans() const;

 private:
  std::vector<std::optional<SampleSpan>> own_;
  std::vector<std::vector<std::size_t>> below_;
  std::unordered_map<std::int64_t, std::size_t> indices_;
};

}  // namespace cantorix
