// command_line.cpp - the parser's own errors become lines of the program.
#include "batch/command_line.h"

#include <cstdio>

#include "batch/grammar.h"
#include "measure/printable.h"

namespace cantorix::batch {

CommandLine ParseCommandLine(int argc, const char* const* argv) {
  Grammar grammar;
  try {
    grammar.app().parse(argc, argv);
    return {grammar.Take(), 0};
  } catch (const CLI::Success& help) {
    grammar.app().exit(help);
    return {{}, 0};
  } catch (const CLI::Error& error) {
    std::fprintf(stderr, "cantorix-batch: %s (--help explains)\n", Printable(error.what()).c_str());
    return {{}, 2};
  }
}

}  // namespace cantorix::batch
