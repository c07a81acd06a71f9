// grammar_corpus.cpp - the verb for a whole corpus.
#include "batch/grammar.h"
#include "measure/corpus_tables.h"

namespace cantorix::batch {

void DeclareCorpus(Grammar& grammar) {
  Request& request = grammar.request();
  CorpusRequest& corpus = request.corpus;
  auto* app = grammar.Declare(grammar.app(), "corpus",
                              "Long tables of many recordings: what is measured at their labels, "
                              "over the stretch to the next label and at points of it",
                              Verb::kCorpus);
  app->add_option("SOURCE", request.files,
                  "Folders, recordings, or one table (.tsv, .csv) with a column of paths")
      ->required();
  app->add_option("--do", corpus.tables, "pitch, intensity, formants, labels, with commas")
      ->type_name("LIST")
      ->required();
  app->add_option("-o,--output", request.output, "Folder for the tables and failed.tsv")
      ->type_name("FOLDER")
      ->required();
  app->add_flag("--resume", corpus.resume, "Go on with a run that was interrupted or killed");
  app->add_flag("--force", request.force, "Throw an earlier run in the folder away");
  grammar.AddJobs(app, "Recordings at a time");
  app->add_option("--points", corpus.points, "Of each stretch, in the middle of equal parts")
      ->capture_default_str()
      ->type_name("N")
      ->check(CLI::Range(0, kMostCorpusPoints));
  app->add_option("--labels", corpus.labelEnding,
                  "Ending of the label files beside the recordings: TextGrid")
      ->type_name("ENDING");
  app->add_option("--column", corpus.column, "Of the table: that of the paths (default: the first)")
      ->type_name("NAME");
  app->add_flag("--exact", request.exact, "17 significant digits instead of one decimal");
  grammar.Sets(app, {"lpc", "spectrogram.lpcOrder",
                     "LPC coefficients of the formants; auto: one for each kHz of the "
                     "recording's rate and two more",
                     ParameterRule::kLpcOrder});
  grammar.AddOpening(app);
}

}  // namespace cantorix::batch
