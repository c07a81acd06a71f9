// byte_sink.h - where a writer's bytes go, one stretch after the other: a file replaced safely, a
// plain temporary file, a test's memory. A sink throws FileError when it cannot take them.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <utility>

namespace cantorix {

struct FileStretch;

class ByteSink {
 public:
  using Write = std::function<void(std::span<const std::byte> bytes)>;
  // Takes `count` bytes of a file, which stays open until the last byte was written.
  using Take = std::function<void(const FileStretch& stretch, std::int64_t count)>;

  template <std::invocable<std::span<const std::byte>> Function>
  ByteSink(Function write) : write_(std::move(write)) {}  // NOLINT(google-explicit-constructor)
  // For a sink that the system can copy to by itself.
  ByteSink(Write write, Take take) : write_(std::move(write)), take_(std::move(take)) {}

  void operator()(std::span<const std::byte> bytes) const { write_(bytes); }
  // False: the sink takes no files, so the bytes have to be written.
  bool TakeFrom(const FileStretch& stretch, std::int64_t count) const {
    if (take_) take_(stretch, count);
    return take_ != nullptr;
  }

 private:
  Write write_;
  Take take_;
};

}  // namespace cantorix
