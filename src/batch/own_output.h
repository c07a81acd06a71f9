// own_output.h - keeping an output from taking the place of a recording that it was made from.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "batch/session.h"

namespace cantorix::batch {

// For tables: none may take the place of any recording of the run.
class OwnRecordings {
 public:
  // A device and a file's number on it.
  using Place = std::pair<std::uint64_t, std::uint64_t>;

  explicit OwnRecordings(const Request& request) : request_(request) {}

  // Throws WrongUsage, naming the file, unless --force is given.
  void RequireNone(const std::string& output);

 private:
  const Request& request_;
  // In ascending order; looked for with the first output that exists.
  std::optional<std::vector<Place>> places_;
};

// Whether what is made of the recording `file` may take its place.
bool MayReplace(const Request& request, const std::string& file);

// Throws WrongUsage, naming the file, unless --force is given. For a recording: it may take its own
// place, but not that of a foreign file, which would lose what only the foreign file can hold.
void RequireNotForeign(Session& session);

}  // namespace cantorix::batch
