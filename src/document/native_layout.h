// native_layout.h - places and widths of the native sound-and-label file, for reading and writing
// alike. All numbers are little-endian; texts are NUL-terminated and zero-filled.
// The file is one file header, one channel header, then for each tier in use a tier header and its
// label records, then the samples and nothing more.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "document/channel.h"
#include "document/label.h"

namespace cantorix::native {

// File header.
inline constexpr std::size_t kFileHeaderBytes = 512;
inline constexpr const char* kMagic = "QRV_PC";
// The two kinds that Macintosh computers wrote, with their high bytes first.
inline constexpr const char* kMacMagic = "QRV_Mac";
inline constexpr const char* kMacXMagic = "QRVMACX";
inline constexpr std::size_t kMagicAt = 0;
inline constexpr std::size_t kMagicBytes = 8;
inline constexpr std::size_t kChannelCountAt = 8;  // u32, always 1

// Channel header.
inline constexpr std::size_t kChannelHeaderBytes = 248;
inline constexpr std::size_t kDurationAt = 0;     // f64, ms
inline constexpr std::size_t kRateAt = 8;         // f64, Hz
inline constexpr std::size_t kLengthAt = 16;      // f64, samples
inline constexpr std::size_t kValuesAt = 32;      // 4 x f64
inline constexpr std::size_t kBitsAt = 68;        // u32, written as 16
inline constexpr std::size_t kTiersInUseAt = 92;  // i32, 0 to 10
inline constexpr std::size_t kNameAt = 116;
inline constexpr std::size_t kNameBytes = 64;
inline constexpr std::size_t kCommentAt = 180;
inline constexpr std::size_t kCommentBytes = 68;

template <typename T>
struct ChannelField {
  std::size_t at;
  T CChannel::*member;
};

// Fields that the file holds as memory does.
inline constexpr std::array<ChannelField<double>, 4> kRealFields{{
    {kDurationAt, &CChannel::totalDurationMs},
    {kRateAt, &CChannel::sampleRateHz},
    {kLengthAt, &CChannel::totalLength},
    {24, &CChannel::referenceLevel},
}};
inline constexpr std::array<ChannelField<std::uint32_t>, 9> kWordFields{{
    {64, &CChannel::channelTag},
    {72, &CChannel::channelWord1},
    {76, &CChannel::channelWord2},
    {80, &CChannel::channelWord3},
    {96, &CChannel::channelWord4},
    {100, &CChannel::channelWord5},
    {104, &CChannel::channelWord6},
    {108, &CChannel::channelWord7},
    {112, &CChannel::channelWord8},
}};
// Doubles in memory that the file holds as i32, truncated.
inline constexpr std::array<ChannelField<double>, 2> kWholeFields{{
    {84, &CChannel::displayLow},
    {88, &CChannel::displayHigh},
}};

// A field of the channel header that no recording can have.
struct ImpossibleField {
  const char* name;
  std::size_t at;  // in the channel header
};
// The first of length, rate and duration that is impossible; nothing when all are possible.
std::optional<ImpossibleField> FindImpossible(double lengthSamples, double rateHz,
                                              double durationMs);

// Tier header.
inline constexpr std::size_t kTierHeaderBytes = 264;
inline constexpr std::size_t kTierNameAt = 0;
inline constexpr std::size_t kTierNameBytes = 256;
inline constexpr std::size_t kLabelCountAt = 256;  // i32
inline constexpr std::size_t kTierWordAt = 260;    // i32

// Label record.
inline constexpr std::size_t kLabelBytes = 368;
inline constexpr std::size_t kTimeAt = 0;        // f64, ms
inline constexpr std::size_t kVerticalAt = 8;    // f64
inline constexpr std::size_t kAlignmentAt = 16;  // i32
inline constexpr std::size_t kFlagAt = 20;       // i32
inline constexpr std::size_t kBoxAt = 24;        // 4 x i32
inline constexpr std::size_t kRedAt = 40;        // i32 each
inline constexpr std::size_t kGreenAt = 44;
inline constexpr std::size_t kBlueAt = 48;
inline constexpr std::size_t kFontAt = 52;  // FontDescription::kBytes
inline constexpr std::size_t kTextAt = 112;
inline constexpr std::size_t kTextBytes = 256;

}  // namespace cantorix::native
