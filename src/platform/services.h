// services.h - the small services of the host: profile, clock, memory, opening a document.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace cantorix {

// The per-user profile: named texts in named sections.
class ProfileStore {
 public:
  virtual ~ProfileStore() = default;
  // Nothing where there is none. Throws FileError when what is there cannot be read.
  virtual std::optional<std::string> ReadText(const std::string& section,
                                              const std::string& entry) const = 0;
  // Returns false when the text could not be kept.
  virtual bool WriteText(const std::string& section, const std::string& entry,
                         const std::string& text) = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;
  virtual double NowMs() const = 0;  // monotonic, from an arbitrary start
  virtual void SleepMs(double ms) = 0;
};

class MemoryProbe {
 public:
  virtual ~MemoryProbe() = default;
  // Whether a block of `bytes` could be had now, without taking it.
  virtual bool CanAllocate(std::uint64_t bytes) const = 0;
};

// Opens a document with the program that the desktop keeps for it.
class ShellOpener {
 public:
  virtual ~ShellOpener() = default;
  virtual bool Open(const std::string& path) = 0;
};

}  // namespace cantorix
