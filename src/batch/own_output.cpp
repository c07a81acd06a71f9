// own_output.cpp - two paths are one file when they lead to the same place on the disk.
#include "batch/own_output.h"

#include <algorithm>
#include <filesystem>

#include "batch/outcome.h"

namespace cantorix::batch {
namespace {

bool IsSameFile(const std::string& one, const std::string& other) {
  std::error_code unknown;
  return std::filesystem::is_regular_file(one, unknown) &&
         std::filesystem::equivalent(one, other, unknown);
}

}  // namespace

void RequireNoRecording(const Request& request, const std::string& output) {
  const auto isOutput = [&](const std::string& file) { return IsSameFile(output, file); };
  std::error_code unknown;
  if (request.force || !std::filesystem::exists(output, unknown)) return;
  if (std::any_of(request.files.begin(), request.files.end(), isOutput)) {
    throw WrongUsage(output + " is one of the recordings; --force replaces it");
  }
}

void RequireNotForeign(Session& session) {
  const Request& request = session.request();
  if (request.force || !session.document().foreignSource) return;
  if (IsSameFile(request.output, session.file())) {
    throw WrongUsage(request.output +
                     " is the recording itself, and no native file; --force replaces it");
  }
}

}  // namespace cantorix::batch
