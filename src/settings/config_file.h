// config_file.h - the configuration file: the settings record in the program directory, and copies
// of it under names of the user's. The file is replaced as a whole, so that a reader sees the old
// one or the new one; reading takes no lock. Messages are left to the commands of the application.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "settings/record.h"

namespace cantorix {

// The program's own configuration file; empty, naming no file, without a program directory.
std::string ConfigPath(const std::string& programDirectory);

// The bytes of the file, at most kRecordBytes of them: of a longer file the first ones count.
// Nothing when the file cannot be read.
std::vector<std::byte> ReadConfiguration(const std::string& path);

// Each returns false, with an earlier file whole, when the file could not be written.
bool WriteConfiguration(const std::string& path, const Settings& settings);
bool WriteConfigurationBytes(const std::string& path, std::span<const std::byte> record);

// Replaces the fields of one dialog in the file. A file that is missing, short or of another
// version is left alone, and none is made. Returns whether the file was written.
bool PatchConfiguration(const std::string& path, SettingsDialog dialog, const Settings& settings);

}  // namespace cantorix
