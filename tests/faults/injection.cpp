// injection.cpp - the calls themselves. They go straight to the system, so that no other layer, not
// even a sanitizer's, stands between a caller and the fault.
#undef _FILE_OFFSET_BITS  // both names of each call are defined here
#include "faults/injection.h"

#include <fcntl.h>
#include <link.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

namespace cantorix::faults {
namespace {

Fault armed;
std::atomic<bool> isArmed{false};
std::atomic<std::int64_t> counted{0};
std::atomic<std::int64_t> blocks{0};

bool Strikes(Call call) {
  if (!isArmed.load(std::memory_order_acquire) || armed.call != call) return false;
  const std::int64_t number = ++counted;
  return number == armed.at || (armed.sticky && armed.at > 0 && number > armed.at);
}

// Whether this call is to fail with errno; one that is to be short gets fewer bytes to move.
bool Fails(Call call, std::size_t* bytes = nullptr) {
  if (!Strikes(call)) return false;
  if (armed.isShort && bytes != nullptr) {
    *bytes = (*bytes + 1) / 2;
    return false;
  }
  errno = armed.errorNumber;
  return true;
}

template <typename... Arguments>
auto System(long number, Arguments... arguments) {
  return ::syscall(number, arguments...);
}

int Open(int folder, const char* path, int flags, va_list more) {
  const bool makes = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
  const mode_t mode = makes ? va_arg(more, mode_t) : 0;
  if (Fails(Call::kOpen)) return -1;
  return static_cast<int>(System(SYS_openat, folder, path, flags, mode));
}

}  // namespace

void Arm(const Fault& fault) {
  armed = fault;
  counted = 0;
  isArmed.store(true, std::memory_order_release);
}

std::int64_t Disarm() {
  isArmed.store(false, std::memory_order_release);
  return counted;
}

std::int64_t LiveBlocks() { return blocks; }

}  // namespace cantorix::faults

using namespace cantorix::faults;

// NOLINTBEGIN
#define FAULTS_OPEN(name, folder, ...)                     \
  int name(__VA_ARGS__ const char* path, int flags, ...) { \
    va_list more;                                          \
    va_start(more, flags);                                 \
    const int opened = Open(folder, path, flags, more);    \
    va_end(more);                                          \
    return opened;                                         \
  }
#define FAULTS_PLAIN(call, name, parameters, guarantee, ...) \
  int name parameters guarantee {                            \
    if (Fails(call)) return -1;                              \
    return static_cast<int>(System(__VA_ARGS__));            \
  }
#define FAULTS_MOVE(call, name, parameters, ...) \
  ssize_t name parameters {                      \
    if (Fails(call, &bytes)) return -1;          \
    return System(__VA_ARGS__);                  \
  }

extern "C" {

FAULTS_OPEN(open, AT_FDCWD, )
FAULTS_OPEN(open64, AT_FDCWD, )
#define FAULTS_COMMA ,
FAULTS_OPEN(openat, place, int place FAULTS_COMMA)
FAULTS_OPEN(openat64, place, int place FAULTS_COMMA)

// Lines of the programs on standard error get through: they are what is looked at.
ssize_t write(int file, const void* from, size_t bytes) {
  if (file != STDERR_FILENO && Fails(Call::kWrite, &bytes)) return -1;
  return System(SYS_write, file, from, bytes);
}
FAULTS_MOVE(Call::kWrite, pwrite, (int file, const void* from, size_t bytes, off_t at),
            SYS_pwrite64, file, from, bytes, at)
FAULTS_MOVE(Call::kWrite, pwrite64, (int file, const void* from, size_t bytes, off64_t at),
            SYS_pwrite64, file, from, bytes, at)
FAULTS_MOVE(Call::kWrite, copy_file_range,
            (int from, off64_t* fromAt, int to, off64_t* toAt, size_t bytes, unsigned how),
            SYS_copy_file_range, from, fromAt, to, toAt, bytes, how)
FAULTS_MOVE(Call::kRead, read, (int file, void* to, size_t bytes), SYS_read, file, to, bytes)
FAULTS_MOVE(Call::kRead, pread, (int file, void* to, size_t bytes, off_t at), SYS_pread64, file, to,
            bytes, at)
FAULTS_MOVE(Call::kRead, pread64, (int file, void* to, size_t bytes, off64_t at), SYS_pread64, file,
            to, bytes, at)

int fsync(int) { return Fails(Call::kSync) ? -1 : 0; }
int fdatasync(int) { return Fails(Call::kSync) ? -1 : 0; }
int syncfs(int) noexcept { return Fails(Call::kSync) ? -1 : 0; }

FAULTS_PLAIN(Call::kRename, rename, (const char* from, const char* to), noexcept, SYS_rename, from,
             to)
FAULTS_PLAIN(Call::kRename, renameat, (int at, const char* from, int in, const char* to), noexcept,
             SYS_renameat, at, from, in, to)
FAULTS_PLAIN(Call::kRename, renameat2,
             (int at, const char* from, int in, const char* to, unsigned how), noexcept,
             SYS_renameat2, at, from, in, to, how)
FAULTS_PLAIN(Call::kResize, ftruncate, (int file, off_t bytes), noexcept, SYS_ftruncate, file,
             bytes)
FAULTS_PLAIN(Call::kResize, ftruncate64, (int file, off64_t bytes), noexcept, SYS_ftruncate, file,
             bytes)
FAULTS_PLAIN(Call::kResize, fallocate, (int file, int mode, off_t at, off_t bytes), , SYS_fallocate,
             file, mode, at, bytes)
FAULTS_PLAIN(Call::kResize, fallocate64, (int file, int mode, off64_t at, off64_t bytes), ,
             SYS_fallocate, file, mode, at, bytes)
FAULTS_PLAIN(Call::kLock, flock, (int file, int how), noexcept, SYS_flock, file, how)
FAULTS_PLAIN(Call::kUnlink, unlink, (const char* path), noexcept, SYS_unlink, path)
FAULTS_PLAIN(Call::kUnlink, unlinkat, (int at, const char* path, int how), noexcept, SYS_unlinkat,
             at, path, how)

void* mmap(void* at, size_t bytes, int rights, int how, int file, off_t from) noexcept {
  if (Fails(Call::kMap)) return MAP_FAILED;
  return reinterpret_cast<void*>(System(SYS_mmap, at, bytes, rights, how, file, from));
}
void* mmap64(void* at, size_t bytes, int rights, int how, int file, off64_t from) noexcept {
  return mmap(at, bytes, rights, how, file, from);
}

}  // extern "C"

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)

void* operator new(std::size_t bytes) {
  void* const block = Fails(Call::kAllocate) ? nullptr : std::malloc(bytes == 0 ? 1 : bytes);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}
void* operator new[](std::size_t bytes) { return operator new(bytes); }
void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept {
  return Fails(Call::kAllocate) ? nullptr : std::malloc(bytes == 0 ? 1 : bytes);
}
void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }

#else

extern "C" {

extern char __executable_start, etext;
void* __libc_malloc(size_t bytes);
void* __libc_calloc(size_t count, size_t bytes);
void* __libc_realloc(void* block, size_t bytes);
void* __libc_memalign(size_t step, size_t bytes);
void __libc_free(void* block);

static void* Counted(void* block) {
  if (block != nullptr) ++blocks;
  return block;
}
// Whether the caller is this program or the C++ library for it. The readers' libraries are not
// meant: some of them fall over by themselves when a small block is refused.
static bool IsOwn(const void* caller) {
  static char* from = nullptr;
  static char* to = nullptr;
  static const auto find = [](dl_phdr_info* library, size_t, void*) {
    if (std::strstr(library->dlpi_name, "libstdc++") == nullptr) return 0;
    from = reinterpret_cast<char*>(library->dlpi_addr);
    for (int i = 0; i < library->dlpi_phnum; ++i) {
      const auto& part = library->dlpi_phdr[i];
      to = std::max(to, from + part.p_vaddr + part.p_memsz);
    }
    return 1;
  };
  if (from == nullptr) ::dl_iterate_phdr(find, nullptr);
  const auto* const place = static_cast<const char*>(caller);
  return (place >= from && place < to) || (place >= &__executable_start && place < &etext);
}
static bool Refused(const void* caller) {
  if (!isArmed || !IsOwn(caller) || !Strikes(Call::kAllocate)) return false;
  errno = ENOMEM;
  return true;
}

void* malloc(size_t bytes) {
  return Refused(__builtin_return_address(0)) ? nullptr : Counted(__libc_malloc(bytes));
}
void* calloc(size_t count, size_t bytes) {
  return Refused(__builtin_return_address(0)) ? nullptr : Counted(__libc_calloc(count, bytes));
}
void* realloc(void* block, size_t bytes) {
  if (Refused(__builtin_return_address(0))) return nullptr;
  void* const moved = __libc_realloc(block, bytes);
  return block == nullptr ? Counted(moved) : moved;
}
void* memalign(size_t step, size_t bytes) {
  return Refused(__builtin_return_address(0)) ? nullptr : Counted(__libc_memalign(step, bytes));
}
void* aligned_alloc(size_t step, size_t bytes) { return memalign(step, bytes); }
int posix_memalign(void** block, size_t step, size_t bytes) {
  *block = memalign(step, bytes);
  return *block == nullptr ? ENOMEM : 0;
}
void free(void* block) {
  if (block == nullptr) return;
  --blocks;
  __libc_free(block);
}

}  // extern "C"

#endif
// NOLINTEND
