// reading_test.cpp - what becomes of label files in the dialects of their formats, and of files
// that are broken or mean harm.
#include <gtest/gtest.h>

#include <filesystem>

#include "labelfile/told_labels.h"
#include "platform/file.h"
#include "support/expected_text.h"

namespace cantorix {
namespace {

// The recording: 1000 samples a second, "talk.wav".
const LabelReading kTalk{1000.0, false, "talk"};

std::string Read(const std::string& bytes, const std::string& path, const std::string& key = "") {
  try {
    const auto read = ReadLabelFile(bytes, path, LabelFormatOf(key), kTalk);
    return std::string(read.format->key) + " " + Told(read.file);
  } catch (const LabelFileError& error) {
    return std::string("refused: ") + error.what();
  }
}

std::string Utf16(const std::string& ascii, bool highFirst) {
  std::string bytes;
  for (const char c : ascii) bytes += highFirst ? std::string{'\0', c} : std::string{c, '\0'};
  return bytes;
}

const std::string kHead = "File type = \"ooTextFile\"\nObject class = \"TextGrid\"\n0 9 <exists> ";
const std::string kPoint = kHead + "1 \"TextTier\" \"p\" 0 9 1 ";

std::string Eaf(const std::string& slots, const std::string& tiers,
                const std::string& header = "TIME_UNITS='milliseconds'") {
  return "<?xml version='1.0'?><!DOCTYPE x [<!ENTITY e SYSTEM 'file:///etc/passwd'>]>"
         "<ANNOTATION_DOCUMENT><HEADER " +
         header + "></HEADER><TIME_ORDER>" + slots + "</TIME_ORDER>" + tiers +
         "</ANNOTATION_DOCUMENT>";
}
std::string Slot(const std::string& id, const std::string& ms = "") {
  return "<TIME_SLOT TIME_SLOT_ID='" + id + "'" + (ms.empty() ? "" : " TIME_VALUE='" + ms + "'") +
         "/>";
}
std::string Tier(const std::string& name, const std::string& annotations) {
  return "<TIER TIER_ID='" + name + "'>" + annotations + "</TIER>";
}
std::string Aligned(const std::string& id, const std::string& from, const std::string& to,
                    const std::string& text) {
  return "<ANNOTATION><ALIGNABLE_ANNOTATION ANNOTATION_ID='" + id + "' TIME_SLOT_REF1='" + from +
         "' TIME_SLOT_REF2='" + to + "'><ANNOTATION_VALUE>" + text +
         "</ANNOTATION_VALUE></ALIGNABLE_ANNOTATION></ANNOTATION>";
}
std::string Refers(const std::string& id, const std::string& parent, const std::string& text,
                   const std::string& previous = "") {
  return "<ANNOTATION><REF_ANNOTATION ANNOTATION_ID='" + id + "' ANNOTATION_REF='" + parent + "'" +
         (previous.empty() ? "" : " PREVIOUS_ANNOTATION='" + previous + "'") +
         "><ANNOTATION_VALUE>" + text + "</ANNOTATION_VALUE></REF_ANNOTATION></ANNOTATION>";
}
const std::string kSlots = Slot("t1", "1000") + Slot("t2") + Slot("t3") + Slot("t4", "4000");

std::string Emu(const std::string& levels, const std::string& links = "") {
  return R"({"sampleRate": 100, "levels": [)" + levels + R"(], "links": [)" + links + "]}";
}

TEST(LabelReading, EveryDialectIsReadAndEveryFaultSaid) {
  const struct {
    const char* name;
    const char* path;
    std::string bytes;
    const char* told;
    const char* key = "";
  } rows[] = {
      // TextGrid
      {"tokens, not lines", "a.TextGrid",
       "\"ooTextFile short\" \"TextGrid\" 0 9 <exists> 2 \"IntervalTier\" \"w\" 0 9 1 0 "
       "9 \"a \"\"b\"\"\r\nc\" \"TextTier\" \"p\" 0 9 1 15e-1 \"x\"",
       "textgrid w: [0-9]a \"b\"\nc; p: [1.5]x; "},
      {"comments, signs, old words", "a.TextGrid",
       kHead + "! 7 tiers\rsize = 1 item[1]: class = \"TextTier\" name = \"p\" xmin = -0 xmax = +9 "
               "points: size = 1 points[1]: time = -0 mark = \"x!\" ",
       "textgrid p: [0]x!; "},
      {"UTF-16, low byte first, no mark", "a", Utf16(kPoint + "1 \"x\"", false),
       "textgrid p: [1]x; "},
      {"UTF-16, high byte first, mark", "a", "\xFE\xFF" + Utf16(kPoint + "1 \"x\"", true),
       "textgrid p: [1]x; "},
      {"surrogates, whole and half", "a",
       "\xFF\xFE" + Utf16(kPoint + "1 \"", false) + std::string("\x3D\xD8\0\xDE\0\xDE\"\0", 8),
       "textgrid p: [1]\xF0\x9F\x98\x80\xEF\xBF\xBD; "},
      {"borders of its lengths", "a",
       "\xFE\xFF" + Utf16(kPoint + "1 \"", true) +
           std::string("\0\x7F\0\x80\7\xFF\x8\0\xD7\xFF\xE0\0\xD8\0\xDC\0\xDB\xFF\xDF\xFF\0\"", 22),
       "textgrid p: "
       "[1]\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xF0\x90\x80\x80\xF4\x8F"
       "\xBF\xBF; "},
      {"half a character at the end", "a",
       "\xFE\xFF" + Utf16(kPoint + "1 \"x\" 2 \"", true) + "\xD8\x3D",
       "textgrid p: [1]x; ! The file ends in the middle of a tier. "},
      {"Latin-1", "a", kPoint + "1 \"\xE9\"", "textgrid p: [1]\xC3\xA9; "},
      {"UTF-8 mark", "a", "\xEF\xBB\xBF" + kPoint + "1 \"\xC3\xA9\"", "textgrid p: [1]\xC3\xA9; "},
      {"decimal comma", "a", kPoint + "0,5 \"x\"", "textgrid p: [0.5]x; "},
      {"false counts", "a",
       kHead + "1 \"TextTier\" \"p\" 0 9 7 1 \"x\" \"TextTier\" \"q\" 0 9 0 2 \"y\"",
       "textgrid p: [1]x; q: [2]y; ! Tier \"p\" holds 1 label, but states another number. ! Tier "
       "\"q\" "
       "holds 1 label, but states another number. ! The file holds 2 tiers, but states another "
       "number. "},
      {"no tiers", "a", "\"ooTextFile\" \"TextGrid\" 0 9 <absent>", "textgrid "},
      {"cut", "a", kPoint + "1 \"x\" 2 \"y",
       "textgrid p: [1]x; ! The file ends in the middle of a tier. "},
      {"no number", "a", kPoint + "0x \"x\"", "refused: Line 3: \"0x\" is no number."},
      {"no text", "a", kPoint + "1 2 \"x\"", "refused: Line 3: the text of a label is missing."},
      {"other object", "a", "\"ooTextFile\" \"Pitch 1\" 0",
       "refused: The file holds no TextGrid but \"Pitch 1\"."},
      {"more than tiers", "a", kPoint + "1 \"x\" \"Sound\"",
       "refused: Line 3: a tier was expected here."},
      // ELAN
      {"slots without a time, entities", "a.eaf",
       Eaf(kSlots, Tier("w", Aligned("a", "t1", "t2", "x &amp; &e;") +
                                 Aligned("b", "t2", "t3", "") + Aligned("c", "t3", "t4", "z"))),
       "eaf w: [1-2]x & &e; [2-3] [3-4]z; "},
      {"children before parents, order", "a.eaf",
       Eaf(kSlots, Tier("m", Refers("m3", "w1", "3", "m2") + Refers("m1", "w1", "1") +
                                 Refers("m2", "w1", "2", "m1")) +
                       Tier("g", Refers("g1", "m2", "gloss")) +
                       Tier("w", Aligned("w1", "t1", "t4", "all"))),
       "eaf m: [3-4]3 [1-2]1 [2-3]2; g: [2-3]gloss; w: [1-4]all; "},
      {"reference cycles, missing parents", "a.eaf",
       Eaf(kSlots, Tier("c", Refers("a", "b", "x", "b") + Refers("b", "a", "y", "a") +
                                 Refers("s", "s", "self") + Refers("n", "none", "z") +
                                 Aligned("q", "t9", "t1", "?"))),
       "eaf c:; ! Tier \"c\": 5 annotations without a time left out. "},
      {"PAL frames", "a.eaf",
       Eaf(Slot("t1", "25") + Slot("t2", "50"), Tier("w", Aligned("a", "t1", "t2", "x")),
           "TIME_UNITS='PAL-frames'"),
       "eaf w: [1-2]x; "},
      {"NTSC frames", "a.eaf",
       Eaf(Slot("t1", "30") + Slot("t2", "60"), Tier("w", Aligned("a", "t1", "t2", "x")),
           "TIME_UNITS='NTSC-frames'"),
       "eaf w: [1.001-2.002]x; "},
      {"time origin of the recording", "a.eaf",
       Eaf(kSlots, Tier("w", Aligned("a", "t1", "t4", "x")),
           "><MEDIA_DESCRIPTOR MEDIA_URL='file:///b/video.mpg' "
           "TIME_ORIGIN='7000'/><MEDIA_DESCRIPTOR "
           "MEDIA_URL='file:///b/talk.wav' TIME_ORIGIN='500'/></HEADER><HEADER"),
       "eaf w: [1.5-4.5]x; "},
      {"unknown unit", "a.eaf", Eaf("", "", "TIME_UNITS='beats'"),
       "refused: The time unit \"beats\" is not known."},
      {"no XML", "a.eaf", "<ANNOTATION_DOCUMENT>\n<TIER></ANNOTATION_DOCUMENT>",
       "refused: Line 2: no XML: Start-end tags mismatch."},
      {"other XML", "a.xml", "<svg/>", "refused: The file holds no ANNOTATION_DOCUMENT.", "eaf"},
      // EMU
      {"segments, events, items by links", "a_annot.json",
       Emu(R"({"name": "word", "type": "ITEM", "items": [
               {"id": 1, "labels": [{"name": "pos", "value": "N"}, {"name": "word", "value": "hi"}]},
               {"id": 9, "labels": []}]},
              {"name": "phon", "type": "SEGMENT", "items": [
               {"id": 2, "sampleStart": 100, "sampleDur": 49, "labels": [{"name": "phon", "value": "h"}]},
               {"id": 3, "sampleStart": 150, "sampleDur": 49, "labels": [{"name": "x", "value": "I"}]}]},
              {"name": "tone", "type": "EVENT", "items": [
               {"id": 4, "samplePoint": 175, "labels": [{"name": "tone", "value": "H*"}]}]})",
           R"({"fromID": 1, "toID": 2}, {"fromID": 1, "toID": 3}, {"fromID": 9, "toID": 9},
              {"fromID": 5, "toID": 2}, {"fromID": "x"}, 7)"),
       "emu word: [1-2]hi; phon: [1-1.5]h [1.5-2]I; tone: [1.75]H*; ! Level \"word\": 1 item "
       "without a "
       "time left out. "},
      {"wrong kinds of values", "a.json",
       Emu(R"(3, {"name": 4, "items": {"a": 5}}, {"items": [6, {"labels": 7}]})"),
       "emu :; :; :; ! Level \"\": 1 item without a time left out. ! Level \"\": 2 items "
       "without a time left out. "},
      {"no rate", "a.json", R"({"levels": []})", "refused: The file states no sample rate."},
      {"no levels", "a.json", R"({"sampleRate": 1})", "refused: The file holds no levels.", "emu"},
      {"no JSON", "a.json", R"({"levels": [)", "refused: No JSON at byte 13."},
      {"too large", "a.json", R"({"levels": [], "sampleRate": 1e999})",
       "refused: A number is too large."},
      // Lines
      {"frequency lines", "a.txt", "0.5\t0.5\ta\tb\n\\\t100.0\t200.0\n1,5\t2.25\t\r\n",
       "audacity a: [0.5-0.5]a\tb [1.5-2.25]; "},
      {"no end", "a.txt", "0.5\t0.5\ta\n1\tb\n", "refused: Line 2: \"b\" is no time."},
      {"phn", "d/sa1.phn", "0 1500 h#\n1500 2000 sh\n\n", "samples phn: [0-1.5]h# [1.5-2]sh; "},
      {"PHN", "D/SA1.PHN", "0 1500 h#\n", "samples phn: [0-1.5]h#; "},
      {"wrd named .txt", "sa1.txt", "0 1500 She had\n", "samples sa1: [0-1.5]She had; "},
      {"phn with a comma", "a.phn", "0 5 a\n1,5 2 b\n",
       "refused: Line 2: \"1,5\" is no number of a sample."},
      {"esps segments", "a.words",
       "signal a\nnfields 1\n#\n 0.5 121 one\n\t1,25 -1 two words; x\n 2 26\n",
       "esps words: [0-0.5]one [0.5-1.25]two words; x [1.25-2]; "},
      {"esps points", "a.tones", "#\n0.5 76 H*\n", "esps-points tones: [0.5]H*; "},
      {"esps points by choice", "a.lab", "#\n0.5 76 H*\n", "esps-points a: [0.5]H*; ",
       "esps-points"},
      {"esps without an end of its head", "a.lab", "signal a\n0.5 76 x\n",
       "refused: The line \"#\" at the end of the head is missing.", "esps"},
      {"esps without a time", "a.lab", "#\nhe said\n", "refused: Line 2: \"he\" is no time."},
      {"htk", "a.lab",
       "0 5000000 sil\n5000000 15000000 \"a \\\"b\\\" \\303\\251\" -7\n20000000 'x'\nno "
       "time\n///\n1 2 y\n",
       "htk a: [0-0.5]sil [0.5-1.5]a \"b\" \xC3\xA9 [2-2]x; ! 1 line without a time left out. "},
      {"htk, many recordings", "a.mlf", "#!MLF!#\n\"a.lab\"\n",
       "refused: A master label file of many recordings is not read."},
      // Tables
      {"own columns", "a.csv", "tier,start_s,end_s,text\nw,0.5,1.5,\"a, \"\"b\"\"\nc\"\nt,1,,x\n\n",
       "csv w: [0.5-1.5]a, \"b\"\nc; t: [1]x; "},
      {"other programs' columns", "a.txt",
       "rowLabel\ttmin\ttier\ttext\ttmax\n1\t0.25\tw\thi\t0.5\n", "tsv w: [0.25-0.5]hi; "},
      {"milliseconds, semicolons, decimal commas", "a.csv", "Time (ms);Label\r\n1500,5;x\r\n",
       "csv a: [1.5005]x; "},
      {"decimal commas between commas", "a.csv", "start,text\n0,5,x\n",
       "refused: Line 2: 3 cells under a heading of 2."},
      {"no time", "a.csv", "start,text\n\"a\nb\",x\n", "refused: Line 2: \"a\nb\" is no time."},
      {"open quote", "a.csv", "start,text\n1,\"x\n", "refused: Line 2: a quote is not closed."},
      {"no heading", "a.csv", "1,x\n",
       "refused: The heading names no column of times (start, time) and texts (text, label).",
       "csv"},
      {"empty", "a.csv", "", "refused: The file is empty.", "csv"},
      // Plain text
      {"seconds", "a.txt", "0.5\ta\tb\nx\n0,25\tc\n", "text a: [0.5]a\tb [0.25]c; "},
      {"milliseconds", "a.txt", "1500\ta\n", "text-ms a: [1.5]a; ", "text-ms"},
      {"nothing known", "a.txt", "hello\n", "refused: It is no label file of a known format."},
      {"nothing", "a", "", "refused: It is no label file of a known format."},
  };
  for (const auto& row : rows) EXPECT_EQ(Read(row.bytes, row.path, row.key), row.told) << row.name;
}

// Every name of a column, in every unit of time.
TEST(LabelReading, HeadingsNameColumnsAndUnits) {
  for (const std::string start : {"start", "time", "tmin", "xmin", "Begin", "onset"}) {
    for (const std::string end : {"end", "tmax", "xmax", "offset"}) {
      EXPECT_EQ(Read(start + "," + end + ",text\n1,2,x\n", "a.csv"), "csv a: [1-2]x; ") << start;
    }
  }
  for (const std::string names :
       {"tier,text", "level,label", "tier,labels", "tier,mark", "tier, Annotation "}) {
    EXPECT_EQ(Read("time," + names + "\n1,w,x\n", "a.csv"), "csv w: [1]x; ") << names;
  }
  for (const std::string unit : {"_ms", " ms", "(ms)", " [ms]", "_s", " s", " (s)", "[s]", ""}) {
    const bool ms = unit.find("ms") != std::string::npos;
    EXPECT_EQ(Read("start" + unit + ",end" + unit + ",text\n1500,2500,x\n", "a.csv"),
              ms ? "csv a: [1.5-2.5]x; " : "csv a: [1500-2500]x; ")
        << unit;
  }
}

// Written by Praat: tools/make_label_fixtures.sh.
TEST(LabelReading, WhatPraatWroteIsRead) {
  const std::string folder = SamplesDirectory() + "/../tests/labelfile/files/";
  for (const char* file : {"long_utf8", "short_utf8", "long_utf16", "short_utf16", "long_latin1"}) {
    const std::string path = folder + file + ".TextGrid";
    EXPECT_EQ(
        Read(ReadWholeFile(path), path),
        "textgrid words: [0-0.25] [0.25-1.0000005]say \"hi\" [1.0000005-2.75]\xC3\xA9t\xC3\xA9 "
        "[2.75-5.5]two\nlines; tones: [0.5]H* [3.123456789]L- [5.5]%; ")
        << file;
  }
  EXPECT_EQ(Read(ReadWholeFile(folder + "binary.TextGrid"), "binary.TextGrid"),
            "refused: A binary TextGrid is not read; save it as a text file.");
  EXPECT_EQ(Read(ReadWholeFile(folder + "chronological.TextGrid"), "chronological.TextGrid"),
            "refused: A chronological TextGrid is not read; save it as a text file.");
}

// A tree of a hundred times the file's size is not built.
TEST(LabelReading, WhatWouldTakeFarMoreMemoryThanItsLabelsIsRefused) {
  const std::size_t many = 2000000;
  std::string elements = "<ANNOTATION_DOCUMENT>";
  std::string arrays = R"({"levels": )";
  std::string values = R"({"levels": [)";
  for (std::size_t i = 0; i < many; ++i) {
    elements += "<a>";
    values += "{},";
  }
  EXPECT_EQ(Read(elements, "a.eaf"), "refused: It holds more elements than labels account for.");
  EXPECT_EQ(Read(arrays + std::string(many, '['), "a.json"), "refused: It is nested too deep.");
  EXPECT_EQ(Read(values, "a.json"), "refused: It holds more values than labels account for.");
}

}  // namespace
}  // namespace cantorix
