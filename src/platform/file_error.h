// file_error.h - a file that could not be opened, read or written, with the reason in a sentence.
// Thrown by the file classes of this folder and by the format readers ("ends at byte 700 inside a
// label record"); shown where a command begins, as "<path> could not be opened. <reason>".
#pragma once

#include <stdexcept>
#include <string>

namespace cantorix {

class FileError : public std::runtime_error {
 public:
  // `reason` is one sentence with its full stop.
  explicit FileError(const std::string& reason) : std::runtime_error(reason) {}
};

// What would be written could not be read back, so nothing was.
class SaveRefused : public FileError {
 public:
  using FileError::FileError;
};

// The sentence for an errno value: "No such file or directory.".
std::string SystemReason(int errorNumber);

// The two file-error reports, whole.
std::string CouldNotBeOpened(const std::string& path, const std::string& reason);
std::string CouldNotBeSaved(const std::string& path, const std::string& reason);
// The warning after a save whose folder could not be synced.
std::string SavedButPerhapsNotOnDisk(const std::string& path);

}  // namespace cantorix
