// sound_decoder.h - sound files as libsndfile reads them: what they are, and the 16-bit samples of
// one of their channels, from the first to the last. Only this folder knows the library.
// Which files are given to it, and in which order of formats, is decided by the readers.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace cantorix {

class File;

// What a decoder says of its file.
struct DecodedFormat {
  std::string kind;    // "FLAC"
  std::string coding;  // "Signed 24 bit PCM"
  int channels = 1;    // 1 to 1024
  double rateHz = 0.0;
  std::optional<std::int64_t> frames;  // samples of a channel; nothing: known only at the end
  bool isGuessed = false;  // from so few bytes that samples without a header may begin so
};

class SoundDecoder {
 public:
  struct Opened {
    std::unique_ptr<SoundDecoder> decoder;  // none: the library does not read the file
    std::string reason;                     // why, when it knows the kind of file all the same
  };
  // `file` outlives the decoder. Throws FileError when the file itself cannot be read.
  static Opened Open(const File& file);
  ~SoundDecoder();
  SoundDecoder(const SoundDecoder&) = delete;
  SoundDecoder& operator=(const SoundDecoder&) = delete;

  const DecodedFormat& format() const { return format_; }

  // The next samples of `channel`, counted from 0: as many as `out` takes, fewer only at the end or
  // where the file is damaged. Integers keep their upper 16 bits, what is held as floating-point
  // numbers is scaled as sample_conversion.h says. Throws FileError.
  std::size_t Read(int channel, std::span<std::int16_t> out);

 private:
  struct Library;  // its handle, behind this file
  explicit SoundDecoder(std::unique_ptr<Library> library);

  std::unique_ptr<Library> library_;
  DecodedFormat format_;
};

}  // namespace cantorix
