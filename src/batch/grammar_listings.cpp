// grammar_listings.cpp - the verbs that need no recording.
#include "batch/grammar.h"

#include "settings/settings.h"

namespace cantorix::batch {

void DeclareListings(Grammar& grammar) {
  Request& request = grammar.request();
  auto* config = grammar.app().add_subcommand("config", "The settings record");
  config->require_subcommand(1);
  auto* show = grammar.Declare(*config, "show", "Every field with its place, value and meaning",
                               Verb::kConfigShow);
  show->add_option("FILE", request.configFile, "Settings record (default: the defaults)");
  show->add_flag("--json", request.json, "One JSON object");
  grammar.AddSettings(show);
  auto* defaults =
      grammar.Declare(*config, "default", "Write the defaults as a settings record of 1152 bytes",
                      Verb::kConfigDefault);
  defaults->add_option("FILE,-o,--output", request.output, "File to write");
  grammar.AddSettings(defaults);

  auto* commands = grammar.Declare(grammar.app(), "commands",
                                   "The commands of the desktop: menu, text, key, when enabled, "
                                   "what they do",
                                   Verb::kCommands);
  commands->add_flag("--html", request.html, "As a page of the manual");
  commands->add_option("-o,--output", request.output, "File to write")->type_name("OUT");
}

}  // namespace cantorix::batch
