// elan_document.h - an ELAN document between its XML and its labels: annotations that hang on time
// slots, which may have no time of their own, or on other annotations.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace cantorix {

struct ElanAnnotation {
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  std::string id;
  std::string text;
  std::size_t tier = 0;
  // Of an annotation that is aligned: its slots.
  std::size_t startSlot = kNone, endSlot = kNone;
  // Of one that refers: names as they stand, which may be those of later ones or of none.
  std::string parentId, previousId;
  bool refers = false;
};

struct ElanDocument {
  std::vector<std::string> tierNames;
  std::vector<std::optional<double>> slots;  // times in the document's unit, in its order
  std::vector<ElanAnnotation> annotations;   // in the order of the file
};

struct ElanSpan {
  double start = 0.0, end = 0.0;  // in the document's unit
};

// When each annotation is. Slots without a time share the time between those that have one, those
// of a chain of annotations first; annotations that refer to one and the same divide its time in
// the order of PREVIOUS_ANNOTATION. Nothing for one that hangs on what does not exist, or on
// itself. Takes time in proportion to the number of annotations and slots.
std::vector<std::optional<ElanSpan>> SpansOf(ElanDocument& document);

}  // namespace cantorix
