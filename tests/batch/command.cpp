// command.cpp - pipes to the program's standard files, and its exit code.
#include "batch/command.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iomanip>
#include <iterator>
#include <optional>
#include <sstream>

#include "document/wav_fixture.h"
#include "support/file_size_limit.h"
#include "support/samples.h"
#include "support/temporary_folder.h"

namespace cantorix::batch {
namespace {

[[noreturn]] void Become(const Words& words, const CommandHost& host, int input,
                         const std::string& out, const std::string& err) {
  const std::string program = host.program.empty() ? CANTORIX_BATCH_PROGRAM : host.program;
  std::vector<char*> argv{const_cast<char*>("cantorix-batch")};
  for (const auto& word : words) argv.push_back(const_cast<char*>(word.c_str()));
  argv.push_back(nullptr);
  if (!std::freopen(out.c_str(), "wb", stdout) || !std::freopen(err.c_str(), "wb", stderr) ||
      ::dup2(input, STDIN_FILENO) < 0) {
    ::_exit(126);
  }
  std::optional<FileSizeLimit> limit;
  if (host.largestFile > 0) limit.emplace(host.largestFile);
  ::execv(program.c_str(), argv.data());
  ::_exit(127);
}

}  // namespace

std::string FileText(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void PutFile(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

CommandResult RunBatch(const Words& words, const CommandHost& host) {
  const TemporaryFolder folder;
  const std::string out = folder / "out";
  const std::string err = folder / "err";
  std::array<int, 2> pipe{};
  if (::pipe2(pipe.data(), O_CLOEXEC) != 0) return {};
  const pid_t child = ::fork();
  if (child == 0) Become(words, host, pipe[0], out, err);
  ::close(pipe[0]);
  EXPECT_EQ(::write(pipe[1], host.input.data(), host.input.size()), std::ssize(host.input));
  ::close(pipe[1]);
  int status = 0;
  ::waitpid(child, &status, 0);
  CommandResult result;
  if (WIFEXITED(status)) result.exitCode = WEXITSTATUS(status);
  result.out = FileText(out);
  result.err = FileText(err);
  return result;
}

std::string OutOf(const Words& words) {
  const CommandResult result = RunBatch(words);
  EXPECT_EQ(result.exitCode, 0) << testing::PrintToString(words) << result.err;
  return result.out;
}

Table TableOf(const std::string& text) {
  Table table;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    table.emplace_back();
    std::istringstream cells(line);
    for (std::string cell; std::getline(cells, cell, '\t');) table.back().push_back(cell);
  }
  return table;
}

Words operator+(Words left, const Words& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

std::string Filled(std::string text, const std::string& folder) {
  for (std::size_t at; (at = text.find('@')) != std::string::npos;) text.replace(at, 1, folder);
  return text;
}

void ExpectTranscript(const std::string& name, const std::string& folder) {
  const std::string path = SamplesDirectory() + "/../tests/batch/expected/" + name;
  const std::string approved = FileText(path);
  const std::string sample = SamplesDirectory() + "/vowels.qrv";
  std::string said;
  std::istringstream lines(approved);
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with('$')) continue;
    Words words;
    std::istringstream text(line.substr(1));
    for (std::string word; text >> std::quoted(word);) {
      words.push_back(word == "VOWELS" ? sample : Filled(word, folder));
    }
    const CommandResult result = RunBatch(words);
    said += line + '\n' + result.out;
    std::istringstream errors(result.err);
    std::vector<std::string> told;
    for (std::string error; std::getline(errors, error);) told.push_back("! " + error + '\n');
    // Files at one time tell their errors as they come.
    if (std::ranges::find(words, "-j") != words.end()) std::ranges::sort(told);
    for (const std::string& error : told) said += error;
    if (result.exitCode != 0) said += '[' + std::to_string(result.exitCode) + "]\n";
  }
  for (const auto& [shown, place] : {std::pair{"@", folder}, {"VOWELS", sample}}) {
    for (std::size_t at; (at = said.find(place)) != std::string::npos;) {
      said.replace(at, place.size(), shown);
    }
  }
  if (std::getenv("CANTORIX_RENEW_EXPECTED") != nullptr) return PutFile(path, said);
  EXPECT_EQ(said, approved) << name;
}

std::string Wave(const std::vector<int>& samples, int rateHz, int channels) {
  ByteBuilder data;
  for (const int sample : samples) {
    for (int c = 0; c < channels; ++c) data.I16({sample + c});
  }
  const auto file = fixture::Wav({.channels = channels, .rateHz = rateHz}, data.bytes);
  return {reinterpret_cast<const char*>(file.data()), file.size()};
}

}  // namespace cantorix::batch
