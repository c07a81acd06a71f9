// dialog_answers.h - what the dialogs of labels and tiers are filled with and give back.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "document/label.h"
#include "document/label_import_options.h"
#include "document/tier.h"

namespace cantorix {

inline constexpr std::size_t kMaxTierNameBytes = 255;

// One line of the "Tiers Option" dialog.
struct TierSetup {
  std::string name;          // at most kMaxTierNameBytes bytes
  std::int32_t height = 20;  // pixels, 1 and more
  bool inUse = false;

  bool operator==(const TierSetup&) const = default;
};
using TierSetups = std::array<TierSetup, kTierCount>;

// A small dialog of text fields.
struct TextField {
  std::string label;  // a second one with the same letters needs another text
  std::string preset;
};
struct TextsQuestion {
  std::string title;
  std::vector<TextField> fields;
  std::string note;  // below them
};

struct LabelAnswer {
  Label label;
  bool remove = false;  // the user pressed Delete
};

struct LabelImportAnswer {
  std::string tierName;
  LabelImportOptions options;
};

struct LabelExportAnswer {
  std::string tierName;  // empty: all tiers in use
  LabelFileOptions options;
};

}  // namespace cantorix
