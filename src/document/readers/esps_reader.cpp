// esps_reader.cpp - sampled data of ESPS and xwaves: a binary header in the byte order of the
// machine that wrote it, then records.
#include <algorithm>
#include <array>
#include <string>

#include "document/file_window.h"
#include "document/interleaved_samples.h"
#include "document/readers/readers.h"
#include "platform/file_error.h"

namespace cantorix {
namespace {

using std::string_view_literals::operator""sv;  // NOLINT: the analyser does not see its use

// Places in the header.
constexpr std::size_t kDataOffsetAt = 8;
constexpr std::size_t kMagicAt = 16;
constexpr std::size_t kFileTypeAt = 32;
constexpr std::size_t kRecordsAt = 124;
constexpr std::size_t kCountsAt = 132;  // of doubles, floats, longs, shorts and chars in a record
constexpr std::size_t kSubtypeAt = 188;
constexpr std::size_t kFixedBytes = 333;

constexpr int kFeatureFile = 13;
constexpr int kSampledData = 8;
constexpr std::uint32_t kMostHeaderBytes = std::uint32_t{1} << 20;
constexpr std::int32_t kMostChannels = 1024;

// What a record can be made of, in the order of the file. Floating-point numbers stand in sample
// units there.
constexpr std::array kCodings{SampleCoding::kFloat64InUnits, SampleCoding::kFloat32InUnits,
                              SampleCoding::kSigned32, SampleCoding::kSigned16,
                              SampleCoding::kSigned8};

struct EspsHeader {
  std::vector<std::byte> bytes;
  ByteOrder order = ByteOrder::kLowFirst;

  template <typename T>
  T At(std::size_t offset) const {
    return LoadIn<T>(order, bytes, offset);
  }
};

[[noreturn]] void Refuse(const char* why) {
  throw FileError(std::string("It is an ESPS file ") + why + ".");
}

EspsHeader HeaderOf(const File& file, ByteOrder order) {
  EspsHeader header{std::vector<std::byte>(kFixedBytes), order};
  file.ReadExactly(0, header.bytes);
  const auto dataOffset = header.At<std::uint32_t>(kDataOffsetAt);
  if (dataOffset < kFixedBytes || dataOffset > kMostHeaderBytes) {
    Refuse("whose header size is not possible");
  }
  header.bytes.resize(dataOffset);
  file.ReadExactly(0, header.bytes);
  return header;
}

// The item "record_freq" of the header, a double that is aligned to nothing.
double RateOf(const EspsHeader& header) {
  constexpr std::string_view kName = "record_freq\0"sv;
  constexpr std::size_t kValue = 6;  // behind a count and a type
  const auto start = header.bytes.begin() + kFixedBytes;
  const auto found =
      std::search(start, header.bytes.end(), kName.begin(), kName.end(),
                  [](std::byte b, char c) { return b == static_cast<std::byte>(c); });
  const auto value = static_cast<std::size_t>(found - header.bytes.begin()) + kName.size() + kValue;
  if (found == header.bytes.end() || value + sizeof(double) > header.bytes.size()) {
    Refuse("without a sample rate");
  }
  const auto rateHz = header.At<double>(value);
  if (!(rateHz > 0.0 && rateHz < 4.3e9)) Refuse("whose sample rate is not possible");
  return rateHz;
}

void RequireSound(const EspsHeader& header) {
  if (header.At<std::int16_t>(kFileTypeAt) != kFeatureFile) {
    Refuse("of an old type that cannot be read");
  }
  if (header.At<std::int16_t>(kSubtypeAt) != kSampledData) Refuse("that holds no sampled data");
}

struct Record {
  SampleCoding coding;
  std::int32_t channels;
};

Record RecordOf(const EspsHeader& header) {
  Record record{SampleCoding::kSigned16, 0};
  for (std::size_t i = 0; i < kCodings.size(); ++i) {
    const auto count = header.At<std::int32_t>(kCountsAt + 4 * i);
    if (count == 0) continue;
    if (count < 0 || count > kMostChannels) Refuse("whose record size is not possible");
    if (record.channels > 0) Refuse("with more than one type of number in a record");
    record = {kCodings[i], count};
  }
  if (record.channels == 0) Refuse("whose records hold no numbers");
  return record;
}

}  // namespace

bool ReadEsps(CSonadexDoc& document, const File& file) {
  if (file.Size() < static_cast<std::int64_t>(kFixedBytes)) return false;
  ByteOrder order = ByteOrder::kLowFirst;
  if (HasMagic(file, "\0\0\x6A\x1A"sv, kMagicAt)) {
    order = ByteOrder::kHighFirst;
  } else if (!HasMagic(file, "\x1A\x6A\0\0"sv, kMagicAt)) {
    return false;
  }
  const EspsHeader header = HeaderOf(file, order);
  RequireSound(header);
  const Record record = RecordOf(header);
  InterleavedPlace first{.coding = record.coding, .order = order};
  first.dataOffset = header.At<std::uint32_t>(kDataOffsetAt);
  first.frameBytes = static_cast<std::size_t>(record.channels) * WidthOf(record.coding);
  ForeignSound sound{.format = "ESPS/xwave", .coding = NameOf(record.coding, order)};
  sound.channels = record.channels;
  sound.rateHz = RateOf(header);
  sound.frames = FramesBehind(file, first.dataOffset, first.frameBytes);
  if (const auto records = header.At<std::int32_t>(kRecordsAt); records > 0) {
    sound.promised = records;
    sound.frames = std::min(*sound.frames, *sound.promised);
  }
  ReadInterleaved(document, file, sound, first);
  return true;
}

}  // namespace cantorix
