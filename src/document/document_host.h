// document_host.h - what a document needs from the program around it. The application owns one.
#pragma once

#include <functional>
#include <string>

#include "settings/application_settings.h"

namespace cantorix {

class MemoryProbe;
class Progress;
class Prompts;
class Workers;

struct DocumentHost {
  Prompts& prompts;
  Progress& progress;
  const MemoryProbe& memory;
  std::string programDirectory;  // without a separator at its end
  ApplicationSettings application;
  double currentRateHz = 11025.0;  // channel 0's rate of the recording opened last
  double recordingRateHz = 11025.0;
  int channelEntries = 10;  // that a user can choose from when a file has more channels
  int storeCounter = 0;     // counted up before each disk-store name
  // Whether a closing document writes the configuration file.
  bool documentsWriteConfiguration = true;
  // Told of every path that a document was saved under by a name of the user's; may be empty.
  std::function<void(const std::string&)> rememberFile{};
  // Long recordings are read from their own files, without a copy: for programs that change no
  // sample and save over none.
  bool samplesStayInFile = false;
  // Recordings that belong in memory do, too, until they are taken there: for programs that save
  // over none and take them there before they change a sample.
  bool samplesAwaitChanges = false;
  // Whether an open for which the system keeps the program waiting can be cancelled, which takes a
  // thread for each: for a program that nothing else would end.
  bool opensApart = false;
  Workers* workers = nullptr;  // the threads that long analyses may take; null: the caller's alone
};

}  // namespace cantorix
