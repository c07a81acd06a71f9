// fuzz_host.h - the program around a document under a fuzzer: nobody answers, nothing is kept.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <string>

#include "document/document_host.h"
#include "platform/progress.h"
#include "platform/quiet_prompts.h"
#include "platform/services.h"

namespace cantorix {

// Recordings of some size go to the disk store.
class FuzzMemory : public MemoryProbe {
 public:
  bool CanAllocate(std::uint64_t bytes) const override { return bytes < end; }

  std::uint64_t end = 512;
};

struct FuzzHost {
  FuzzHost() { host.documentsWriteConfiguration = false; }
  ~FuzzHost() {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }
  FuzzHost(const FuzzHost&) = delete;
  FuzzHost& operator=(const FuzzHost&) = delete;

  static std::string MakeFolder() {
    std::string path = std::filesystem::temp_directory_path() / "cantorix-fuzz-XXXXXX";
    if (::mkdtemp(path.data()) == nullptr) std::abort();
    return path;
  }

  const std::string folder = MakeFolder();
  QuietPrompts prompts;
  NoProgress progress;
  FuzzMemory memory;
  DocumentHost host{.prompts = prompts,
                    .progress = progress,
                    .memory = memory,
                    .programDirectory = folder,
                    .application = {}};
};

}  // namespace cantorix
