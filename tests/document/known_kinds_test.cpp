// known_kinds_test.cpp - what is known of a file by its first bytes alone.
#include <gtest/gtest.h>

#include <sstream>

#include "document/document_io.h"
#include "document/readers/known_kinds.h"
#include "document/readers/mpeg_frames.h"
#include "platform/file_error.h"
#include "support/expected_text.h"

namespace cantorix {
namespace {

class FirstBytes : public ::testing::Test {
 protected:
  File Of(const Bytes& bytes) const {
    WriteBytes(folder / "file", bytes);
    return File::OpenForReading(folder / "file");
  }
  TemporaryFolder folder;
};

TEST_F(FirstBytes, NameTheKindOfAFile) {
  std::string text;
  for (const char* const letters : {"fLaC",
                                    "ID3",
                                    "OggS",
                                    "caff",
                                    "riff\x2E\x91\xCF\x11",
                                    "RIFX",
                                    "2BIT",
                                    "Creative Voice File",
                                    "FORM",
                                    "PVF1",
                                    "#!AMR",
                                    "1234ftyp",
                                    "\x30\x26\xB2\x75\x8E\x66\xCF\x11",
                                    "\x1A\x45\xDF\xA3",
                                    "wvpk",
                                    "MAC ",
                                    "TTA1",
                                    "ajkg",
                                    ".RMF",
                                    "ftyp",
                                    "1fLaC",
                                    "RIFF"}) {
    text += std::string(KnownKindOf(Of(ByteBuilder().Text(letters, 40).bytes))) + '\n';
  }
  ExpectText("document/expected/KnownKinds.txt", text);
}

TEST_F(FirstBytes, NameTheCodingOfAWavFile) {
  std::string text;
  for (const int tag : {0x02, 0x11, 0x14,  0x22,  0x31,  0x40,   0x42,   0x45,   0x50, 0x55,
                        0x64, 0xFF, 0x160, 0x161, 0x162, 0x1610, 0x2000, 0xF1AC, 0x9,  0xABCD}) {
    TestHost host;
    try {
      ReadWav(host, Wav({.tag = tag, .bits = 0}, Bytes(1)));
    } catch (const FileError& error) {
      const std::string said = error.what();
      text += said.substr(0, said.find(" that cannot be decoded: ")) + '\n';
    }
  }
  ExpectText("document/expected/WavCodings.txt", text);
}

// The header of a frame, and so many bytes in all.
Bytes Frame(unsigned version, unsigned layer, unsigned rate, unsigned bitRate, std::size_t bytes,
            unsigned padding = 0) {
  const unsigned header = 0x7FFU << 21U | version << 19U | (4 - layer) << 17U | bitRate << 12U |
                          rate << 10U | padding << 9U;
  Bytes frame = ByteBuilder(true).I32({header}).bytes;
  frame.resize(bytes);
  return frame;
}

Bytes Times(int count, const Bytes& piece, Bytes before = {}) {
  for (int i = 0; i < count; ++i) before.insert(before.end(), piece.begin(), piece.end());
  return before;
}

// Version, layer and rate as a header has them, and the bytes of a frame for every bit rate: worked
// out from the tables of ISO/IEC 11172-3 and 13818-3.
TEST_F(FirstBytes, OfEveryMpegFrameTellWhereTheNextOneStands) {
  std::istringstream table(Approved("document/expected/MpegFrames.txt"));
  int rows = 0;
  for (unsigned version, layer, rate; table >> version >> layer >> rate; ++rows) {
    for (unsigned bitRate = 1; bitRate <= 14; ++bitRate) {
      std::size_t bytes = 0;
      table >> bytes;
      for (const unsigned padding : {0U, 1U}) {
        const std::size_t all = bytes + padding * (layer == 1 ? 4 : 1);
        const Bytes frame = Frame(version, layer, rate, bitRate, all, padding);
        EXPECT_TRUE(IsMpegAudio(Of(Times(3, frame)))) << version << layer << rate << ' ' << bitRate;
      }
    }
    EXPECT_FALSE(IsMpegAudio(Of(Times(4, Frame(version, layer, rate, 15, 400)))));
  }
  EXPECT_EQ(rows, 27);
}

TEST_F(FirstBytes, AreMpegWhenFourFramesOrAllThatThereAreBelongTogether) {
  const Bytes frame = Frame(3, 3, 0, 9, 417);
  const Bytes sparse = Frame(3, 3, 0, 1, 104);
  const Bytes slower = Frame(3, 3, 1, 9, 384);
  const Bytes junk(50, std::byte{0x55});
  const Bytes tag = ByteBuilder().Text("ID3", 3).U8({4, 0, 0, 0, 0, 1, 2}).Zeros(130).bytes;
  const struct {
    const char* name;
    Bytes file;
    bool isMpeg;
  } rows[] = {{"one", frame, false},
              {"two", Times(2, frame), true},
              {"three and more behind", Times(1, junk, Times(3, frame)), false},
              {"four and more behind", Times(1, junk, Times(4, frame)), true},
              {"of other bit rates", Times(2, sparse, Times(2, frame)), true},
              {"of another rate", Times(2, slower, Times(2, frame)), false},
              {"zeros first", Times(4, frame, Bytes(1)), false},
              {"a tag first", Times(4, frame, tag), true},
              {"two tags and zeros", Times(4, frame, Times(4096, Bytes(1), Times(2, tag))), true},
              {"a tag and too many zeros", Times(4, frame, Times(4097, Bytes(1), tag)), false}};
  for (const auto& row : rows) EXPECT_EQ(IsMpegAudio(Of(row.file)), row.isMpeg) << row.name;
  EXPECT_TRUE(BeginsLikeMpeg(Of(Raw({0xFF, 0xE0, 0, 0}))));
  EXPECT_FALSE(BeginsLikeMpeg(Of(Raw({0xFF, 0xD0, 0, 0}))));
}

}  // namespace
}  // namespace cantorix
