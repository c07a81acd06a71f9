// document_observer.h - who is told when a document changes: its views and analysis windows. One
// notice names everything that changed together.
#pragma once

#include <cstdint>

namespace cantorix {

enum class DocumentChange : std::uint32_t {
  kStretch = 1U << 0U,    // the visible stretch
  kCursor = 1U << 1U,     // cursor or selection
  kTracks = 1U << 2U,     // pitch or intensity were computed or dropped
  kLabels = 1U << 3U,     // labels or tiers
  kReference = 1U << 4U,  // the reference level of a channel
  kSamples = 1U << 5U,    // samples, and with them perhaps labels, length and stretch
  kSettings = 1U << 6U,   // an option dialog was confirmed, or a configuration loaded
  kTitle = 1U << 7U,      // path, title or the modified flag
};

// Any number of changes.
class DocumentChanges {
 public:
  constexpr DocumentChanges() = default;
  // A single change is a notice, too.
  constexpr DocumentChanges(DocumentChange change)  // NOLINT(google-explicit-constructor)
      : bits_(static_cast<std::uint32_t>(change)) {}

  constexpr bool empty() const { return bits_ == 0U; }
  // Whether any of `others` is among them.
  constexpr bool HasAny(DocumentChanges others) const { return (bits_ & others.bits_) != 0U; }
  constexpr bool Has(DocumentChange change) const { return HasAny(change); }
  // Whether there is something else than `others`.
  constexpr bool HasOther(DocumentChanges others) const { return (bits_ & ~others.bits_) != 0U; }

  constexpr DocumentChanges& operator|=(DocumentChanges others) {
    bits_ |= others.bits_;
    return *this;
  }
  constexpr bool operator==(const DocumentChanges&) const = default;

 private:
  std::uint32_t bits_ = 0U;
};

constexpr DocumentChanges operator|(DocumentChanges a, DocumentChanges b) { return a |= b; }
constexpr DocumentChanges operator|(DocumentChange a, DocumentChange b) {
  return DocumentChanges(a) | b;
}

class DocumentObserver {
 public:
  virtual ~DocumentObserver() = default;
  // `by` made the changes (it is not told itself); null when it was none of the observers. Throws
  // nothing.
  virtual void DocumentChanged(DocumentChanges changes, const DocumentObserver* by) = 0;
};

}  // namespace cantorix
