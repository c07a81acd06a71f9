// command.h - runs the built batch program and gives back all that it said; cases of it as rows of
// a table.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

namespace cantorix::batch {

using Words = std::vector<std::string>;

struct CommandResult {
  int exitCode = -1;  // -1 when a signal ended it
  std::string out;
  std::string err;
};

struct CommandHost {
  std::string input{};          // comes through a pipe
  std::size_t largestFile = 0;  // bytes; a larger one cannot be written; 0: no limit
  std::string program{};        // empty: cantorix-batch
};

using Table = std::vector<std::vector<std::string>>;

std::string FileText(const std::string& path);
// Carries out the commands of a file of the folder "expected", the lines that begin with "$", and
// compares what each says with what stands below it: its output, its errors behind "! " and its
// exit code in brackets where that is not 0. "@" stands for the folder of the test, "VOWELS" for
// the sample recording. With CANTORIX_RENEW_EXPECTED in the environment the file is written first:
// look at what changed.
void ExpectTranscript(const std::string& name, const std::string& folder = "no folder");
void PutFile(const std::string& path, const std::string& bytes);

CommandResult RunBatch(const Words& words, const CommandHost& host = {});
// The output of a command that succeeds.
std::string OutOf(const Words& words);
// The cells of a text of lines with tabs, the header line too.
Table TableOf(const std::string& text);
Words operator+(Words left, const Words& right);

std::string Filled(std::string text, const std::string& folder);

// A 16-bit WAV of the samples, every one in each of the channels; channel c counts from 0 and its
// samples are c higher. With the RIFF length as the program itself writes it.
std::string Wave(const std::vector<int>& samples, int rateHz, int channels = 1);

}  // namespace cantorix::batch
