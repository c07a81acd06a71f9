// byte_sink.h - where a writer's bytes go, one stretch after the other: a file replaced safely, a
// plain temporary file, a test's memory. A sink throws FileError when it cannot take them.
#pragma once

#include <cstddef>
#include <functional>
#include <span>

namespace cantorix {

using ByteSink = std::function<void(std::span<const std::byte>)>;

}  // namespace cantorix
