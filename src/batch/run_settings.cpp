// run_settings.cpp - the layers that the settings of a run are made of.
#include "batch/run_settings.h"

#include "measure/option_limits.h"
#include "platform/file_error.h"
#include "settings/config_file.h"

namespace cantorix::batch {

Settings RunSettings(const Request& request, const std::string& programDirectory) {
  Settings settings;
  // A missing, short or foreign configuration file is no error, a record that was asked for is.
  DecodeRecord(ReadConfiguration(ConfigPath(programDirectory)), settings);
  const std::string& record = request.configFile;
  if (!record.empty() && !DecodeRecord(ReadConfiguration(record), settings)) {
    throw FileError(record + ": Error in reading the configuration file.");
  }
  ApplyAssignments(request, settings);
  if (request.memoryMinutes) settings.application.memoryMinutes = *request.memoryMinutes;
  return settings;
}

}  // namespace cantorix::batch
