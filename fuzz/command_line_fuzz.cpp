// command_line_fuzz.cpp - any words, apart by line ends, as the command line of the batch program:
// refused with a reason, answered with help, or read into a request that can be carried out as far
// as its own values go. No file is looked at.
#include <cmath>
#include <string>
#include <vector>

#include "batch/grammar.h"
#include "fuzz_input.h"
#include "measure/option_limits.h"
#include "measure/wrong_usage.h"
#include "settings/record.h"
#include "settings/settings.h"

namespace {

using namespace cantorix;

std::vector<std::string> WordsIn(const std::uint8_t* data, std::size_t size) {
  std::vector<std::string> words{"cantorix-batch", ""};
  for (std::size_t i = 0; i < size; ++i) {
    if (data[i] == '\n') {
      words.emplace_back();
    } else if (data[i] != 0) {  // ends a word of a command line
      words.back() += static_cast<char>(data[i]);
    }
  }
  return words;
}

void CheckValues(const batch::Request& request) {
  using batch::Verb;
  Require(request.jobs >= 1 && request.jobs <= 256);
  Require(!request.channel || *request.channel >= 1);
  Require(!request.generic || (request.generic->rateHz > 0 && request.generic->headerBytes >= 0));
  Require(!request.memoryMinutes || *request.memoryMinutes >= 0);
  Require(request.columns > 0 && request.rows > 0 && request.displayPoints > 0);
  const bool isListing = request.verb == Verb::kConfigShow || request.verb == Verb::kCommands ||
                         request.verb == Verb::kConfigDefault;
  Require(isListing || !request.files.empty());
  for (const batch::EditStep& step : request.steps) {
    Require(std::isfinite(step.first) && std::isfinite(step.second) && !step.text.empty());
  }
}

void CheckSettings(const batch::Request& request) {
  Settings settings;
  try {
    ApplyAssignments(request, settings);
  } catch (const WrongUsage& refusal) {
    Require(refusal.what()[0] != '\0');
    return;
  }
  // What a command line may set, a record may hold.
  Settings guarded = settings;
  GuardSettings(guarded);
  Require(EncodeRecord(guarded) == EncodeRecord(settings));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::vector<std::string> words = WordsIn(data, size);
  std::vector<const char*> arguments;
  arguments.reserve(words.size());
  for (const std::string& word : words) arguments.push_back(word.c_str());
  batch::Grammar grammar;
  try {
    grammar.app().parse(static_cast<int>(arguments.size()), arguments.data());
  } catch (const CLI::Success&) {
    return 0;
  } catch (const CLI::Error& error) {
    Require(error.what()[0] != '\0' && error.get_exit_code() != 0);
    return 0;
  }
  const batch::Request request = grammar.Take();
  CheckValues(request);
  CheckSettings(request);
  return 0;
}
