// grammar_saving.cpp - the verbs that write a recording.
#include <map>

#include "batch/grammar.h"
#include "batch/option_texts.h"

namespace cantorix::batch {
namespace {

void DeclareConvert(Grammar& grammar) {
  auto* app =
      grammar.Declare(grammar.app(), "convert",
                      "Save as a native file (.qrv) or export as WAV (.wav)", Verb::kConvert);
  grammar.AddInput(app, "IN");
  grammar.AddSavedFile(app, "OUT", "File to write; its ending chooses the format");
  grammar.AddRange(app);
}

void DeclareImportLabels(Grammar& grammar) {
  LabelImport& import = grammar.request().labelImport;
  auto* app = grammar.Declare(grammar.app(), "import-labels",
                              "Add the labels of a text file of lines TIME<tab>LABEL to a tier",
                              Verb::kImportLabels);
  grammar.AddInput(app, "FILE");
  app->add_option("TEXT", import.textFile, "Label file")->required();
  app->add_option("--tier", import.tier,
                  "Name of the tier; one that is not in use yet comes into use")
      ->type_name("NAME")
      ->required();
  const std::map<std::string, TimeStampUnit> units{{"s", TimeStampUnit::kSeconds},
                                                   {"ms", TimeStampUnit::kMilliseconds}};
  app->add_option("--unit", import.options.unit, "Of the times")
      ->type_name("s|ms")
      ->required()
      ->transform(CLI::CheckedTransformer(units).description(""));
  const std::map<std::string, std::int32_t> sides{
      {"left", kAlignLeft}, {"center", kAlignCentre}, {"right", kAlignRight}};
  app->add_option("--justify", import.options.alignment, "Where the labels stand at their times")
      ->type_name("left|center|right")
      ->transform(CLI::CheckedTransformer(sides).description(""));
  app->add_flag("--line", import.options.addLine, "A vertical line at every label's time");
  grammar.AddSavedFile(app, "-o,--output", "File to write")->type_name("OUT");
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
