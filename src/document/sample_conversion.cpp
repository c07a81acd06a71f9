// sample_conversion.cpp - one decoder per coding and one loop over them.
#include "document/sample_conversion.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace cantorix {
namespace {

// Bytes are read without a bound here: ConvertSamples has checked the last sample's place.
template <typename T>
T Load(const std::byte* at) {
  T value;
  std::memcpy(&value, at, sizeof value);
  return detail::SwappedIf(std::endian::native == std::endian::big, value);
}

struct Unsigned8 {
  static constexpr std::size_t kWidth = 1;
  static constexpr const char* kName = "Unsigned 8 bit PCM";
  static std::int16_t Decode(const std::byte* at) {
    return static_cast<std::int16_t>((std::to_integer<int>(*at) - 128) * 256);
  }
};

struct Signed8 {
  static constexpr std::size_t kWidth = 1;
  static constexpr const char* kName = "Signed 8 bit PCM";
  static std::int16_t Decode(const std::byte* at) {
    return static_cast<std::int16_t>(Load<std::int8_t>(at) * 256);
  }
};

struct Signed16 {
  static constexpr std::size_t kWidth = 2;
  static constexpr const char* kName = "Signed 16 bit PCM";
  static std::int16_t Decode(const std::byte* at) { return Load<std::int16_t>(at); }
};

// Dropping the low bytes is the arithmetic shift.
struct Signed24 {
  static constexpr std::size_t kWidth = 3;
  static constexpr const char* kName = "Signed 24 bit PCM";
  static std::int16_t Decode(const std::byte* at) { return Load<std::int16_t>(at + 1); }
};

struct Signed32 {
  static constexpr std::size_t kWidth = 4;
  static constexpr const char* kName = "Signed 32 bit PCM";
  static std::int16_t Decode(const std::byte* at) { return Load<std::int16_t>(at + 2); }
};

struct Float32 {
  static constexpr std::size_t kWidth = 4;
  static constexpr const char* kName = "32 bit float";
  static std::int16_t Decode(const std::byte* at) { return SampleFromFloat(Load<float>(at)); }
};

struct Float64 {
  static constexpr std::size_t kWidth = 8;
  static constexpr const char* kName = "64 bit float";
  static std::int16_t Decode(const std::byte* at) { return SampleFromFloat(Load<double>(at)); }
};

struct Float32InUnits {
  static constexpr std::size_t kWidth = 4;
  static constexpr const char* kName = "32 bit float in sample units";
  static std::int16_t Decode(const std::byte* at) { return SampleFromUnits(Load<float>(at)); }
};

struct Float64InUnits {
  static constexpr std::size_t kWidth = 8;
  static constexpr const char* kName = "64 bit float in sample units";
  static std::int16_t Decode(const std::byte* at) { return SampleFromUnits(Load<double>(at)); }
};

// Sign, three bits of segment and four of step, with every second bit inverted on the line. The
// value is the middle of its step: 13 bits, shifted up to 16.
struct ALaw {
  static constexpr std::size_t kWidth = 1;
  static constexpr const char* kName = "A-Law";
  static std::int16_t Decode(const std::byte* at) {
    const int code = std::to_integer<int>(*at) ^ 0x55;
    const int segment = code >> 4 & 7;
    const int step = (code & 15) * 16 + 8;
    const int magnitude = segment == 0 ? step : (step + 256) << (segment - 1);
    return static_cast<std::int16_t>((code & 0x80) != 0 ? magnitude : -magnitude);
  }
};

// The same fields, all bits inverted on the line. The segments meet through a bias of 33 in the 14
// bits of the code, 132 at 16 bits.
struct MuLaw {
  static constexpr std::size_t kWidth = 1;
  static constexpr const char* kName = "U-Law";
  static constexpr int kBias = 132;
  static std::int16_t Decode(const std::byte* at) {
    const int code = ~std::to_integer<int>(*at) & 0xFF;
    const int magnitude = (((code & 15) * 8 + kBias) << (code >> 4 & 7)) - kBias;
    return static_cast<std::int16_t>((code & 0x80) != 0 ? -magnitude : magnitude);
  }
};

// Calls `use` with the decoder of `coding`.
template <typename Use>
auto WithDecoder(SampleCoding coding, Use use) {
  switch (coding) {
    case SampleCoding::kUnsigned8:
      return use(Unsigned8{});
    case SampleCoding::kSigned8:
      return use(Signed8{});
    case SampleCoding::kSigned16:
      return use(Signed16{});
    case SampleCoding::kSigned24:
      return use(Signed24{});
    case SampleCoding::kSigned32:
      return use(Signed32{});
    case SampleCoding::kFloat32:
      return use(Float32{});
    case SampleCoding::kFloat64:
      return use(Float64{});
    case SampleCoding::kFloat32InUnits:
      return use(Float32InUnits{});
    case SampleCoding::kFloat64InUnits:
      return use(Float64InUnits{});
    case SampleCoding::kALaw:
      return use(ALaw{});
    case SampleCoding::kMuLaw:
      return use(MuLaw{});
  }
  throw std::logic_error("unknown sample coding");
}

// The same coding with its high byte first.
template <typename Decoder>
struct HighFirst {
  static std::int16_t Decode(const std::byte* at) {
    std::array<std::byte, Decoder::kWidth> low;
    std::reverse_copy(at, at + Decoder::kWidth, low.begin());
    return Decoder::Decode(low.data());
  }
};

template <typename Decoder>
void Convert(const std::byte* in, std::size_t strideBytes, std::span<std::int16_t> out) {
  for (std::size_t i = 0; i < out.size(); ++i) out[i] = Decoder::Decode(in + i * strideBytes);
}

}  // namespace

std::size_t WidthOf(SampleCoding coding) {
  return WithDecoder(coding, [](auto decoder) { return decltype(decoder)::kWidth; });
}

std::string NameOf(SampleCoding coding) {
  return WithDecoder(coding, [](auto decoder) { return decltype(decoder)::kName; });
}

std::string NameOf(SampleCoding coding, ByteOrder order) {
  if (WidthOf(coding) == 1) return NameOf(coding);
  return NameOf(coding) + (order == ByteOrder::kLowFirst ? ", low" : ", high") + " byte first";
}

void ConvertSamples(SampleCoding coding, std::span<const std::byte> in, std::size_t strideBytes,
                    std::span<std::int16_t> out, ByteOrder order) {
  if (out.empty()) return;
  detail::RequireInside((out.size() - 1) * strideBytes, WidthOf(coding), in.size());
  WithDecoder(coding, [&](auto decoder) {
    using Decoder = decltype(decoder);
    if (order == ByteOrder::kLowFirst) return Convert<Decoder>(in.data(), strideBytes, out);
    return Convert<HighFirst<Decoder>>(in.data(), strideBytes, out);
  });
}

}  // namespace cantorix
