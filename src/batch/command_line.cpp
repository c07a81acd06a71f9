// command_line.cpp - the parser's own errors become lines of the program.
#include "batch/command_line.h"

#include <unistd.h>

#include <cstdio>
#include <exception>

#include "batch/grammar.h"
#include "measure/printable.h"

namespace cantorix::batch {
namespace {

// The parser allocates within functions of its own that may not throw: nothing else ends the
// program there. Nothing is open yet.
[[noreturn]] void EndForWantOfMemory() {
  std::fputs("cantorix-batch: There is not enough memory.\n", stderr);
  ::_exit(1);
}

class WhileParsing {
 public:
  WhileParsing() : before_(std::set_terminate(EndForWantOfMemory)) {}
  ~WhileParsing() { std::set_terminate(before_); }
  WhileParsing(const WhileParsing&) = delete;
  WhileParsing& operator=(const WhileParsing&) = delete;

 private:
  std::terminate_handler before_;
};

}  // namespace

CommandLine ParseCommandLine(int argc, const char* const* argv) {
  const WhileParsing guard;
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
