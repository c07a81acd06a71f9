// log_documents.cpp - the questions and file dialogs around the one log.
#include "app/log_documents.h"

#include <filesystem>
#include <utility>

#include "app/log_file.h"
#include "platform/prompts.h"

namespace cantorix {
namespace {

constexpr const char* kLogFilter = "text files (*.txt)|*.txt||";
constexpr const char* kCsvFilter = "tables with commas (*.csv)|*.csv||";

FileRequest LogRequest(const char* title) {
  FileRequest request;
  request.title = title;
  request.filter = kLogFilter;
  request.hideReadOnly = true;
  return request;
}

bool IsExistingFile(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::exists(path, ignored);
}

}  // namespace

bool MayDropLog(Application& application) {
  const auto& log = application.log;
  if (!log || !log->isModified()) return true;
  const Answer answer = application.prompts().Ask(
      "Save Changes to ' " + log->title() + " ' before closing ?", Buttons::kYesNoCancel);
  if (answer == Answer::kYes) return SaveOpenLog(application);
  return answer == Answer::kNo;
}

bool NewLog(Application& application) {
  if (!MayDropLog(application)) return false;
  application.log.emplace();
  return true;
}

bool OpenLogFile(Application& application) {
  if (!MayDropLog(application)) return false;
  FileRequest request = LogRequest("Open a log file");
  request.fileMustExist = true;
  const auto choice = application.prompts().ChooseFileToOpen(request);
  if (!choice) return false;
  LogTable opened;
  if (!OpenLog(opened, choice->path, application.prompts())) return false;
  application.log = std::move(opened);
  return true;
}

bool SaveOpenLog(Application& application) {
  if (!application.log) return false;
  LogTable& log = *application.log;
  if (!log.path().empty()) return SaveLog(log, log.path(), application.prompts());
  FileRequest request = LogRequest("Save Log");
  request.proposedName = log.title();
  request.defaultExtension = "txt";
  request.overwritePrompt = true;
  const auto choice = application.prompts().ChooseFileToSave(request);
  return choice && SaveLog(log, choice->path, application.prompts());
}

bool SaveOpenLogAs(Application& application) {
  if (!application.log) return false;
  FileRequest request = LogRequest("Save As Text");
  request.overwritePrompt = true;
  request.fileMustExist = true;
  // Kept: Save As replaces a file that exists. A new file is made by the first Save of a new log.
  while (const auto choice = application.prompts().ChooseFileToSave(request)) {
    if (IsExistingFile(choice->path)) {
      return SaveLog(*application.log, choice->path, application.prompts());
    }
    application.prompts().Message("' " + choice->path +
                                  " ' does not exist. Choose a file that exists.");
  }
  return false;
}

bool ExportOpenLogAsCsv(Application& application) {
  if (!application.log) return false;
  FileRequest request = LogRequest("Export Log as CSV");
  request.filter = kCsvFilter;
  request.proposedName = std::filesystem::path(application.log->title()).stem().string() + ".csv";
  request.defaultExtension = "csv";
  request.overwritePrompt = true;
  const auto choice = application.prompts().ChooseFileToSave(request);
  return choice && ExportLogAsCsv(*application.log, choice->path, application.prompts());
}

bool CloseLog(Application& application) {
  if (!MayDropLog(application)) return false;
  application.log.reset();
  return true;
}

LogSink* OpenLogSink(Application& application) {
  return application.log ? &*application.log : nullptr;
}

}  // namespace cantorix
