// today_reader.cpp - what the decoding library reads and no other reader has taken.
#include "document/file_window.h"
#include "document/readers/decoded_recording.h"
#include "document/readers/known_kinds.h"
#include "document/readers/mpeg_frames.h"
#include "document/readers/readers.h"
#include "document/wav_file.h"
#include "platform/file_error.h"

namespace cantorix {
namespace {

// What has a reader of its own has been looked at there: what that declined stays declined.
bool HasItsOwnReader(const File& file) {
  if (HasMagic(file, "WAVE", 8)) return !HasMagic(file, "RIFX");
  return HasMagic(file, "RIFF") || HasMagic(file, "RF64") || HasMagic(file, "BW64");
}

// "Ogg Vorbis", "MP3": as people call what the container and the coding make together.
void NameAsUsual(ForeignSound& sound) {
  if (sound.format == "OGG") sound.format = "Ogg " + sound.coding;
  if (sound.format.starts_with("MPEG") && sound.coding.ends_with("III")) sound.format = "MP3";
}

}  // namespace

bool ReadToday(CSonadexDoc& document, const File& file) {
  if (HasItsOwnReader(file)) return false;
  // The library takes the floats behind an extensible header for integers.
  if (ReadWave64(document, file)) return true;
  const bool isMpeg = IsMpegAudio(file);
  const bool isTagged = HasMagic(file, "ID3");
  if (!isMpeg && BeginsLikeMpeg(file)) return false;
  const std::string_view kind = isMpeg ? "an MPEG audio file" : KnownKindOf(file);
  const auto opened = SoundDecoder::Open(file);
  if (!opened.decoder) {
    if (kind.empty()) return false;
    const std::string reason =
        opened.reason.empty() ? std::string("No decoder knows it.") : opened.reason;
    throw FileError("It is " + std::string(kind) + " that cannot be decoded: " + reason);
  }
  // Too few bytes of some kinds are telling: raw samples may begin with them.
  const DecodedFormat& format = opened.decoder->format();
  if (format.isGuessed && !isMpeg && !isTagged) return false;
  ForeignSound sound = SoundOf(*opened.decoder);
  NameAsUsual(sound);
  ReadDecoded(document, file, sound, *opened.decoder);
  return true;
}

}  // namespace cantorix
