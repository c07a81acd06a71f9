// command.cpp
#include "batch/command.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <iterator>

#include "support/temporary_folder.h"

namespace cantorix::batch {

std::string FileText(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

CommandResult RunBatch(const std::vector<std::string>& words) {
  const TemporaryFolder folder;
  const std::string out = folder / "out";
  const std::string err = folder / "err";
  const pid_t child = ::fork();
  if (child == 0) {
    std::vector<char*> argv{const_cast<char*>("cantorix-batch")};
    for (const auto& word : words) argv.push_back(const_cast<char*>(word.c_str()));
    argv.push_back(nullptr);
    if (!std::freopen(out.c_str(), "wb", stdout) || !std::freopen(err.c_str(), "wb", stderr)) {
      ::_exit(126);
    }
    ::execv(CANTORIX_BATCH_PROGRAM, argv.data());
    ::_exit(127);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  CommandResult result;
  if (WIFEXITED(status)) result.exitCode = WEXITSTATUS(status);
  result.out = FileText(out);
  result.err = FileText(err);
  return result;
}

}  // namespace cantorix::batch
