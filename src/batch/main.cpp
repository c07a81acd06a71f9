// main.cpp - cantorix-batch: measures, converts and describes recordings without a display.
#include <unistd.h>

#include <exception>
#include <filesystem>
#include <new>
#include <string>

#include "batch/command_line.h"
#include "batch/console.h"
#include "batch/corpus_run.h"
#include "batch/file_queue.h"
#include "batch/interrupt.h"
#include "batch/measures.h"
#include "batch/outcome.h"
#include "batch/program_directory.h"
#include "batch/run.h"
#include "batch/run_settings.h"
#include "batch/stream_place.h"
#include "batch/verbs.h"
#include "mainview/leftover_files.h"
#include "platform/abandon.h"
#include "platform/host_services.h"

namespace cantorix::batch {
namespace {

// The verbs that need no recording.
Outcome WorkOnListing(const Run& run) {
  const Request& request = run.request;
  const bool intoFile = !request.output.empty() && !IsStream(request.output);
  const OutputStream stream(intoFile ? "" : request.output, run.interrupted);
  std::unique_ptr<TextSink> sink;
  if (intoFile) {
    sink = std::make_unique<FileSink>(request.output);
  } else {
    sink = std::make_unique<StreamSink>(stream.descriptor(), run.interrupted);
  }
  if (request.verb == Verb::kCommands) {
    ShowCommands(request.html, *sink);
  } else if (request.verb == Verb::kConfigShow) {
    ShowConfig(run.settings, request.json, *sink);
  } else {
    WriteConfig(run.settings, *sink);
  }
  if (run.interrupted) throw Abandoned(AbandonReason::kCancelled);
  sink->Finish();
  return Outcome::kDone;
}

Outcome WorkOnFiles(const Run& run) {
  Measure measure = MeasureFor(run.request);
  const std::string& output = run.request.output;
  const bool saves = WritesRecording(run.request.verb);
  auto outputs = saves ? std::vector<std::string>(1) : OutputPaths(run.request, measure.suffix);
  const OutputStream stream(saves || !IsStream(output) ? "" : output, run.interrupted);
  return FileQueue(run, std::move(measure), std::move(outputs), stream).Work();
}

// What killed runs left, where this one writes.
void ClearLeftovers(const Request& request, const std::string& programDirectory) {
  ClearTemporaryFiles(programDirectory, programDirectory + "/tmp/");
  if (request.output.empty()) return;
  const std::filesystem::path output = std::filesystem::absolute(request.output);
  std::error_code unknown;
  const bool isFolder = std::filesystem::is_directory(output, unknown);
  ClearUnfinishedSaves(isFolder ? output : output.parent_path());
}

Outcome Work(const Request& request, Console& console, const std::atomic<bool>& interrupted) {
  const ProgramDirectory programDirectory(request.programDirectory);
  ClearLeftovers(request, programDirectory.path());
  const Settings settings = RunSettings(request, programDirectory.path());
  const Run run{request, settings, programDirectory.path(), console, interrupted};
  if (request.verb == Verb::kCorpus) return WorkOnCorpus(run);
  return IsListing(request.verb) ? WorkOnListing(run) : WorkOnFiles(run);
}

int Main(int argc, const char* const* argv) {
  const auto& interrupted = WatchInterrupt();
  Console console(::isatty(STDERR_FILENO) != 0);
  Outcome outcome = Outcome::kFailed;
  try {
    AnswerWhileHanging();
    const CommandLine commandLine = ParseCommandLine(argc, argv);
    if (!commandLine.request) return commandLine.exitCode;
    console.Expect(commandLine.request->files.size());
    KeepFreedMemory();
    outcome = Work(*commandLine.request, console, interrupted);
  } catch (const WrongUsage& refusal) {
    console.Report({}, refusal.what());
    outcome = Outcome::kRefused;
  } catch (const Abandoned&) {
    console.Report({}, "interrupted");
  } catch (const std::bad_alloc&) {
    console.Report({}, "There is not enough memory.");
  } catch (const std::exception& error) {
    console.Report({}, error.what());
  }
  return static_cast<int>(outcome);
}

}  // namespace
}  // namespace cantorix::batch

int main(int argc, char** argv) { return cantorix::batch::Main(argc, argv); }
