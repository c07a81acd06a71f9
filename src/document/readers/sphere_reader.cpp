// sphere_reader.cpp - NIST SPHERE: a header of text lines, then plain samples.
// Programs write the fields in many orders and some of their types wrongly, so each is looked up by
// its name and read as what it has to be.
#include <algorithm>
#include <map>
#include <string>

#include "document/file_window.h"
#include "document/interleaved_samples.h"
#include "document/readers/readers.h"
#include "platform/file_error.h"
#include "platform/numbers.h"

namespace cantorix {
namespace {

constexpr std::int64_t kFirstFieldAt = 16;
constexpr std::int64_t kMostSphereBytes = std::int64_t{1} << 20;

using Fields = std::map<std::string, std::string, std::less<>>;

std::int64_t HeaderBytes(const File& file) {
  std::array<std::byte, kFirstFieldAt> opening{};
  file.ReadSome(0, opening);
  const double bytes = LeadingNumber(LoadText(opening, 8, 8));
  if (!(bytes > kFirstFieldAt && bytes <= kMostSphereBytes)) {
    throw FileError("The header size at byte 8 is not possible.");
  }
  return Truncate(bytes);
}

// "name -type value", one to a line; the value reaches to the end of the line.
void TakeField(std::string_view line, Fields& fields) {
  if (line.starts_with(';')) return;
  const std::size_t type = line.find(" -");
  if (type == std::string_view::npos) return;
  const std::size_t value = line.find(' ', type + 1);
  if (value == std::string_view::npos) return;
  std::string_view text = line.substr(value + 1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  fields.emplace(line.substr(0, type), text);
}

Fields FieldsOf(const File& file, std::int64_t headerBytes) {
  std::string header(static_cast<std::size_t>(headerBytes - kFirstFieldAt), '\0');
  header.resize(file.ReadSome(kFirstFieldAt, std::as_writable_bytes(std::span(header))));
  Fields fields;
  std::string_view rest = header;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    const std::string_view line = rest.substr(0, end);
    if (line.starts_with("end_head")) break;
    TakeField(line, fields);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return fields;
}

std::string TextOf(const Fields& fields, std::string_view name, const char* missing) {
  const auto field = fields.find(name);
  return field == fields.end() ? missing : field->second;
}

double NumberOf(const Fields& fields, std::string_view name, double missing) {
  const auto field = fields.find(name);
  return field == fields.end() ? missing : LeadingNumber(field->second);
}

SampleCoding CodingOf(const Fields& fields, const std::string& coding) {
  // Where no coding is named, the byte format may name one.
  const std::string word = coding.empty() ? TextOf(fields, "sample_byte_format", "") : coding;
  if (word == "ulaw" || word == "mu-law") return SampleCoding::kMuLaw;
  if (word == "alaw") return SampleCoding::kALaw;
  if (!coding.empty() && coding != "pcm") {
    throw FileError("Its samples are coded as \"" + coding + "\", which cannot be decoded.");
  }
  const double bytes = NumberOf(fields, "sample_n_bytes", 2.0);
  if (bytes == 1.0) return SampleCoding::kSigned8;
  if (bytes == 2.0) return SampleCoding::kSigned16;
  if (bytes == 3.0) return SampleCoding::kSigned24;
  if (bytes == 4.0) return SampleCoding::kSigned32;
  throw FileError("Its samples have an impossible size.");
}

void RefuseShorten(const File& file, const std::string& coding, std::int64_t dataOffset) {
  if (coding.find("shorten") == std::string::npos && !HasMagic(file, "ajkg", dataOffset)) return;
  throw FileError("Its samples are compressed with \"shorten\", which cannot be decoded.");
}

int ChannelsOf(const Fields& fields) {
  const double channels = NumberOf(fields, "channel_count", 1.0);
  if (!(channels >= 1.0 && channels <= 1024.0)) {
    throw FileError("Its number of channels is not possible.");
  }
  return TruncateToInt32(channels);
}

}  // namespace

bool ReadSphere(CSonadexDoc& document, const File& file) {
  if (HasMagic(file, "NIST_1A\r")) {
    throw FileError("It is a NIST SPHERE file whose line ends were changed on its way here.");
  }
  if (!HasMagic(file, "NIST_1A\n")) return false;
  const std::int64_t dataOffset = HeaderBytes(file);
  const Fields fields = FieldsOf(file, dataOffset);
  const std::string codingText = TextOf(fields, "sample_coding", "");
  RefuseShorten(file, codingText, dataOffset);

  InterleavedPlace first{.dataOffset = dataOffset};
  first.coding = CodingOf(fields, codingText);
  const bool highFirst = TextOf(fields, "sample_byte_format", "01").starts_with("1");
  first.order = highFirst ? ByteOrder::kHighFirst : ByteOrder::kLowFirst;
  ForeignSound sound{.format = "NIST SPHERE", .coding = NameOf(first.coding, first.order)};
  sound.channels = ChannelsOf(fields);
  sound.rateHz = NumberOf(fields, "sample_rate", 0.0);
  first.frameBytes = static_cast<std::size_t>(sound.channels) * WidthOf(first.coding);
  sound.frames = FramesBehind(file, dataOffset, first.frameBytes);
  if (const double count = NumberOf(fields, "sample_count", 0.0); count >= 1.0) {
    sound.promised = Truncate(count);
    sound.frames = std::min(*sound.frames, *sound.promised);
  }
  ReadInterleaved(document, file, sound, first);
  return true;
}

}  // namespace cantorix
