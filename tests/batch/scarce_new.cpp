// scarce_new.cpp - the batch program with an operator new that gives nothing more from a certain
// call on, counted from the beginning of main; CANTORIX_NEWS says how many succeed.
#include <cstdlib>
#include <new>

int CantorixBatchMain(int argc, char** argv);

namespace {

// Before main and after it there is no limit.
long long newsLeft = -1;

void* Allocate(std::size_t bytes) {
  if (newsLeft == 0) throw std::bad_alloc();
  if (newsLeft > 0) --newsLeft;
  void* const block = std::malloc(bytes == 0 ? 1 : bytes);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

}  // namespace

void* operator new(std::size_t bytes) { return Allocate(bytes); }
void* operator new[](std::size_t bytes) { return Allocate(bytes); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }

int main(int argc, char** argv) {
  const char* const news = std::getenv("CANTORIX_NEWS");
  newsLeft = news == nullptr ? -1 : std::atoll(news);
  const int code = CantorixBatchMain(argc, argv);
  newsLeft = -1;
  return code;
}
