// file_error.cpp - the wording of file errors.
#include "platform/file_error.h"

#include <system_error>

namespace cantorix {

std::string SystemReason(int errorNumber) {
  return std::generic_category().message(errorNumber) + ".";
}

std::string CouldNotBeOpened(const std::string& path, const std::string& reason) {
  return path + " could not be opened. " + reason;
}

std::string CouldNotBeSaved(const std::string& path, const std::string& reason) {
  return path + " could not be saved. " + reason;
}

std::string SavedButPerhapsNotOnDisk(const std::string& path) {
  return path + " is saved, but perhaps not yet on disk: its folder could not be synced.";
}

}  // namespace cantorix
