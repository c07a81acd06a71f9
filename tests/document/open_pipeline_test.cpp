// open_pipeline_test.cpp - who is asked in which order, and what a document is afterwards.
#include "document/open_pipeline.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "document/document.h"
#include "document/foreign_recording.h"
#include "document/native_fixture.h"
#include "document/wav_fixture.h"
#include "platform/abandon.h"
#include "platform/file.h"
#include "platform/file_error.h"
#include "support/joined.h"
#include "support/test_host.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;

constexpr const char* kGenericQuestion =
    "ask ok/cancel: The requested file was not of any proper types recognized by the application."
    "Would you like to read it as a generic type ?";

// A reader that notes its letter and answers kAnswer.
template <char kLetter, int kAnswer>
int Noting(CSonadexDoc& document, const File&) {
  document.channel().channelName += kLetter;
  return kAnswer;
}

constexpr ReaderKind kPlain = ReaderKind::kPlain;
constexpr ReaderKind kThreeWay = ReaderKind::kThreeWay;
constexpr Reader kNo{"no", kPlain, Noting<'n', 0>};
constexpr Reader kYes{"yes", kPlain, Noting<'y', 1>};
constexpr Reader kOddYes{"odd yes", kPlain, Noting<'o', -5>};
constexpr Reader kNeither{"neither", kThreeWay, Noting<'3', 2>};
constexpr Reader kOddNeither{"odd neither", kThreeWay, Noting<'4', -1>};
constexpr Reader kThreeWayYes{"three-way yes", kThreeWay, Noting<'t', 1>};
constexpr Reader kFailing{"failing", kThreeWay, Noting<'f', 0>};

struct OpenTest : testing::Test {
  OpenTest() { WriteBytes(path, std::vector<std::byte>(100)); }

  bool Open(const std::vector<Reader>& byContent, const std::vector<Reader>& generic = {}) {
    return OpenRecording(document, path, {byContent, generic});
  }

  TestHost host;
  const std::string path = host.folder / "file";
  CSonadexDoc document{host.host};
};

TEST_F(OpenTest, FirstReaderThatTakesTheFileReadsAlone) {
  struct Row {
    std::vector<Reader> readers;
    const char* asked;
    const char* readBy;  // none: the open fails
  };
  const Row rows[] = {
      {{kNo, kYes, kYes}, "ny", "yes"},
      {{kNo, kOddYes, kYes}, "no", "odd yes"},
      {{kNo, kNeither, kOddNeither, kThreeWayYes, kYes}, "n34t", "three-way yes"},
      {{kNo, kFailing, kYes}, "nf", nullptr},
  };
  for (const Row& row : rows) {
    document.channel().channelName.clear();
    EXPECT_EQ(Open(row.readers), row.readBy != nullptr) << row.asked;
    EXPECT_EQ(document.channel().channelName, row.asked);
    if (row.readBy != nullptr) {
      EXPECT_EQ(document.formatName, row.readBy);
    }
  }
  EXPECT_FALSE(document.loaded);
  EXPECT_TRUE(document.openFailure.shown);
}

TEST_F(OpenTest, GenericReadersAreTriedAfterTheQuestion) {
  struct Row {
    Answer answer;
    std::vector<Reader> generic;
    const char* asked;
    bool opens;
  };
  const Row rows[] = {
      {Answer::kCancel, {kYes}, "n", false},
      {Answer::kOk, {kNo, kYes}, "nny", true},
      {Answer::kOk, {kNo, kNo}, "nnn", false},
  };
  for (const Row& row : rows) {
    document.channel().channelName.clear();
    document.genericRead = {.headerBytes = 7, .rateHz = 1, .sixteenBit = 0, .highByteFirst = 0};
    host.prompts.WillAnswer(row.answer);
    EXPECT_EQ(Open({kNo}, row.generic), row.opens);
    EXPECT_EQ(document.channel().channelName, row.asked);
    EXPECT_THAT(host.prompts.TakeTranscript(), ElementsAre(kGenericQuestion));
    EXPECT_EQ(document.openFailure.reason, row.opens ? "" : "Its format is not known.");
  }
  const GenericParameters& preset = document.genericRead;
  EXPECT_EQ(Joined(preset.headerBytes, preset.rateHz, preset.sixteenBit, preset.highByteFirst,
                   preset.binary),
            "0 10000 1 1 1");
}

template <AbandonReason kReason>
int Abandoning(CSonadexDoc&, const File&) {
  throw Abandoned(kReason);
}

TEST_F(OpenTest, ReportsFileErrorsAndIsSilentOtherwise) {
  struct Row {
    ReaderFunction read;
    const char* reason;
    bool isReported;
    bool isShown;
  };
  const Row rows[] = {
      {[](CSonadexDoc&, const File&) -> int { throw FileError("It ends at byte 7."); },
       "It ends at byte 7.", true, true},
      {[](CSonadexDoc&, const File&) -> int { throw std::out_of_range("A fault."); }, "A fault.",
       true, true},
      {[](CSonadexDoc&, const File&) -> int { throw std::bad_alloc(); },
       "There is not enough memory.", false, false},
      {Abandoning<AbandonReason::kOutOfMemory>, "There is not enough memory.", false, false},
      {Abandoning<AbandonReason::kCancelled>, "The reading was cancelled.", false, false},
      {Abandoning<AbandonReason::kFailed>, "It was recognised but could not be read.", false, true},
  };
  for (const Row& row : rows) {
    EXPECT_FALSE(Open({{"throwing", kPlain, row.read}, kYes}));
    const auto expected =
        row.isReported ? std::vector{"message: " + path + " could not be opened. " + row.reason}
                       : std::vector<std::string>{};
    EXPECT_EQ(host.prompts.TakeTranscript(), expected);
    EXPECT_EQ(document.openFailure.reason, row.reason);
    EXPECT_EQ(document.openFailure.shown, row.isShown);
    EXPECT_EQ(document.openFailure.cancelled, row.read == Abandoning<AbandonReason::kCancelled>);
    EXPECT_FALSE(document.loaded);
  }
}

TEST_F(OpenTest, FileThatIsMissingOrHeldIsReported) {
  CSonadexDoc missing(host.host);
  EXPECT_FALSE(missing.OnOpenDocument(host.folder / "none.wav"));
  const File held = File::OpenForUpdate(path);
  EXPECT_FALSE(document.OnOpenDocument(path));
  EXPECT_THAT(
      host.prompts.TakeTranscript(),
      ElementsAre("message: " + (host.folder / "none.wav") +
                      " could not be opened. No such file or directory.",
                  "message: " + path + " could not be opened. Another program is using it."));
}

TEST_F(OpenTest, LoadedDocumentIsUnmodifiedTitledAndSetsTheCurrentRate) {
  document.newRecording = true;
  document.SetModified(true);
  host.host.currentRateHz = host.host.recordingRateHz = 1.0;
  const Reader reader{"some", kPlain, [](CSonadexDoc& opened, const File&) {
                        SetForeignFields(opened, 16000.0, 48000.5);
                        return kWasRead;
                      }};
  ASSERT_TRUE(Open({reader}));
  EXPECT_TRUE(document.loaded && !document.newRecording && !document.isModified());
  EXPECT_EQ(Joined(document.pathName(), document.title()), path + " file");
  EXPECT_EQ(Joined(document.savedRateHz, document.savedLength, document.savedDurationMs,
                   host.host.currentRateHz, host.host.recordingRateHz),
            "16000 48000.5 3000.03125 16000 1")
      << "opening must not change the recording rate";
}

// Counts how often the title is to be written anew.
struct TitleCount : DocumentObserver {
  void DocumentChanged(DocumentChanges changes, const DocumentObserver*) override {
    titles += changes.Has(DocumentChange::kTitle) ? 1 : 0;
  }
  int titles = 0;
};

TEST_F(OpenTest, TheTitleSaysWhetherADocumentIsModified) {
  TitleCount count;
  document.Attach(count);
  for (const bool modified : {true, true, false, false}) document.SetModified(modified);
  document.SetPathName("/a/talk.wav");
  EXPECT_EQ(count.titles, 3);
  document.Detach(count);
}

TEST_F(OpenTest, ContentAloneDecidesTheFormat) {
  WriteBytes(host.folder / "wave.qrv", fixture::Wav({}, fixture::Samples16({1, 2, 3})));
  WriteBytes(host.folder / "native.wav", fixture::SmallFile());
  CSonadexDoc wave(host.host);
  ASSERT_TRUE(wave.OnOpenDocument(host.folder / "wave.qrv"));
  EXPECT_EQ(wave.formatName, "WAV");
  EXPECT_TRUE(wave.foreignSource);
  CSonadexDoc native(host.host);
  ASSERT_TRUE(native.OnOpenDocument(host.folder / "native.wav"));
  EXPECT_EQ(native.formatName, "QRV_PC");
  EXPECT_FALSE(native.foreignSource);
}

TEST_F(OpenTest, EveryFormatHasItsSlot) {
  const auto slotsOf = [](std::span<const Reader> readers) {
    std::string slots;
    for (const Reader& reader : readers) {
      slots += std::string(reader.name) + (reader.kind == ReaderKind::kThreeWay ? "?, " : ", ");
    }
    return slots;
  };
  EXPECT_EQ(slotsOf(StandardReaders().byContent),
            "QRV_PC, labelled foreign 1, QRV_Mac, labelled foreign 2, KWZ_PC, KWZ_Mac, QRVMACX, "
            "KWZ_PC_FLOAT_24?, KWZ_PC_FLOAT?, Datalyn 1, Datalyn 2, foreign 3, AIFF/AIFC, WAV, "
            "CSL NSP, NIST SPHERE, SUN au, ESPS/xwave, format of today, ");
  EXPECT_EQ(slotsOf(StandardReaders().generic), "integer binary, ASCII, ");
}

TEST_F(OpenTest, UnknownContentPassesEverySlotToTheQuestion) {
  host.prompts.WillAnswer(Answer::kOk);
  host.prompts.WillCancel();
  EXPECT_FALSE(document.OnOpenDocument(path));
  EXPECT_THAT(host.prompts.TakeTranscript(), ElementsAre(kGenericQuestion, "generic"));
  EXPECT_FALSE(document.openFailure.shown);
}

}  // namespace
}  // namespace cantorix
