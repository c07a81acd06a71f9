// host_services.h - the clock and the memory of the machine it runs on.
#pragma once

#include <optional>
#include <string>

#include "platform/services.h"

namespace cantorix {

class HostClock : public Clock {
 public:
  double NowMs() const override;
  void SleepMs(double ms) override;
};

// Gives the system back what was freed, where the allocator keeps a stock of it.
void ReturnFreedMemory();

// Lets the allocator keep a stock of 16 MB of what is freed, for a program that takes the same
// again for file after file: otherwise the system takes and clears the pages anew for each.
void KeepFreedMemory();

// The local date and time, "20261121-143005".
std::string LocalTimeStamp();

// Grants a block that fits into what the kernel calls available memory, or is no larger than 1 MB,
// and into the address space that the process may use. The system lends more memory than it has, so
// a successful allocation alone would say nothing.
class HostMemoryProbe : public MemoryProbe {
 public:
  bool CanAllocate(std::uint64_t bytes) const override;
};

// The bytes of the "MemAvailable" line of a text like /proc/meminfo; nothing without such a line.
std::optional<std::uint64_t> AvailableBytes(const std::string& meminfo);

}  // namespace cantorix
