// sound_decoder.cpp - libsndfile behind plain calls.
#include "document/decoding/sound_decoder.h"

#include <sndfile.h>

#include <algorithm>
#include <limits>
#include <mutex>
#include <utility>
#include <vector>

#include "document/decoding/file_source.h"
#include "document/decoding/quiet_error_output.h"
#include "document/sample_conversion.h"

#ifdef __has_feature
#define CANTORIX_HAS_FEATURE(name) __has_feature(name)
#else
#define CANTORIX_HAS_FEATURE(name) 0
#endif
#if defined(__SANITIZE_ADDRESS__) || CANTORIX_HAS_FEATURE(address_sanitizer)
// What the library leaves behind of an Ogg file that it refuses.
extern "C" const char* __lsan_default_suppressions();  // NOLINT: the sanitizer's name
extern "C" const char* __lsan_default_suppressions() { return "leak:vorbis_info_init\n"; }
#endif

namespace cantorix {
namespace {

FileSource& SourceOf(void* source) { return *static_cast<FileSource*>(source); }

sf_count_t LengthOf(void* source) { return SourceOf(source).length(); }

sf_count_t Seek(sf_count_t offset, int whence, void* source) {
  using From = FileSource::From;
  if (whence == SEEK_SET) return SourceOf(source).Seek(offset, From::kStart);
  return whence == SEEK_CUR ? SourceOf(source).Seek(offset, From::kHere) : -1;
}

sf_count_t Read(void* out, sf_count_t count, void* source) {
  if (count <= 0) return 0;
  return SourceOf(source).Read({static_cast<std::byte*>(out), static_cast<std::size_t>(count)});
}

sf_count_t WriteNothing(const void*, sf_count_t, void*) { return 0; }

sf_count_t Tell(void* source) { return SourceOf(source).position(); }

// The library's name of a format or of a coding, without what it explains in brackets.
std::string NameOf(int format) {
  SF_FORMAT_INFO info{};
  info.format = format;
  if (::sf_command(nullptr, SFC_GET_FORMAT_INFO, &info, sizeof info) != 0 || info.name == nullptr) {
    return "unknown";
  }
  const std::string name = info.name;
  return name.substr(0, name.find(" ("));
}

// The type in which the samples are asked for. The library's own way from floating-point numbers to
// integers is not that of this system.
enum class Held { kIntegers, kFloats, kDoubles };

Held HeldAs(int coding) {
  switch (coding) {
    case SF_FORMAT_DOUBLE:
      return Held::kDoubles;
    case SF_FORMAT_FLOAT:
    case SF_FORMAT_VORBIS:
    case SF_FORMAT_OPUS:
    case SF_FORMAT_MPEG_LAYER_I:
    case SF_FORMAT_MPEG_LAYER_II:
    case SF_FORMAT_MPEG_LAYER_III:
      return Held::kFloats;
    default:
      return Held::kIntegers;
  }
}

std::int16_t ToSample(std::int16_t x) { return x; }
std::int16_t ToSample(double x) { return SampleFromFloat(x); }

sf_count_t ReadFrames(SNDFILE* sound, std::int16_t* out, sf_count_t frames) {
  return ::sf_readf_short(sound, out, frames);
}
sf_count_t ReadFrames(SNDFILE* sound, float* out, sf_count_t frames) {
  return ::sf_readf_float(sound, out, frames);
}
sf_count_t ReadFrames(SNDFILE* sound, double* out, sf_count_t frames) {
  return ::sf_readf_double(sound, out, frames);
}

// Said by formats that know both orders.
const char* OrderOf(int format) {
  const int order = format & SF_FORMAT_ENDMASK;
  if (order == SF_ENDIAN_LITTLE) return ", low byte first";
  return order == SF_ENDIAN_BIG ? ", high byte first" : "";
}

DecodedFormat FormatOf(const SF_INFO& info) {
  const int kind = info.format & SF_FORMAT_TYPEMASK;
  DecodedFormat format;
  format.kind = NameOf(kind);
  format.coding = NameOf(info.format & SF_FORMAT_SUBMASK) + OrderOf(info.format);
  format.channels = info.channels;
  format.rateHz = info.samplerate;
  if (info.frames < std::numeric_limits<sf_count_t>::max()) format.frames = info.frames;
  format.isGuessed = kind == SF_FORMAT_MPC2K || kind == SF_FORMAT_MPEG;
  return format;
}

}  // namespace

struct SoundDecoder::Library {
  explicit Library(const File& file) : source(file) {}
  ~Library() {
    const QuietErrorOutput quiet;
    if (sound != nullptr) ::sf_close(sound);
  }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  // What the library gave at once, of all channels, and how much of it has been taken.
  template <typename T>
  struct Block {
    std::vector<T> values;
    std::size_t frames = 0;
    std::size_t taken = 0;
  };

  // False when nothing more is there.
  template <typename T>
  bool Fill(Block<T>& block) {
    block.taken = block.frames = 0;
    if (hasEnded) return false;
    block.values.resize(kBlockFrames * static_cast<std::size_t>(info.channels));
    block.frames = static_cast<std::size_t>(
        std::max<sf_count_t>(0, ReadFrames(sound, block.values.data(), kBlockFrames)));
    hasEnded = block.frames < kBlockFrames;
    return block.frames > 0;
  }

  template <typename T>
  std::size_t ReadChannel(int channel, std::span<std::int16_t> out, Block<T>& block) {
    const auto channels = static_cast<std::size_t>(info.channels);
    const QuietErrorOutput quiet;
    std::size_t done = 0;
    while (done < out.size() && (block.taken < block.frames || Fill(block))) {
      const std::size_t count = std::min(block.frames - block.taken, out.size() - done);
      const T* from = block.values.data() + block.taken * channels + channel;
      for (std::size_t i = 0; i < count; ++i) out[done + i] = ToSample(from[i * channels]);
      block.taken += count;
      done += count;
    }
    return done;
  }

  // Of a granule of MPEG audio: a decoder loses the whole block to a fault in it. Asked for always,
  // so that what is lost does not depend on how much the reader wants at once.
  static constexpr std::size_t kBlockFrames = 576;

  FileSource source;
  SF_INFO info{};
  SNDFILE* sound = nullptr;
  bool hasEnded = false;
  Block<std::int16_t> integers;
  Block<float> floats;
  Block<double> doubles;
};

SoundDecoder::SoundDecoder(std::unique_ptr<Library> library)
    : library_(std::move(library)), format_(FormatOf(library_->info)) {}

SoundDecoder::~SoundDecoder() = default;

SoundDecoder::Opened SoundDecoder::Open(const File& file) {
  // The library keeps the reason of a refused file in one place for the whole program.
  static std::mutex oneAtATime;
  const std::lock_guard lock(oneAtATime);
  auto library = std::make_unique<Library>(file);
  SF_VIRTUAL_IO calls{LengthOf, Seek, cantorix::Read, WriteNothing, Tell};
  const QuietErrorOutput quiet;
  library->sound = ::sf_open_virtual(&calls, SFM_READ, &library->info, &library->source);
  library->source.ThrowKept();
  if (library->sound != nullptr) {
    return {std::unique_ptr<SoundDecoder>(new SoundDecoder(std::move(library))), {}};
  }
  const int error = ::sf_error(nullptr);
  if (error == SF_ERR_UNRECOGNISED_FORMAT) return {};
  return {nullptr, ::sf_error_number(error)};
}

std::size_t SoundDecoder::Read(int channel, std::span<std::int16_t> out) {
  std::size_t got = 0;
  switch (HeldAs(library_->info.format & SF_FORMAT_SUBMASK)) {
    case Held::kIntegers:
      got = library_->ReadChannel(channel, out, library_->integers);
      break;
    case Held::kFloats:
      got = library_->ReadChannel(channel, out, library_->floats);
      break;
    case Held::kDoubles:
      got = library_->ReadChannel(channel, out, library_->doubles);
      break;
  }
  library_->source.ThrowKept();
  return got;
}

}  // namespace cantorix
