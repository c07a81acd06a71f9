// markers.h - the marks that other programs set in a sound file, as labels of the first tier.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace cantorix {

class CSonadexDoc;
class File;
struct FileChunk;
struct RiffHeader;

struct Marker {
  std::int64_t id = 0;     // its number in the file
  std::int64_t frame = 0;  // samples from the start
  std::string text{};      // empty: it has only its number
};

// Those of the "cue " chunk of a RIFF file, with the texts of its "LIST" of type "adtl".
std::vector<Marker> WaveMarkers(const File& file, const RiffHeader& header);

// Those of a "MARK" chunk of an AIFF file.
std::vector<Marker> AiffMarkers(const File& file, const FileChunk& chunk);

// Takes the first tier of channel 0 into use with a label for each marker inside the recording, in
// the order of their times; one without a text shows its number. Nothing for no marker.
void SetMarkerLabels(CSonadexDoc& document, std::vector<Marker> markers);

}  // namespace cantorix
