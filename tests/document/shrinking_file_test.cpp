// shrinking_file_test.cpp - files that lose bytes while they are read, and a disk store that does:
// what was promised is there, or the user is told. Nothing of a file is mapped into memory, so that
// no signal can come of it.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "analysis/intensity.h"
#include "document/document_io.h"
#include "document/sample_store.h"
#include "platform/file_error.h"
#include "platform/quiet_prompts.h"
#include "settings/settings.h"
#include "support/samples.h"

namespace cantorix {
namespace {

// Cuts a file when the reading of its samples begins.
class CuttingProgress : public NoProgress {
 public:
  void Begin(std::string_view, double) override {
    if (!path.empty()) std::filesystem::resize_file(path, left);
  }

  std::string path;
  std::uintmax_t left = 0;  // bytes
};

// Counts what the user is told.
class ToldOfLoss : public QuietPrompts {
 public:
  void Message(const std::string&) override { ++messages; }

  int messages = 0;
};

struct OpenedShrunk {
  bool isOpen = false;
  Values samples;
};

OpenedShrunk Open(DocumentHost& host, const std::string& path) {
  CSonadexDoc document(host);
  if (!document.OnOpenDocument(path)) return {};
  return {true, SamplesOf(document)};
}

TEST(ShrinkingFile, IsReadWholeOrTheUserIsTold) {
  TestHost program;
  ToldOfLoss user;
  CuttingProgress progress;
  const std::string path = program.folder / "talk";
  int cut = 0;
  for (const auto& entry :
       std::filesystem::directory_iterator(SamplesDirectory() + "/../tests/document/recordings")) {
    DocumentHost host{.prompts = user,
                      .progress = progress,
                      .memory = program.memory,
                      .programDirectory = program.folder.path(),
                      .application = {},
                      .documentsWriteConfiguration = false};
    progress.path.clear();
    const OpenedShrunk whole = Open(host, entry.path());
    if (!whole.isOpen) continue;
    for (const auto& [minutes, percent] : {std::pair{5, 0U}, {5, 50U}, {0, 0U}, {0, 90U}}) {
      host.application.memoryMinutes = minutes;
      std::filesystem::copy_file(entry, path, std::filesystem::copy_options::overwrite_existing);
      progress.path = path;
      progress.left = std::filesystem::file_size(path) * percent / 100;
      user.messages = 0;
      const OpenedShrunk opened = Open(host, path);
      const bool isSame = opened.isOpen && opened.samples == whole.samples;
      EXPECT_TRUE(isSame || user.messages > 0) << entry << " cut to " << percent << " %";
      if (!isSame) ++cut;
    }
  }
  EXPECT_GT(cut, 150);
}

TEST(ShrinkingStore, IsToldByWhoReadsIt) {
  TestHost host;
  CSonadexDoc document(host.host);
  FillWithRamp(document, 3000.0);
  auto store = std::make_unique<SampleStore>(host.folder.path(), host.host.storeCounter);
  store->Append(Values(3000, 7));
  document.HoldOnDisk(std::move(store));
  const std::string path = document.store()->path();
  ASSERT_EQ(::truncate(path.c_str(), 1000), 0);
  const SampleRange whole{0.0, 3000.0};
  EXPECT_THROW(SaveNative(document, host.folder / "saved", std::nullopt), FileError);
  EXPECT_THROW(ExportWave(document, host.folder / "saved", std::nullopt), FileError);
  EXPECT_THROW(ComputeIntensity(document.Samples(), whole, 8000.0, {}, host.progress), FileError);
  EXPECT_FALSE(std::filesystem::exists(host.folder / "saved"));
  std::filesystem::remove(path);
  EXPECT_THROW(SaveNative(document, host.folder / "saved", std::nullopt), FileError);
}

TEST(VanishedStore, GoesOnToBeReadAndTakesNoOtherFileAlong) {
  TestHost host;
  std::string path;
  {
    CSonadexDoc document(host.host);
    FillWithRamp(document, 3000.0);
    auto store = std::make_unique<SampleStore>(host.folder.path(), host.host.storeCounter);
    store->Append(Values(3000, 7));
    document.HoldOnDisk(std::move(store));
    path = document.store()->path();
    std::filesystem::remove(path);
    WriteBytes(path, Bytes(1));
    EXPECT_EQ(SamplesOf(document), Values(3000, 7));
    SaveNative(document, host.folder / "saved", std::nullopt);
  }
  EXPECT_EQ(std::filesystem::file_size(path), 1U) << "somebody else's by now";
  EXPECT_EQ(std::filesystem::file_size(host.folder / "saved"), 512U + 248U + 6000U);
}

}  // namespace
}  // namespace cantorix
