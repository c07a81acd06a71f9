// mpeg_frames.h - telling MPEG audio from bytes that only begin like it. Its frames have no name,
// just a pattern of eleven bits that raw samples can have, too.
#pragma once

namespace cantorix {

class File;

// Whether the file begins with four whole frames that belong together, or is two or three of them,
// or with an "ID3" tag that such frames follow; zeros before the first frame do not count.
bool IsMpegAudio(const File& file);

// Whether its first bits are those of a frame, which the samples of a file without a header may be.
bool BeginsLikeMpeg(const File& file);

}  // namespace cantorix
