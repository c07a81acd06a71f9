// host_services.cpp - Linux behind the service interfaces.
#include "platform/host_services.h"

#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <ctime>
#include <fstream>
#include <iterator>
#include <limits>
#include <string_view>
#include <thread>

namespace cantorix {
namespace {

constexpr std::uint64_t kNoLimit = std::numeric_limits<std::uint64_t>::max();
// Less than the machine's account of its memory is out by while it is read.
constexpr std::uint64_t kLittle = std::uint64_t{1} << 20U;

std::uint64_t AvailableBytesNow() {
  std::ifstream stream("/proc/meminfo");
  const std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  if (const auto bytes = AvailableBytes(text)) return *bytes;
  // Without that file, the free pages: too careful, but safe.
  const long pages = ::sysconf(_SC_AVPHYS_PAGES);
  const long pageBytes = ::sysconf(_SC_PAGESIZE);
  if (pages < 0 || pageBytes < 0) return kNoLimit;
  return static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(pageBytes);
}

// Whether the address-space limit leaves room: pages are reserved without being touched.
bool FitsAddressSpace(std::size_t bytes) {
  void* const place =
      ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (place == MAP_FAILED) return false;
  ::munmap(place, bytes);
  return true;
}

}  // namespace

void ReturnFreedMemory() {
#ifdef __GLIBC__
  ::malloc_trim(0);
#endif
}

void KeepFreedMemory() {
#ifdef __GLIBC__
  constexpr int kKept = 1 << 24;
  constexpr int kOwnPages = 1 << 22;  // blocks of this size go back by themselves
  ::mallopt(M_TRIM_THRESHOLD, kKept);
  ::mallopt(M_MMAP_THRESHOLD, kOwnPages);
#endif
}

std::string LocalTimeStamp() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&now, &local);
  std::array<char, 32> text{};
  const std::size_t length = std::strftime(text.data(), text.size(), "%Y%m%d-%H%M%S", &local);
  return {text.data(), length};
}

double HostClock::NowMs() const {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration<double, std::milli>(now).count();
}

void HostClock::SleepMs(double ms) {
  if (ms > 0.0) std::this_thread::sleep_for(std::chrono::duration<double, std::milli>(ms));
}

bool HostMemoryProbe::CanAllocate(std::uint64_t bytes) const {
  if (bytes == 0) return true;
  if (bytes > std::numeric_limits<std::ptrdiff_t>::max()) return false;
  const bool isThere = bytes <= kLittle || bytes <= AvailableBytesNow();
  return isThere && FitsAddressSpace(static_cast<std::size_t>(bytes));
}

std::optional<std::uint64_t> AvailableBytes(const std::string& meminfo) {
  static constexpr std::string_view kLabel = "MemAvailable:";
  const std::size_t label = meminfo.find(kLabel);
  if (label == std::string::npos) return std::nullopt;
  const std::size_t digits = meminfo.find_first_not_of(" \t", label + kLabel.size());
  if (digits == std::string::npos) return std::nullopt;
  std::uint64_t kibibytes = 0;
  const char* const end = meminfo.data() + meminfo.size();
  const auto result = std::from_chars(meminfo.data() + digits, end, kibibytes);
  if (result.ec != std::errc() || kibibytes > kNoLimit / 1024) return std::nullopt;
  return kibibytes * 1024;
}

}  // namespace cantorix
