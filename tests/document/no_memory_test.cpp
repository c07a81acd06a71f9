// no_memory_test.cpp - a program that runs out of memory while a document, its files or its status
// window end goes on. The allocations of this test program are counted and refused on demand.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <optional>

#include "document/document_io.h"
#include "document/sample_store.h"
#include "platform/claimed_file.h"
#include "platform/leftovers.h"
#include "support/test_host.h"

namespace {

thread_local bool refuses = false;

}  // namespace

// NOLINTBEGIN(cppcoreguidelines-no-malloc,misc-new-delete-overloads)
void* operator new(std::size_t bytes) {
  if (!refuses) {
    if (void* const block = std::malloc(bytes == 0 ? 1 : bytes)) return block;
  }
  throw std::bad_alloc();
}
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
// NOLINTEND(cppcoreguidelines-no-malloc,misc-new-delete-overloads)

namespace cantorix {
namespace {

// Ends what it holds while there is no memory at all.
template <typename T>
void EndWithoutMemory(std::optional<T>& held) {
  refuses = true;
  held.reset();
  refuses = false;
}

TEST(WithoutMemory, EverythingEndsAllTheSame) {
  TestHost host;
  host.host.documentsWriteConfiguration = true;
  std::optional<CSonadexDoc> document(std::in_place, host.host);
  FillWithRamp(*document, 10.0);
  int counter = 0;
  document->HoldOnDisk(std::make_unique<SampleStore>(host.folder.path(), counter));
  EndWithoutMemory(document);
  EXPECT_TRUE(host.folder.Names().empty()) << "the store goes, the configuration is not written";

  std::optional<PrivateFolder> folder(std::in_place, "cantorix-ends-");
  const std::string path = folder->path();
  EndWithoutMemory(folder);
  const PrivateFolder next("cantorix-ends-");
  EXPECT_FALSE(std::filesystem::exists(path)) << "what stayed is cleared by the next one";

  std::optional<SafeFile> save(std::in_place, host.folder / "talk");
  EndWithoutMemory(save);
  EXPECT_TRUE(host.folder.Names().empty());
}

}  // namespace
}  // namespace cantorix
