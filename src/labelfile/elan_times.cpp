// elan_times.cpp - times for slots that have none, and for annotations that refer.
#include <map>
#include <utility>

#include "labelfile/elan_document.h"

namespace cantorix {
namespace {

constexpr std::size_t kNone = ElanAnnotation::kNone;
using Indices = std::vector<std::size_t>;

// --- Slots ---

// The annotations of one tier by the slot that they begin at.
using Beginnings = std::map<std::pair<std::size_t, std::size_t>, std::size_t>;

Beginnings BeginningsOf(const ElanDocument& document) {
  Beginnings beginnings;
  for (std::size_t i = 0; i < document.annotations.size(); ++i) {
    const ElanAnnotation& annotation = document.annotations[i];
    if (!annotation.refers) beginnings.emplace(std::pair(annotation.tier, annotation.startSlot), i);
  }
  return beginnings;
}

// Gives the slots between two known times equal parts of what lies between.
void Divide(ElanDocument& document, const Indices& slots, double from, double to) {
  const auto parts = static_cast<double>(slots.size() + 1);
  for (std::size_t k = 0; k < slots.size(); ++k) {
    document.slots[slots[k]] = from + (to - from) * static_cast<double>(k + 1) / parts;
  }
}

// Annotations in a row, each beginning at the slot where the one before ends, from a slot with a
// time to the next one that has one. Slots in `passed` were tried already.
void FillChain(ElanDocument& document, const Beginnings& beginnings, const ElanAnnotation& first,
               std::vector<bool>& passed) {
  Indices open;
  std::size_t slot = first.endSlot;
  while (!document.slots[slot]) {
    if (passed[slot]) return;
    passed[slot] = true;
    open.push_back(slot);
    const auto next = beginnings.find({first.tier, slot});
    if (next == beginnings.end()) return;
    slot = document.annotations[next->second].endSlot;
  }
  Divide(document, open, *document.slots[first.startSlot], *document.slots[slot]);
}

// What is still open lies somewhere between its neighbours in the document's order.
void FillByOrder(ElanDocument& document) {
  Indices open;
  std::size_t known = kNone;
  for (std::size_t i = 0; i < document.slots.size(); ++i) {
    if (!document.slots[i]) {
      open.push_back(i);
      continue;
    }
    if (known != kNone) Divide(document, open, *document.slots[known], *document.slots[i]);
    open.clear();
    known = i;
  }
}

void FillSlots(ElanDocument& document) {
  const Beginnings beginnings = BeginningsOf(document);
  std::vector<bool> passed(document.slots.size(), false);
  for (const ElanAnnotation& annotation : document.annotations) {
    if (annotation.refers || !document.slots[annotation.startSlot]) continue;
    FillChain(document, beginnings, annotation, passed);
  }
  FillByOrder(document);
}

// --- References ---

struct Reference {
  std::size_t parent = kNone;
  std::size_t place = 0;     // among those of its tier that have the same parent
  std::size_t siblings = 1;  // it and they
};

class References {
 public:
  explicit References(const ElanDocument& document)
      : document_(document), references_(document.annotations.size()) {
    for (std::size_t i = 0; i < document.annotations.size(); ++i) {
      indices_.emplace(document.annotations[i].id, i);
    }
    std::map<std::pair<std::size_t, std::size_t>, Indices> families;
    for (std::size_t i = 0; i < document.annotations.size(); ++i) {
      const ElanAnnotation& annotation = document.annotations[i];
      if (!annotation.refers) continue;
      references_[i].parent = IndexOf(annotation.parentId);
      families[{annotation.tier, references_[i].parent}].push_back(i);
    }
    for (const auto& [key, family] : families) {
      if (key.second != kNone) Place(family);
    }
  }

  const Reference& operator[](std::size_t i) const { return references_[i]; }

 private:
  std::size_t IndexOf(const std::string& id) const {
    const auto found = indices_.find(id);
    return found == indices_.end() ? kNone : found->second;
  }

  // Each behind the one that it calls its previous; the first one begins, and what no chain reaches
  // stands at the end.
  void Place(const Indices& family) {
    std::map<std::size_t, std::size_t> next;
    std::map<std::size_t, bool> placed;
    for (const std::size_t i : family) placed[i] = false;
    Indices heads;
    for (const std::size_t i : family) {
      const std::size_t previous = IndexOf(document_.annotations[i].previousId);
      const bool follows = placed.contains(previous) && next.emplace(previous, i).second;
      if (!follows) heads.push_back(i);
    }
    heads.insert(heads.end(), family.begin(), family.end());
    std::size_t place = 0;
    for (const std::size_t head : heads) {
      for (std::size_t i = head; !placed[i];) {
        placed[i] = true;
        references_[i].place = place++;
        references_[i].siblings = family.size();
        const auto found = next.find(i);
        if (found != next.end()) i = found->second;
      }
    }
  }

  const ElanDocument& document_;
  std::unordered_map<std::string, std::size_t> indices_;
  std::vector<Reference> references_;
};

ElanSpan PartOf(const ElanSpan& whole, const Reference& reference) {
  const double length = whole.end - whole.start;
  const auto count = static_cast<double>(reference.siblings);
  const auto place = static_cast<double>(reference.place);
  return {whole.start + length * place / count, whole.start + length * (place + 1.0) / count};
}

}  // namespace

std::vector<std::optional<ElanSpan>> SpansOf(ElanDocument& document) {
  FillSlots(document);
  const References references(document);
  std::vector<std::optional<ElanSpan>> spans(document.annotations.size());
  std::vector<bool> visited(document.annotations.size(), false);
  for (std::size_t i = 0; i < document.annotations.size(); ++i) {
    // Up to an annotation whose span is settled, a cycle's own beginning included, and down again.
    Indices path;
    for (std::size_t at = i; at != kNone && !visited[at]; at = references[at].parent) {
      visited[at] = true;
      path.push_back(at);
    }
    for (; !path.empty(); path.pop_back()) {
      const std::size_t at = path.back();
      const ElanAnnotation& annotation = document.annotations[at];
      if (annotation.refers) {
        const std::size_t parent = references[at].parent;
        if (parent != kNone && spans[parent]) spans[at] = PartOf(*spans[parent], references[at]);
      } else if (document.slots[annotation.startSlot] && document.slots[annotation.endSlot]) {
        spans[at] = {*document.slots[annotation.startSlot], *document.slots[annotation.endSlot]};
      }
    }
  }
  return spans;
}

}  // namespace cantorix
