// quiet_host.h - the program around a document under a fuzzer: nobody answers, nothing is kept.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <optional>
#include <string>

#include "document/document_host.h"
#include "platform/progress.h"
#include "platform/prompts.h"
#include "platform/services.h"

namespace cantorix {

class NobodyThere : public Prompts {
 public:
  void Beep() override {}
  void Message(const std::string&) override {}
  Answer Ask(const std::string&, Buttons) override { return Answer::kCancel; }
  std::optional<FileChoice> ChooseFileToOpen(const FileRequest&) override { return {}; }
  std::optional<FileChoice> ChooseFileToSave(const FileRequest&) override { return {}; }
  std::optional<std::string> ChooseFolder(const std::string&) override { return {}; }
  std::optional<int> ChooseChannel(const std::string&, int) override { return 0; }
  std::optional<GenericParameters> AskGenericParameters(const GenericParameters&) override {
    return {};
  }
};

// Recordings of some size go to the disk store.
class LittleMemory : public MemoryProbe {
 public:
  bool CanAllocate(std::uint64_t bytes) const override { return bytes < 512; }
};

struct QuietHost {
  QuietHost() { host.documentsWriteConfiguration = false; }
  ~QuietHost() {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }
  QuietHost(const QuietHost&) = delete;
  QuietHost& operator=(const QuietHost&) = delete;

  static std::string MakeFolder() {
    std::string path = std::filesystem::temp_directory_path() / "cantorix-fuzz-XXXXXX";
    if (::mkdtemp(path.data()) == nullptr) std::abort();
    return path;
  }

  const std::string folder = MakeFolder();
  NobodyThere prompts;
  NoProgress progress;
  LittleMemory memory;
  DocumentHost host{.prompts = prompts,
                    .progress = progress,
                    .memory = memory,
                    .programDirectory = folder,
                    .application = {}};
};

}  // namespace cantorix
