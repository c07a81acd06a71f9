// grammar_saving.cpp - the verbs that write a recording.
#include <map>

#include "batch/grammar.h"
#include "batch/option_texts.h"

namespace cantorix::batch {
namespace {

void AddEmptyIntervals(CLI::App* app, LabelImport& import) {
  app->add_flag("--empty-intervals", import.emptyIntervals,
                "Intervals without text become labels, too");
}

void DeclareConvert(Grammar& grammar) {
  LabelImport& import = grammar.request().labelImport;
  auto* app =
      grammar.Declare(grammar.app(), "convert",
                      "Save as a native file (.qrv) or export as WAV (.wav)", Verb::kConvert);
  grammar.AddInput(app, "IN");
  grammar.AddSavedFile(app, "OUT", "File to write; its ending chooses the format");
  grammar.AddRange(app);
  auto* labels = app->add_option("--labels", import.file, "Label file whose labels are added")
                     ->type_name("FILE");
  app->add_option("--label-format", import.format, "Instead of the one that the label file shows")
      ->type_name("FORMAT")
      ->check(IsLabelFormat)
      ->needs(labels);
  AddEmptyIntervals(app, import);
}

// --format names the format of the label file, that of the recording, or both one after the other.
void AddBothFormats(Grammar& grammar, CLI::App* app) {
  Request& request = grammar.request();
  const auto take = [&request](const std::vector<std::string>& names) {
    for (const std::string& name : names) {
      const bool isWave = name == "wav";
      if (isWave || name == "qrv") {
        request.asWave = isWave;
      } else if (const std::string fault = IsLabelFormat(name); fault.empty()) {
        request.labelImport.format = name;
      } else {
        throw CLI::ValidationError("--format", fault);
      }
    }
  };
  app->add_option_function<std::vector<std::string>>(
         "--format", take,
         "Of the label file, instead of the one that it shows: " + LabelFormatKeys() +
             "; or qrv or wav: of the output")
      ->type_name("FORMAT")
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

// Plain text does not say what its numbers count, nor where its labels belong.
void RequireTierOfPlainText(const LabelImport& import) {
  if (import.unit && import.tier.empty()) throw CLI::RequiredError("--unit: --tier");
}

void DeclareImportLabels(Grammar& grammar) {
  LabelImport& import = grammar.request().labelImport;
  auto* app =
      grammar.Declare(grammar.app(), "import-labels",
                      "Add the labels of a file to the tiers of a recording", Verb::kImportLabels);
  app->parse_complete_callback([&import] { RequireTierOfPlainText(import); });
  grammar.AddInput(app, "FILE");
  app->add_option("LABELS", import.file, "Label file")->required();
  AddBothFormats(grammar, app);
  app->add_option("--tier", import.tier,
                  "Name of the tier for a file without tiers, or of the only one to take; one that "
                  "is not in use yet comes into use")
      ->type_name("NAME");
  const std::map<std::string, TimeStampUnit> units{{"s", TimeStampUnit::kSeconds},
                                                   {"ms", TimeStampUnit::kMilliseconds}};
  app->add_option("--unit", import.unit, "The file is plain text, TIME<tab>LABEL, with times in it")
      ->type_name("s|ms")
      ->transform(CLI::CheckedTransformer(units).description(""));
  const std::map<std::string, std::int32_t> sides{
      {"left", kAlignLeft}, {"center", kAlignCentre}, {"right", kAlignRight}};
  app->add_option("--justify", import.options.alignment, "Where the labels stand at their times")
      ->type_name("left|center|right")
      ->transform(CLI::CheckedTransformer(sides).description(""));
  app->add_flag("--line", import.options.addLine, "A vertical line at every label's time");
  AddEmptyIntervals(app, import);
  grammar.AddOutput(app, "-o,--output", "File to write")->type_name("OUT");
}

void DeclareEdit(Grammar& grammar) {
  auto* app = grammar.Declare(grammar.app(), "edit", "Edit a recording step by step", Verb::kEdit);
  grammar.AddInput(app, "FILE");
  grammar.AddSavedFile(app, "-o,--output", "File to write")->type_name("OUT");
  const auto add = [&request = grammar.request()](const std::vector<std::string>& texts) {
    for (const auto& text : texts) request.steps.push_back(ParseEditStep(text));
  };
  app->add_option_function<std::vector<std::string>>(
         "STEP", add,
         "select:MS:MS, cursor:MS, cut, copy, paste, clear, gain:PERCENT:REFERENCE, smooth, undo, "
         "label:TIER:MS:TEXT")
      ->required();
}

}  // namespace

void DeclareSaving(Grammar& grammar) {
  DeclareConvert(grammar);
  DeclareImportLabels(grammar);
  DeclareEdit(grammar);
}

}  // namespace cantorix::batch
