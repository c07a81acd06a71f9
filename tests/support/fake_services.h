// fake_services.h - host services under a test's control: profile, clock, memory, opener.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/services.h"

namespace cantorix {

class FakeProfileStore : public ProfileStore {
 public:
  std::optional<std::string> ReadText(const std::string& section,
                                      const std::string& entry) const override {
    const auto found = texts.find({section, entry});
    if (found == texts.end()) return std::nullopt;
    return found->second;
  }
  bool WriteText(const std::string& section, const std::string& entry,
                 const std::string& text) override {
    if (refusesWrites) return false;
    if (!losesWrites) texts[{section, entry}] = text;
    return true;
  }

  std::map<std::pair<std::string, std::string>, std::string> texts;
  bool refusesWrites = false;  // a write reports its failure
  bool losesWrites = false;    // a write reports success and keeps nothing
};

// Grants blocks of up to `limitBytes`.
class FakeMemoryProbe : public MemoryProbe {
 public:
  explicit FakeMemoryProbe(std::uint64_t limit = UINT64_MAX) : limitBytes(limit) {}
  bool CanAllocate(std::uint64_t bytes) const override { return bytes <= limitBytes; }

  std::uint64_t limitBytes;
};

// Stands still but for its sleeps, which take no real time.
class FakeClock : public Clock {
 public:
  double NowMs() const override { return nowMs; }
  void SleepMs(double ms) override {
    sleepsMs.push_back(ms);
    nowMs += ms;
  }

  double nowMs = 0.0;
  std::vector<double> sleepsMs;
};

// Succeeds from the call number `succeedsFrom` on, counted from 1.
class FakeOpener : public ShellOpener {
 public:
  bool Open(const std::string& path) override {
    opened.push_back(path);
    return static_cast<int>(opened.size()) >= succeedsFrom;
  }

  int succeedsFrom = 1;
  std::vector<std::string> opened;
};

}  // namespace cantorix
