// decoded_recording.h - a recording that the decoding library reads, on its way into a document.
#pragma once

#include <string>

#include "document/decoding/sound_decoder.h"
#include "document/foreign_recording.h"

namespace cantorix {

// The decoder of a file whose format is known to be `kind` ("an AIFF file"); without one throws
// FileError that names it.
std::unique_ptr<SoundDecoder> OpenDecoder(const File& file, const std::string& kind);

// What the decoder says, as far as nobody knows better.
ForeignSound SoundOf(const SoundDecoder& decoder);

// Makes `sound`, read by `decoder` from its beginning, channel 0 of the document. Throws what
// ReadForeign throws.
void ReadDecoded(CSonadexDoc& document, const File& file, const ForeignSound& sound,
                 SoundDecoder& decoder);

}  // namespace cantorix
