// injection.h - lets the n-th allocation or the n-th call of the system of one kind fail, once or
// from then on. The program that links injection.cpp has its own versions of these calls; until a
// fault is armed they do what the C library's do, but that nothing is really synced to a disk.
// Without sanitizers every block that this program asks the C library for counts as an
// allocation, with them those of operator new, and blocks are not counted.
#pragma once

#include <cstdint>

namespace cantorix::faults {

enum class Call { kAllocate, kWrite, kRead, kOpen, kSync, kRename, kResize, kMap, kLock, kUnlink };
inline constexpr int kCalls = 10;

struct Fault {
  Call call = Call::kAllocate;
  std::int64_t at = 0;  // counted from 1; 0: none fails
  int errorNumber = 0;
  bool sticky = false;   // every later one of the kind fails, too
  bool isShort = false;  // not a failure: half of the bytes are read or written
};

// Counts from now on, in all threads.
void Arm(const Fault& fault);
// How many calls of the kind were counted; the fault is gone.
std::int64_t Disarm();

// Blocks that were allocated and not freed since the program began.
std::int64_t LiveBlocks();

}  // namespace cantorix::faults
