// decoded_recording.cpp - from decoder to document.
#include "document/readers/decoded_recording.h"

#include "platform/file_error.h"

namespace cantorix {

std::unique_ptr<SoundDecoder> OpenDecoder(const File& file, const std::string& kind) {
  auto opened = SoundDecoder::Open(file);
  if (opened.decoder) return std::move(opened.decoder);
  if (opened.reason.empty()) opened.reason = "Format not recognised.";
  throw FileError("It is " + kind + " that cannot be decoded: " + opened.reason);
}

ForeignSound SoundOf(const SoundDecoder& decoder) {
  const DecodedFormat& format = decoder.format();
  return {.format = format.kind,
          .coding = format.coding,
          .channels = format.channels,
          .rateHz = format.rateHz,
          .frames = format.frames,
          .promised = format.frames};
}

void ReadDecoded(CSonadexDoc& document, const File& file, const ForeignSound& sound,
                 SoundDecoder& decoder) {
  ReadForeign(document, file, sound,
              [&decoder](int channel, std::int64_t, std::span<std::int16_t> out) {
                return decoder.Read(channel, out);
              });
}

}  // namespace cantorix
