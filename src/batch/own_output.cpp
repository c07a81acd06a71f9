// own_output.cpp - two paths are one file when they lead to the same place on the disk.
#include "batch/own_output.h"

#include <sys/stat.h>

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

// Of a regular file behind all links; nothing of what is none.
std::optional<OwnRecordings::Place> PlaceOf(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  return OwnRecordings::Place(status.st_dev, status.st_ino);
}

std::vector<OwnRecordings::Place> PlacesOf(const std::vector<std::string>& files) {
  std::vector<OwnRecordings::Place> places;
  for (const std::string& file : files) {
    if (const auto place = PlaceOf(file)) places.push_back(*place);
  }
  std::sort(places.begin(), places.end());
  return places;
}

}  // namespace

void OwnRecordings::RequireNone(const std::string& output) {
  if (request_.force) return;
  const std::optional<Place> place = PlaceOf(output);
  if (!place) return;
  if (!places_) places_ = PlacesOf(request_.files);
  if (std::binary_search(places_->begin(), places_->end(), *place)) {
    throw WrongUsage(output + " is one of the recordings; --force replaces it");
  }
}

bool MayReplace(const Request& request, const std::string& file) {
  return request.force || IsSameFile(request.output, file);
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
