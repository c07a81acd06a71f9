// foreign_headers_test.cpp - headers that lie, that lack something or that no decoder knows,
// written down by hand: what is read all the same, and what the user is told.
// long because it is one table.
#include <gtest/gtest.h>

#include "document/document_io.h"
#include "document/readers/generic_content.h"
#include "platform/quiet_prompts.h"
#include "support/joined.h"

namespace cantorix {
namespace {

using std::string_view_literals::operator""sv;  // NOLINT: the analyser does not see its use

ByteBuilder Big() { return ByteBuilder(true); }
Bytes Text(std::string_view text) { return ByteBuilder().Text(text, text.size()).bytes; }
Bytes operator+(Bytes first, const Bytes& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

Bytes WithoutLast(Bytes bytes) {
  bytes.pop_back();
  return bytes;
}

const Bytes kFive = Big().I16({1, 2, 3, 4, 5}).bytes;

Bytes Sphere(const std::string& fields, const Bytes& data = kFive) {
  const std::string header = "NIST_1A\n   1024\n" + fields + "end_head\n";
  return ByteBuilder().Text(header, 1024).bytes + data;
}
const std::string kSphereFields =
    "sample_rate -i 8000\nsample_n_bytes -i 2\nsample_byte_format -s2 10\n";

Bytes BigChunk(std::string_view id, const Bytes& content) {
  ByteBuilder chunk(true);
  chunk.Text(id, 4).I32({std::ssize(content)});
  return chunk.bytes + content + Bytes(content.size() % 2);
}
Bytes Common(std::int64_t frames, std::string_view coding = "") {
  ByteBuilder common(true);
  common.I16({1}).I32({frames}).I16({16, 0x400D}).I32({0xADDD1745}).I32({0xD145826B});
  if (!coding.empty()) common.Text(coding, 4).I16({0});
  return BigChunk("COMM", common.bytes);
}
// The rate of a Macintosh: 22254.545...
Bytes Aiff(const Bytes& chunks, std::string_view kind = "AIFF") {
  return Big().Text("FORM", 4).I32({std::ssize(chunks) + 4}).Text(kind, 4).bytes + chunks;
}
Bytes SoundData(std::int64_t offset = 0) {
  ByteBuilder content(true);
  content.I32({offset, 0}).Zeros(static_cast<std::size_t>(offset));
  return BigChunk("SSND", content.bytes + kFive);
}

Bytes Au(std::int64_t bytes, std::int64_t coding, std::int64_t channels = 1) {
  return Big().Text(".snd", 4).I32({24, bytes, coding, 8000, channels}).bytes + kFive;
}

struct EspsCounts {
  std::int64_t records = 5, doubles = 0, floats = 0, longs = 0, shorts = 1, chars = 0;
};
Bytes Esps(const EspsCounts& counts, const Bytes& data = kFive,
           std::string_view item = "record_freq", int fileType = 13, int subtype = 8) {
  ByteBuilder file(true);
  file.I32({4, 3000, 400, 2, 0x6A1A, 0, 0, -1}).I16({fileType, 0}).I32({0x6A1A}).Zeros(84);
  file.I32({counts.records}).I16({0, 0});
  file.I32({counts.doubles, counts.floats, counts.longs, counts.shorts, counts.chars, 40, 0});
  file.Zeros(28).I16({subtype, 0}).I32({1}).Zeros(333 - 196);
  file.I16({13, 3}).Text(item, 12).I32({1}).I16({1}).F64({8000.5});
  file.Zeros(400 - file.bytes.size());
  return file.bytes + data;
}

Bytes Nsp(const Bytes& chunks, std::int64_t length = 5) {
  ByteBuilder header;
  header.Text("FORMDS16", 8).I32({0}).Text("HEDR", 4).I32({32});
  header.Text("May 26 23:57:43 1995", 20).I32({8000, length}).I16({1, 1});
  return header.bytes + chunks;
}
const Bytes kLittleFive = Samples16({1, 2, 3, 4, 5});

Bytes WaveWithCues() {
  ByteBuilder cues;
  cues.I32({3}).I32({7, 0}).Text("data", 4).I32({0, 0, 4}).I32({9, 0}).Text("data", 4);
  cues.I32({0, 0, 1}).I32({8, 0}).Text("data", 4).I32({0, 0, 99});
  const Bytes texts = Text("adtl") + Chunk("labl", ByteBuilder().I32({7}).Text("end", 4).bytes);
  return Riff({Chunk("fmt ", FormatBytes({})), Chunk("data", kLittleFive),
               Chunk("cue ", cues.bytes), Chunk("LIST", texts)});
}

// Behind samples of an odd number of bytes. What no cue point is and what names none is passed
// over.
Bytes WaveWithOneCue(std::int64_t claimed) {
  ByteBuilder cue;
  cue.I32({claimed}).I32({7, 0}).Text("data", 4).I32({0, 0, 2});
  const Bytes text = Chunk("labl", ByteBuilder().I32({7}).Text("no", 2).bytes);
  return Riff({Chunk("fmt ", FormatBytes({.bits = 8})), Chunk("data", Raw({128, 129, 130})),
               Bytes(1), Chunk("cue ", cue.bytes), Chunk("LIST", Text("adtl")),
               Chunk("LIST", Text("INFO") + text), text});
}

Bytes AiffMarks() {
  ByteBuilder marks(true);
  marks.I16({2, 4}).I32({5}).U8({3}).Text("off", 3).I16({2}).I32({2}).U8({0, 0});
  return BigChunk("MARK", marks.bytes);
}

struct HeaderRow {
  const char* name;
  Bytes file;
  // "RATE, CHANNELS: SAMPLES [LABELS]", or the reason for which the file could not be opened.
  const char* expected;
  const char* said = "";  // without that reason
};

const HeaderRow kRows[] = {
    {"SPHERE without counts", Sphere(kSphereFields), "8000: 1 2 3 4 5 []"},
    {"SPHERE of fewer samples than follow", Sphere(kSphereFields + "sample_count -i 3\n"),
     "8000: 1 2 3 []"},
    {"SPHERE that promises more", Sphere(kSphereFields + "sample_count -i 9\n"),
     "8000: 1 2 3 4 5 []", "The file is incomplete: its header promises 9 samples, 5 are there."},
    {"SPHERE with a fractional rate and mu-law by its byte format",
     Sphere("; sample_rate -i 1\nsample_rate -r 8000.5\nsample_n_bytes -s1 1\n"
            "sample_byte_format -s6 mu-law\n",
            Raw({0xFF, 0xFE})),
     "8000.5: 0 8 []"},
    {"SPHERE compressed", Sphere(kSphereFields + "sample_coding -s26 pcm,embedded-shorten-v2.00\n"),
     "Its samples are compressed with \"shorten\", which cannot be decoded."},
    {"SPHERE compressed without a word", Sphere(kSphereFields, Text("ajkg data")),
     "Its samples are compressed with \"shorten\", which cannot be decoded."},
    {"SPHERE of another coding", Sphere(kSphereFields + "sample_coding -s5 wavpk\n"),
     "Its samples are coded as \"wavpk\", which cannot be decoded."},
    {"SPHERE sent as text", Text("NIST_1A\r\n   1024\r\n"),
     "It is a NIST SPHERE file whose line ends were changed on its way here."},
    {"SPHERE of 5 bytes", Sphere("sample_rate -i 8000\nsample_n_bytes -i 5\n"),
     "Its samples have an impossible size."},
    {"SPHERE of no channel", Sphere(kSphereFields + "channel_count -i 0\n"),
     "Its number of channels is not possible."},
    {"SPHERE of too many channels", Sphere(kSphereFields + "channel_count -i 1025\n"),
     "Its number of channels is not possible."},
    {"SPHERE of a rate that no file holds", Sphere("sample_n_bytes -i 2\nsample_rate -r 5e9\n"),
     "Its sample rate is not possible."},
    {"SPHERE of a sample in ten seconds", Sphere("sample_n_bytes -i 2\nsample_rate -r 0.1\n"),
     "Its sample rate is not possible."},
    {"SPHERE without a rate", Sphere("sample_n_bytes -i 2\n"), "Its sample rate is not possible."},
    {"SPHERE with a header of nothing", Text("NIST_1A\n      8\n"),
     "The header size at byte 8 is not possible."},
    {"SPHERE with a header alone", Sphere(kSphereFields, {}), "It holds no samples."},

    {"AIFF at its exact rate", Aiff(Common(5) + SoundData()), "22254.54545: 1 2 3 4 5 []"},
    {"AIFF with its header behind", Aiff(SoundData(4) + Common(5)), "22254.54545: 1 2 3 4 5 []"},
    {"AIFF of fewer samples than follow", Aiff(Common(2) + SoundData()), "22254.54545: 1 2 []"},
    {"AIFF that promises more", Aiff(Common(7) + SoundData()), "22254.54545: 1 2 3 4 5 []",
     "The file is incomplete: its header promises 7 samples, 5 are there."},
    {"AIFF with marks", Aiff(Common(5) + AiffMarks() + SoundData()),
     "22254.54545: 1 2 3 4 5 [0.0899 2, 0.2247 off]"},
    {"AIFF of no sample", Aiff(Common(0)), "It holds no samples."},
    {"AIFC of a coding without a decoder", Aiff(Common(5, "MAC3") + SoundData(), "AIFC"),
     "It is an AIFF file of the coding \"MAC3\" that cannot be decoded: File contains data in an "
     "unimplemented format."},

    {"AIFC whose frames are blocks of 64 samples",
     Aiff(Common(1, "ima4") + BigChunk("SSND", Bytes(8 + 34)), "AIFC"),
     "22254.54545: 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 "
     "0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 []"},

    {"au of an open length", Au(0xFFFFFFFF, 3), "8000: 1 2 3 4 5 []"},
    {"au of a program that died", Au(0, 3), "8000: 1 2 3 4 5 []"},
    {"au of fewer samples than follow", Au(4, 3), "8000: 1 2 []"},
    {"au that promises more", Au(14, 3), "8000: 1 2 3 4 5 []",
     "The file is incomplete: its header promises 7 samples, 5 are there."},
    {"au of another coding", Au(10, 99),
     "It is a SUN au file of the coding 99 that cannot be decoded: Format not recognised."},
    {"au of no channel", Au(10, 3, 0), "It is a SUN au file whose header is not possible."},

    {"ESPS", Esps({}), "8000.5: 1 2 3 4 5 []"},
    {"ESPS of an open length", Esps({.records = 0}), "8000.5: 1 2 3 4 5 []"},
    {"ESPS that promises more", Esps({.records = 6}), "8000.5: 1 2 3 4 5 []",
     "The file is incomplete: its header promises 6 samples, 5 are there."},
    {"ESPS of floats in sample units",
     Esps({.records = 3, .floats = 1, .shorts = 0},
          Big()
              .I32({std::bit_cast<std::int32_t>(-2.5F), std::bit_cast<std::int32_t>(1e6F), 0})
              .bytes),
     "8000.5: -3 32767 0 []"},
    {"ESPS of doubles", Esps({.records = 1, .doubles = 1, .shorts = 0}, Big().F64({700.4}).bytes),
     "8000.5: 700 []"},
    {"ESPS of 32 bit", Esps({.records = 2, .longs = 1, .shorts = 0}, Big().I32({65536, -1}).bytes),
     "8000.5: 1 -1 []"},
    {"ESPS of 8 bit", Esps({.records = 2, .shorts = 0, .chars = 1}, Raw({1, 255})),
     "8000.5: 256 -256 []"},
    {"ESPS of two types", Esps({.floats = 1}),
     "It is an ESPS file with more than one type of number in a record."},
    {"ESPS of no number", Esps({.shorts = 0}), "It is an ESPS file whose records hold no numbers."},
    {"ESPS of negative size", Esps({.shorts = -1}),
     "It is an ESPS file whose record size is not possible."},
    {"ESPS without a rate", Esps({}, kFive, "record_fre_"),
     "It is an ESPS file without a sample rate."},
    {"ESPS of an old type", Esps({}, kFive, "record_freq", 9),
     "It is an ESPS file of an old type that cannot be read."},
    {"ESPS of features", Esps({}, kFive, "record_freq", 13, 2),
     "It is an ESPS file that holds no sampled data."},
    {"ESPS with its header size gone", With(Esps({}), 8, std::int32_t{-1}),
     "It is an ESPS file whose header size is not possible."},

    {"NSP", Nsp(Chunk("NOTE", Text("odd")) + Bytes(1) + Chunk("SDA_", kLittleFive)),
     "8000: 1 2 3 4 5 []"},
    {"NSP of two channels, interleaved", Nsp(Chunk("SDAB", Samples16({1, -1, 2, -2})), 2),
     "8000, 2 channels: -1 -2 []"},
    {"NSP of two channels, one after the other",
     Nsp(Chunk("SD_B", Samples16({-1, -2})) + Chunk("SDA_", Samples16({1, 2})), 2),
     "8000, 2 channels: -1 -2 []"},
    {"NSP that promises more", Nsp(Chunk("SDA_", kLittleFive), 7), "8000: 1 2 3 4 5 []",
     "The file is incomplete: its header promises 7 samples, 5 are there."},
    {"NSP of fewer samples than follow", Nsp(Chunk("SDA_", kLittleFive), 2), "8000: 1 2 []"},
    {"NSP without samples", Nsp({}), "It holds no samples."},
    {"NSP without a header", Text("FORMDS16\0\0\0\0SDA_\2\0\0\0ab"sv),
     "It is a CSL file without a header chunk."},

    {"Datalyn", Text("KWZ_PC\0\0 and more"sv),
     "It is a Datalyn file of the kind KWZ_PC, which cannot be read."},
    {"Datalyn of a Macintosh", Text("KWZ_Mac\0"sv), "It was recognised but could not be read.",
     "This is a very old Mac -pmf- format.Please contact manufacturer to get a patch for this "
     "format."},
    {"Datalyn in floats", Text("KWZ_PC_FLOAT\0"sv), "It was recognised but could not be read.",
     "Incorrect number of data was read"},
    {"Datalyn in floats of 24 bits", Text("KWZ_PC_FLOAT_24"),
     "It was recognised but could not be read.", "Incorrect number of data was read"},

    {"native, Macintosh", fixture::SmallFile("QRV_Mac"),
     "8000.25: 0 1 -2 32767 -32768 [0.5000 H*, 0.6250 L\xFF%]"},
    {"native, later Macintosh", fixture::SmallFile("QRVMACX"),
     "8000.25: 0 1 -2 32767 -32768 [0.5000 H*, 0.6250 L\xFF%]"},
    {"native, Macintosh, with more behind", fixture::SmallFile("QRV_Mac") + Bytes(1),
     "It is a Macintosh file of the kind QRV_Mac whose layout is not known: its sizes do not add "
     "up."},
    {"native, Macintosh, cut", WithoutLast(fixture::SmallFile("QRVMACX")),
     "It is a Macintosh file of the kind QRVMACX whose layout is not known. The file ends at byte "
     "2033, inside the samples."},
    {"native, Macintosh, of another layout", Text("QRV_Mac\0 and something else"sv),
     "It is a Macintosh file of the kind QRV_Mac whose layout is not known."},

    {"WAV with cue points", WaveWithCues(), "8000: 1 2 3 4 5 [0.1250 9, 0.5000 end]"},
    {"WAV with fewer cue points than it says", WaveWithOneCue(9), "8000: 0 256 512 [0.2500 7]"},
    {"WAV with no cue point", WaveWithOneCue(0), "8000: 0 256 512 []"},
    {"WAV of a coding without a decoder", Wav({.tag = 0x160}, Bytes(200)),
     "It is a WAV file of the coding 0x0160 (Windows Media) that cannot be decoded: Error in "
     "WAV/W64/RF64 file. Malformed 'fmt ' chunk."},
    {"WAV of an unknown coding", Wav({.tag = 0x7777}, Bytes(200)),
     "It is a WAV file of the coding 0x7777 that cannot be decoded: Error in WAV/W64/RF64 file. "
     "Malformed 'fmt ' chunk."},
    {"MPEG-4",
     Text("\0\0\0\x20"
          "ftypM4A "sv),
     "It is an MPEG-4 file that cannot be decoded: No decoder knows it."},
    {"a tag and no more", Text("ID3\4\0\0\0\0\0\0 and text"sv),
     "It is a file with an ID3 tag that cannot be decoded: No decoder knows it."},
    {"FLAC in name only", Text("fLaC and no more"),
     "It is a FLAC file that cannot be decoded: Error : unknown error in flac decoder."},
    {"samples that begin like MPEG", Raw({0xFF, 0xFB, 0x90, 0x44}) + Bytes(2000),
     "Its format is not known."},
    {"samples that begin like a sampler's file", Raw({1, 4}) + Bytes(2000),
     "Its format is not known."},
};

// Takes the second channel of several, cancels the generic question, and keeps what is said.
class SecondChannel : public QuietPrompts {
 public:
  void Message(const std::string& text) override { said += text; }
  std::optional<int> ChooseChannel(const std::string&, int) override { return 1; }
  Answer Ask(const std::string&, Buttons) override { return Answer::kCancel; }
  std::string said;
};

std::string StateOf(const CSonadexDoc& document) {
  const CChannel& channel = document.channel();
  std::string labels;
  for (const Label& label : channel.tiers[0].labels) {
    char time[32];
    std::snprintf(time, sizeof time, "%.4f ", label.timeMs);
    labels += (labels.empty() ? "" : ", ") + (time + label.text);
  }
  const std::string channels =
      document.fileChannels > 1 ? ", " + std::to_string(document.fileChannels) + " channels" : "";
  return Joined(channel.sampleRateHz) + channels + ": " +
         JoinedEach(SamplesOf(document), [](std::int16_t x) { return x; }) + " [" + labels + "]";
}

TEST(ForeignHeaders, AreReadAsFarAsTheyGoOrNamed) {
  for (const HeaderRow& row : kRows) {
    SCOPED_TRACE(row.name);
    TestHost files;
    SecondChannel prompts;
    DocumentHost host = HostOf(files, prompts);
    const std::string path = files.folder / "file";
    WriteBytes(path, row.file);
    CSonadexDoc document(host);
    const bool opened = document.OnOpenDocument(path);
    EXPECT_EQ(opened ? StateOf(document) : document.openFailure.reason, row.expected);
    const std::string report = path + " could not be opened. " + document.openFailure.reason;
    if (!opened && prompts.said == report) prompts.said.clear();
    EXPECT_EQ(prompts.said, row.said);
  }
}

// More than the decoder is given at a time, and than is decoded at a time.
TEST(ForeignHeaders, LargeFilesAreDecodedWhole) {
  constexpr std::size_t kFrames = 50000;
  ByteBuilder content(true);
  content.I32({0, 0});
  Values expected(kFrames);
  for (std::size_t i = 0; i < kFrames; ++i) {
    expected[i] = static_cast<std::int16_t>(i * 31);
    content.I16({-7, expected[i], 7});
  }
  Bytes common = Common(kFrames);
  common[9] = std::byte{3};  // channels
  TestHost host;
  host.prompts.WillChooseChannel(1);
  WriteBytes(host.folder / "file", Aiff(common + BigChunk("SSND", content.bytes)));
  CSonadexDoc document(host.host);
  ASSERT_TRUE(document.OnOpenDocument(host.folder / "file"));
  EXPECT_EQ(SamplesOf(document), expected);
  host.prompts.TakeTranscript();
}

// What a file of no known kind gives, and what its preview said before: "COUNT in MS: LOW/HIGH
// ...".
struct GenericRow {
  const char* name;
  Bytes file;
  GenericParameters entered;
  const char* foretold;
  const char* expected;
  const char* said = "";
};

const GenericRow kGenericRows[] = {
    {"16 bit, high byte first", kFive, {.rateHz = 1000}, "5 in 5: 1/2 3/5", "1000: 1 2 3 4 5 []"},
    {"16 bit, low byte first, behind a header",
     Text("xyz") + kLittleFive + Bytes(1),
     {.headerBytes = 3, .highByteFirst = 0},
     "5 in 0.5: 1/2 3/5",
     "10000: 1 2 3 4 5 []"},
    {"8 bit",
     Raw({128, 129, 0}),
     {.rateHz = 1, .sixteenBit = 0},
     "3 in 3000: 0/0 -32768/256",
     "1: 0 256 -32768 []"},
    {"a header of all", kFive, {.headerBytes = 10}, "It holds no samples.", "It holds no samples."},
    {"numbers below a heading",
     Text("Time 1\n\n+1, -2.5\t3e1\r\n4\r5"),
     {.rateHz = 1000, .binary = 0},
     "5 in 5: -3/30",
     "1000: 1 -3 30 4 5 []"},
    {"numbers out of range",
     Text("\xEF\xBB\xBF"
          "99999\n-1e999 32767.4\n-32768.5\n"),
     {.rateHz = 4, .binary = 0},
     "4 in 1000: -32768/32767",
     "4: 32767 -32768 32767 -32768 []",
     "3 numbers lie outside -32768 to 32767; they were clipped."},
    {"a word among numbers",
     Text("1\n2 x\n"),
     {.binary = 0},
     "Line 2 has \"x\" where a number should stand.",
     "Line 2 has \"x\" where a number should stand."},
    {"words alone",
     Text("nan inf 0x10 - 1.2.3 "),
     {.binary = 0},
     "It holds no numbers.",
     "It holds no numbers."},
};

class GenericAnswers : public SecondChannel {
 public:
  explicit GenericAnswers(const GenericParameters& entered) : entered_(entered) {}
  Answer Ask(const std::string&, Buttons) override { return Answer::kOk; }
  std::optional<GenericParameters> AskGenericParameters(const GenericParameters& preset,
                                                        GenericPreview& preview) override {
    EXPECT_EQ(preset.rateHz, 10000);
    const GenericOutcome outcome = preview.Try(entered_, 2);
    foretold = outcome.problem;
    if (!foretold.empty()) return entered_;
    foretold = Joined(outcome.samples, "in", outcome.durationMs) + ":";
    for (const auto& [low, high] : outcome.waveform) {
      foretold += " " + std::to_string(low) + "/" + std::to_string(high);
    }
    return entered_;
  }
  std::string foretold;

 private:
  GenericParameters entered_;
};

TEST(GenericFiles, GiveWhatTheirPreviewForetold) {
  for (const GenericRow& row : kGenericRows) {
    SCOPED_TRACE(row.name);
    TestHost files;
    GenericAnswers prompts(row.entered);
    DocumentHost host = HostOf(files, prompts);
    const std::string path = files.folder / "file";
    WriteBytes(path, row.file);
    CSonadexDoc document(host);
    const bool opened = document.OnOpenDocument(path);
    EXPECT_EQ(prompts.foretold, row.foretold);
    EXPECT_EQ(opened ? StateOf(document) : document.openFailure.reason, row.expected);
    if (opened) {
      EXPECT_EQ(prompts.said, row.said);
    }
  }
}

// The lowest and highest of every column, where a column is looked at in full, and the length, of
// samples that rise by one and of their text.
TEST(GenericFiles, PreviewsOfLongFilesKeepToTheirColumns) {
  constexpr std::int64_t kCount = 8000;
  ByteBuilder binary(true);
  std::string text = "n\n";
  for (std::int64_t i = 0; i < kCount; ++i) {
    binary.I16({i});
    text += std::to_string(i) + (i % 3 == 0 ? "\n" : ", ");
  }
  TestHost host;
  std::string told;
  for (const bool isBinary : {true, false}) {
    WriteBytes(host.folder / "file", isBinary ? binary.bytes : Text(text));
    const File file = File::OpenForReading(host.folder / "file");
    FilePreview preview(file);
    const GenericOutcome outcome = preview.Try({.rateHz = 500, .binary = isBinary}, 4);
    told += Joined(outcome.samples, "in", outcome.durationMs) + ":";
    for (const auto& [low, high] : outcome.waveform) told += " " + Joined(low) + "/" + Joined(high);
    told += '\n';
  }
  EXPECT_EQ(told,
            "8000 in 16000: 0/1999 2000/3999 4000/5999 6000/7999\n"
            "8000 in 16000: 0/1023 1024/2047 2048/3071 3072/4095 4096/5119 5120/6143 "
            "6144/7167 7168/7999\n");
}

}  // namespace
}  // namespace cantorix
