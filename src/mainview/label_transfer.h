// label_transfer.h - labels between a file of any format and the tiers of a recording. Nothing is
// changed before the caller has told the user what will not be kept.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "document/label.h"
#include "labelfile/fit_to_format.h"
#include "mainview/sonadex_view.h"

namespace cantorix {

struct LabelChoice {
  std::string tier;  // the only tier to take, or the one that a file without tiers becomes
  bool emptyIntervals = false;  // become labels without text
  std::int32_t alignment = kAlignLeft;
  bool addLine = false;
};

// What an import will do.
struct LabelImportPlan {
  struct Part {
    std::size_t slot;
    std::string name;
    std::vector<Label> labels;
  };
  std::vector<Part> parts;
  std::size_t labelCount = 0;
  std::vector<std::string> losses;  // a sentence for each thing that does not come in
};

// Each tier goes to the one in use that has its name, else to a free one, and never two to one.
// Labels outside the recording stay out, but for those that only the steps of the format's times
// carry there. Throws LabelFileError when the file has no tier of the chosen name.
LabelImportPlan PlanLabelImport(LabelFileRead read, const CChannel& channel,
                                const LabelChoice& choice);
// Adds the labels at the ends of their tiers, which come into use.
void AddLabels(CChannel& channel, LabelImportPlan plan);
// The same as one edit: adds the labels at the ends of their tiers, which come into use. Throws
// Abandoned, with nothing changed, when the undo file cannot be begun.
void CarryOut(CSonadexView& view, LabelImportPlan plan);

// The labels of the tiers in use, or of those with this name, as the format can hold them.
FittedLabels LabelsFor(const LabelFormat& format, const CSonadexDoc& document,
                       const std::string& tier, bool asIntervals);

// What the reader of a file has to know of the recording.
LabelReading ReadingFor(const CSonadexDoc& document);

// The sentences one behind the other.
std::string InOneLine(const std::vector<std::string>& sentences);

}  // namespace cantorix
