// application.h - what the program holds once for all its documents. One object, made by the main
// function and passed by reference. start_up.h fills it; the commands beside it work on it.
#pragma once

#include <optional>
#include <string>

#include "app/log_table.h"
#include "app/recent_files.h"
#include "document/document_host.h"
#include "platform/workers.h"

namespace cantorix {

class ProfileStore;

// What the application is given by the program around it. All of it outlives the application.
struct ApplicationServices {
  ProfileStore& profile;
  Prompts& prompts;
  Progress& progress;
  const MemoryProbe& memory;
};

class Application {
 public:
  explicit Application(const ApplicationServices& services);
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  ProfileStore& profile() { return profile_; }
  Prompts& prompts() { return host.prompts; }

  Workers workers{ProcessorCount()};  // of all long analyses
  DocumentHost host;                  // of every document; holds the program directory
  std::string temporaryDirectory;     // undo and recording files; with a separator at its end
  RecentFiles recentFiles;
  std::optional<LogTable> log;  // open while it holds a table
  int lastFilterIndex = 1;      // of the File Open dialog, counted from 1

 private:
  ProfileStore& profile_;
};

}  // namespace cantorix
