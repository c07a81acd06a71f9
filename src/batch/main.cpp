// main.cpp - cantorix-batch: measures, converts and describes recordings without a display.
#include <unistd.h>

#include <cstdio>
#include <stdexcept>
#include <string>

#include "batch/command_line.h"
#include "batch/console.h"
#include "batch/file_queue.h"
#include "batch/interrupt.h"
#include "batch/measures.h"
#include "batch/program_directory.h"
#include "batch/run_settings.h"
#include "batch/verbs.h"
#include "platform/file_error.h"

namespace cantorix::batch {
namespace {

enum ExitCode { kAllDone = 0, kSomeFailed = 1, kWrongUsage = 2 };

// The verbs that need no recording.
void WorkOnListing(const Request& request, const Settings& settings) {
  std::unique_ptr<TextSink> sink = std::make_unique<StandardOutputSink>();
  if (!request.output.empty()) sink = std::make_unique<FileSink>(request.output);
  if (request.verb == Verb::kCommands) {
    ShowCommands(request.html, *sink);
  } else if (request.verb == Verb::kConfigShow) {
    ShowConfig(settings, request.json, *sink);
  } else {
    WriteConfig(settings, *sink);
  }
  sink->Finish();
}

bool WorkOnFiles(const Run& run) {
  Measure measure = MeasureFor(run.request);
  auto outputs = WritesRecording(run.request.verb) ? std::vector<std::string>(1)
                                                   : OutputPaths(run.request, measure.suffix);
  return FileQueue(run, std::move(measure), std::move(outputs)).Work();
}

int Work(const Request& request, Console& console) {
  const auto& interrupted = WatchInterrupt();
  const ProgramDirectory programDirectory(request.programDirectory);
  const Settings settings = RunSettings(request, programDirectory.path());
  if (IsListing(request.verb)) {
    WorkOnListing(request, settings);
    return kAllDone;
  }
  const Run run{request, settings, programDirectory.path(), console, interrupted};
  return WorkOnFiles(run) ? kAllDone : kSomeFailed;
}

int Main(int argc, const char* const* argv) {
  const CommandLine commandLine = ParseCommandLine(argc, argv);
  if (!commandLine.request) return commandLine.exitCode;
  const Request& request = *commandLine.request;
  Console console(request.files.size(), ::isatty(STDERR_FILENO) != 0);
  try {
    return Work(request, console);
  } catch (const std::invalid_argument& error) {
    console.Report({}, error.what());
    return kWrongUsage;
  } catch (const std::exception& error) {
    console.Report({}, error.what());
    return kSomeFailed;
  }
}

}  // namespace
}  // namespace cantorix::batch

int main(int argc, char** argv) { return cantorix::batch::Main(argc, argv); }
