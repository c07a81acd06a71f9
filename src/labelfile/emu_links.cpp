// emu_links.cpp - a walk down the links, each item once.
#include "labelfile/emu_links.h"

#include <algorithm>

namespace cantorix {
namespace {

void Widen(std::optional<SampleSpan>& span, const std::optional<SampleSpan>& part) {
  if (!part) return;
  if (!span) span = part;
  span->start = std::min(span->start, part->start);
  span->end = std::max(span->end, part->end);
}

}  // namespace

void LinkedItems::Add(std::optional<std::int64_t> id, const std::optional<SampleSpan>& own) {
  if (id) indices_.emplace(*id, own_.size());
  own_.push_back(own);
  below_.emplace_back();
}

void LinkedItems::Link(std::int64_t from, std::int64_t to) {
  const auto upper = indices_.find(from);
  const auto lower = indices_.find(to);
  if (upper == indices_.end() || lower == indices_.end()) return;
  below_[upper->second].push_back(lower->second);
}

std::vector<std::optional<SampleSpan>> LinkedItems::Spans() const {
  struct Step {
    std::size_t item;
    std::size_t next = 0;  // of the links below it
  };
  auto spans = own_;
  std::vector<bool> visited(own_.size(), false);
  for (std::size_t i = 0; i < own_.size(); ++i) {
    std::vector<Step> path;
    if (!visited[i]) path.push_back({i});
    visited[i] = true;
    while (!path.empty()) {
      Step& step = path.back();
      const auto& below = below_[step.item];
      if (own_[step.item] || step.next == below.size()) {
        path.pop_back();
        if (!path.empty() && !own_[path.back().item])
          Widen(spans[path.back().item], spans[step.item]);
        continue;
      }
      const std::size_t lower = below[step.next++];
      if (visited[lower]) {
        Widen(spans[step.item], spans[lower]);
      } else {
        visited[lower] = true;
        path.push_back({lower});
      }
    }
  }
  return spans;
}

}  // namespace cantorix
