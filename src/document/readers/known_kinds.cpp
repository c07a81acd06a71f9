// known_kinds.cpp - the table of first letters.
#include "document/readers/known_kinds.h"

#include <algorithm>
#include <iterator>

#include "document/file_window.h"

namespace cantorix {
namespace {

using std::string_view_literals::operator""sv;  // NOLINT: the analyser does not see its use

struct KnownKind {
  std::string_view magic;
  std::int64_t at;  // of the magic in the file
  std::string_view kind;
};

constexpr KnownKind kKinds[] = {
    {"fLaC", 0, "a FLAC file"},
    {"ID3", 0, "a file with an ID3 tag"},
    {"OggS", 0, "an Ogg file"},
    {"caff", 0, "a CAF file"},
    {"riff\x2E\x91\xCF\x11"sv, 0, "a W64 file"},
    {"RIFX", 0, "a WAV file with its high bytes first"},
    {"2BIT", 0, "an AVR file"},
    {"Creative Voice File", 0, "a Creative Voice file"},
    {"FORM", 0, "an IFF file"},
    {"PVF1", 0, "a PVF file"},
    {"#!AMR", 0, "an AMR file"},
    {"ftyp", 4, "an MPEG-4 file"},
    {"\x30\x26\xB2\x75\x8E\x66\xCF\x11"sv, 0, "a Windows Media file"},
    {"\x1A\x45\xDF\xA3", 0, "a Matroska or WebM file"},
    {"wvpk", 0, "a WavPack file"},
    {"MAC ", 0, "a Monkey's Audio file"},
    {"TTA1", 0, "a True Audio file"},
    {"ajkg", 0, "a Shorten file"},
    {".RMF", 0, "a RealMedia file"},
};

}  // namespace

std::string_view KnownKindOf(const File& file) {
  const auto* const known =
      std::find_if(std::begin(kKinds), std::end(kKinds),
                   [&](const KnownKind& kind) { return HasMagic(file, kind.magic, kind.at); });
  return known == std::end(kKinds) ? std::string_view() : known->kind;
}

}  // namespace cantorix
