// patient_io.h - reading and writing descriptors that may keep the program waiting, as pipes do,
// without becoming deaf to an interrupt meanwhile.
#pragma once

#include <atomic>
#include <cstddef>
#include <span>
#include <string_view>

namespace cantorix::batch {

// The longest wait before the next look at the interrupt.
inline constexpr int kMomentMs = 100;

// Each throws FileError when the descriptor fails, Abandoned when `interrupted` is set first.

void WriteAll(int descriptor, std::string_view text, const std::atomic<bool>& interrupted);
// Up to out.size() bytes; 0 only at the end.
std::size_t ReadSome(int descriptor, std::span<char> out, const std::atomic<bool>& interrupted);

}  // namespace cantorix::batch
