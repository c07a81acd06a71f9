// log_fuzz.cpp - arbitrary bytes as a log file: declined or read, and what was read stays the same
// through any number of saves as long as its lines stay short enough to be read.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "app/log_file.h"

namespace {

using namespace cantorix;

void Require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  LogTable log;
  if (ReadLogText(std::string(data, data + size), log) != LogReading::kRead) {
    Require(log.captions().size() == 2 && log.rows().empty());
    return 0;
  }
  for (const LogTable::Row& row : log.rows()) Require(row.size() <= log.captions().size());

  const std::string text = LogText(log);
  LogTable again;
  const LogReading reading = ReadLogText(text, again);
  Require(reading != LogReading::kNotALog);  // every line ends with a TAB
  if (reading == LogReading::kLineTooLong) return 0;
  Require(again.captions() == log.captions());
  Require(again.rows().size() == log.rows().size());
  Require(LogText(again) == text);
  return 0;
}
