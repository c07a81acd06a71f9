// log_entry.h - one row of the measurement log, and where rows go.
#pragma once

#include <string>
#include <vector>

namespace cantorix {

// The status text while rows are entered.
inline constexpr const char* kEnteringText = "Entering into the log...(Press mouse to cancel)";

struct LogEntry {
  std::string source;                // title of the document, at most 255 bytes
  std::string heading;               // kind of entry with the names of its values
  std::vector<std::string> columns;  // at most 100 texts of at most 255 bytes
};

class LogSink {
 public:
  virtual ~LogSink() = default;
  // Appends a row. Returns true when the user wants no more of them.
  virtual bool Append(const LogEntry& entry) = 0;
};

}  // namespace cantorix
