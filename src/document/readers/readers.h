// readers.h - the readers of foreign formats: laboratory formats, formats of today, and the two
// that read what nobody recognises.
// Each fills channel 0 of a new document, asking for the channel when the file has several. False,
// with nothing changed that matters, when the content is of another format. Each throws FileError
// when a file of its format cannot be read or is in a variant without a decoder, which the text
// names, and Abandoned when the user cancels or memory runs out.
#pragma once

namespace cantorix {

class CSonadexDoc;
class File;

// AIFF and AIFC, all codings that the decoding library knows; marks become labels.
bool ReadAiff(CSonadexDoc& document, const File& file);
// CSL, one to eight channels of 16 bits.
bool ReadNsp(CSonadexDoc& document, const File& file);
// NIST SPHERE: PCM of 1 to 4 bytes, mu-law and A-law.
bool ReadSphere(CSonadexDoc& document, const File& file);
// SUN and NeXT sound, and the same with its low bytes first.
bool ReadAu(CSonadexDoc& document, const File& file);
// Sampled data of ESPS and xwaves, in either byte order.
bool ReadEsps(CSonadexDoc& document, const File& file);
// FLAC, Ogg, MP3, CAF, W64 and what else the decoding library knows by its content. Formats of
// today that nobody here decodes are named.
bool ReadToday(CSonadexDoc& document, const File& file);

// Datalyn files, known by their first letters alone: their layout is not public. Each shows its
// message and leaves by Abandoned.
bool ReadDatalynPc(CSonadexDoc& document, const File& file);
bool ReadDatalynMac(CSonadexDoc& document, const File& file);
// As three-way readers answer.
int ReadDatalynFloat24(CSonadexDoc& document, const File& file);
int ReadDatalynFloat(CSonadexDoc& document, const File& file);

// Bytes as samples. Asks for document.genericRead, which it presets, and declines when the user
// says that the file holds text.
bool ReadIntegerBinary(CSonadexDoc& document, const File& file);
// Numbers as text, with the answers that the reader above was given.
bool ReadAscii(CSonadexDoc& document, const File& file);

}  // namespace cantorix
