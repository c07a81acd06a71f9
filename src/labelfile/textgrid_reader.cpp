// textgrid_reader.cpp - tiers out of the tokens. The counts that a file states are believed by
// nobody: a tier ends where the next one, or the file, begins or ends.
#include <cstddef>

#include "labelfile/format_readers.h"
#include "labelfile/lines.h"
#include "labelfile/textgrid_tokens.h"

namespace cantorix {
namespace {

// Throws unless the head is that of a TextGrid.
void PassHead(TextGridTokens& tokens) {
  const std::string fileType = tokens.TakeText("the file type");
  if (fileType.starts_with("Praat chronological")) {
    throw LabelFileError("a chronological TextGrid is not read; save it as a text file");
  }
  if (fileType != "ooTextFile" && fileType != "ooTextFile short") {
    RefuseLine(tokens.line(), Quoted(fileType) + " is no Praat text file");
  }
  const std::string object = tokens.TakeText("the object class");
  if (object != "TextGrid" && !object.starts_with("TextGrid ")) {
    throw LabelFileError("the file holds no TextGrid but " + Quoted(object));
  }
}

bool AtTier(const TextGridTokens& tokens) {
  const TextGridToken& token = tokens.Peek();
  return token.kind == TextGridToken::kText &&
         (token.text == "IntervalTier" || token.text == "TextTier");
}

TimedLabel TakeLabel(TextGridTokens& tokens, bool interval) {
  TimedLabel label;
  label.startS = tokens.TakeNumber("a time");
  label.endS = interval ? tokens.TakeNumber("the end of an interval") : label.startS;
  label.text = tokens.TakeText("the text of a label");
  return label;
}

void TakeTier(TextGridTokens& tokens, LabelFile& file) {
  LabelFileTier& tier = file.tiers.emplace_back();
  tier.intervals = tokens.TakeText("the class of a tier") == "IntervalTier";
  tier.name = tokens.TakeText("the name of a tier");
  tokens.TakeNumber("the start of a tier");
  tokens.TakeNumber("the end of a tier");
  const double stated = tokens.TakeNumber("the number of labels");
  while (tokens.Peek().kind == TextGridToken::kNumber) {
    tier.labels.push_back(TakeLabel(tokens, tier.intervals));
  }
  if (stated == static_cast<double>(tier.labels.size())) return;
  file.notes.push_back("Tier " + Quoted(tier.name) + " holds " +
                       CountOf(tier.labels.size(), "label") + ", but states another number.");
}

// A file that is cut gives what stands before the cut.
void TakeTiers(TextGridTokens& tokens, LabelFile& file) {
  try {
    const double stated = tokens.TakeNumber("the number of tiers");
    while (AtTier(tokens)) TakeTier(tokens, file);
    if (!tokens.AtEnd()) {
      RefuseLine(tokens.line(), "a tier was expected here");
    }
    if (stated == static_cast<double>(file.tiers.size())) return;
    file.notes.push_back("The file holds " + CountOf(file.tiers.size(), "tier") +
                         ", but states another number.");
  } catch (const LabelFileError&) {
    if (!tokens.AtEnd()) throw;
    file.notes.emplace_back("The file ends in the middle of a tier.");
  }
}

}  // namespace

LabelFile ReadTextGrid(std::string_view text, const LabelReading&) {
  if (text.starts_with("ooBinaryFile")) {
    throw LabelFileError("a binary TextGrid is not read; save it as a text file");
  }
  TextGridTokens tokens(text);
  PassHead(tokens);
  tokens.TakeNumber("the start of the TextGrid");
  tokens.TakeNumber("the end of the TextGrid");
  LabelFile file;
  const bool exists = tokens.Peek().kind == TextGridToken::kFlag && tokens.Take().text == "exists";
  if (exists) TakeTiers(tokens, file);
  return file;
}

}  // namespace cantorix
