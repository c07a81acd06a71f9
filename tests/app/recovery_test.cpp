// recovery_test.cpp - work of a program that was killed, brought back by the next one: the document
// is what it was, sample for sample and label for label, or the user is told what is missing.
#include "app/recovery.h"

#include <fstream>
#include <functional>

#include "app/log_journal.h"
#include "app/unsaved_recordings.h"
#include "audio/recording_file.h"
#include "document/save_commands.h"
#include "mainview/recording_placement.h"
#include "platform/abandon.h"
#include "platform/file_error.h"
#include "recovery_fixture.h"
#include "support/sound_samples.h"

namespace cantorix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(RecoveryTest, BringsBackEveryKindOfWork) {
  using S = Session;
  const auto cut = [](S& s) {
    Select(s, 100, 700);
    CutSelection(s.view);
  };
  const auto pasteAt = [](S& s, double at) {
    PutCursorAt(s, at);
    Paste(s.view);
  };
  const auto gain = [](S& s) { ApplyReferenceAndGain(s.view, {15.0, 7.0}); };
  const auto undo = [](S& s) { Undo(s.view); };
  const auto clear = [](S& s) {
    s.document.channel().referenceLevel = -3.5;
    Select(s, 1000, 1010);
    ClearToReference(s.view);
  };
  const auto save = [](S& s) { SaveDocument(s.document); };
  struct Row {
    const char* name;
    Place place;
    std::string changes;
    std::function<void(S&)> work;
  };
  const Row rows[] = {
      {"labels", Place::kMemory, "3 changes",
       [this](S& s) {
         Label(s, 5.0, "a");
         Label(s, 1.0, "b");
       }},
      {"a label moved and one gone", Place::kDisk, "2 changes",
       [](S& s) {
         s.document.channel().tiers[0].labels[0].timeMs = 1999.25;
         s.document.channel().tiers[1].labels.clear();
         s.document.Notify(DocumentChange::kLabels);
       }},
      {"more labels than one tick writes, and some gone before the last", Place::kMemory,
       "2003 changes",
       [this](S& s) {
         for (int i = 0; i < 1200; ++i) AddLabel(s.document, 3, i, std::to_string(i));
         Label(s, 5.0, "a");
         s.journal.Tick(0.0);
         auto& labels = s.document.channel().tiers[3].labels;
         labels.erase(labels.begin() + 400, labels.begin() + 403);
         labels.resize(labels.size() - 2);
         s.document.Notify(DocumentChange::kLabels);
       }},
      {"settings beside a label", Place::kMemory, "2 changes",
       [this](S& s) {
         Label(s, 5.0, "a");
         s.document.settings.fftLpc.lpcOrder = 20;
         s.document.Notify(DocumentChange::kSettings);
       }},
      {"cut", Place::kMemory, "1 change", cut},
      {"cut and paste, twice", Place::kMemory, "3 changes",
       [&](S& s) {
         cut(s);
         pasteAt(s, 900.0);
         pasteAt(s, 2.0);
       }},
      {"clear", Place::kMemory, "1 change", clear},
      {"gain, smooth", Place::kMemory, "2 changes",
       [&](S& s) {
         gain(s);
         Smooth(s.view);
       }},
      {"smooth, gain", Place::kDisk, "2 changes",
       [&](S& s) {
         Smooth(s.view);
         gain(s);
       }},
      {"cut, undo, gain", Place::kMemory, "3 changes",
       [&](S& s) {
         cut(s);
         undo(s);
         gain(s);
       }},
      {"gain, gain, undo", Place::kDisk, "3 changes",
       [&](S& s) {
         gain(s);
         gain(s);
         undo(s);
       }},
      {"undo of what was saved", Place::kMemory, "1 change",
       [&](S& s) {
         cut(s);
         save(s);
         undo(s);
       }},
      {"undo of what was saved, smooth", Place::kDisk, "2 changes",
       [&](S& s) {
         gain(s);
         save(s);
         undo(s);
         Smooth(s.view);
       }},
      {"gain given up", Place::kDisk, "1 change",
       [&](S& s) {
         progress = CancellingProgress();
         SaveUndoFile(s.view);
         // Behind the first of three seconds.
         progress = CancellingProgress(static_cast<int>(progress.done.size()) + 1);
         EXPECT_THROW(gain(s), Abandoned);
         progress = CancellingProgress();
       }},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    std::filesystem::copy_file(path, folder / "row.qrv",
                               std::filesystem::copy_options::overwrite_existing);
    Session session(*this, row.place);
    ASSERT_TRUE(session.document.OnOpenDocument(folder / "row.qrv"));
    session.view.Begin({645, 500});
    row.work(session);
    Kill(session);
    EXPECT_TRUE(Restored() == ContentOf(session.document));
    EXPECT_THAT(prompts.TakeTranscript(),
                ElementsAre("ask yes/no/cancel: The work on ' row.qrv ' from 2026-11-21 14:30:05 "
                            "was not saved: " +
                            row.changes + ".\nWould you like to restore it ?"));
    EXPECT_TRUE(next->pathIsForeign);
    // Restored work that nobody saved is offered again.
    const std::string content = ContentOf(*next);
    next.reset();
    EXPECT_TRUE(Restored() == content);
    prompts.TakeTranscript();
    session.document.SetModified(false);
    for (const std::string& name : LeftFiles()) {
      std::filesystem::remove(app.temporaryDirectory + name);
    }
  }
  EXPECT_THAT(killed.Names(), IsEmpty());
}

TEST_F(RecoveryTest, KeepsOrDeletesByTheAnswer) {
  for (const Answer answer : {Answer::kCancel, Answer::kNo}) {
    Session session(*this, Place::kMemory);
    ASSERT_TRUE(session.document.OnOpenDocument(path));
    Label(session, 5.0, "a");
    Kill(session);
    EXPECT_EQ(Restored(answer), "");
    EXPECT_EQ(prompts.TakeTranscript().size(), 1U);
    EXPECT_EQ(LeftFiles().size(), answer == Answer::kNo ? 0U : 1U);
    if (answer == Answer::kCancel) std::filesystem::remove(app.temporaryDirectory + LeftFiles()[0]);
  }
}

TEST_F(RecoveryTest, SaysWhatIsMissingWhenTheFileIsNotWhatItWas) {
  const auto grow = [this] { std::ofstream(path, std::ios::app) << "!"; };
  const auto remove = [this] { std::filesystem::remove(path); };
  const auto other = [this] {
    CSonadexDoc talk(app.host);
    Hold(talk, SpeechLike(7), kRateHz);
    SaveNative(talk, path, std::nullopt);
  };
  const std::string changed = "message: ' " + path + " ' has changed since then.\n";
  const std::string onSamples = "The labels are restored, on the samples that it has now.";
  const std::string silence = "The labels are restored, over silence.";
  const struct {
    const char* name;
    std::function<void()> happens;
    bool cuts;
    std::string told;
    double length;
    std::string labels;
  } rows[] = {
      {"grown", grow, false, changed + onSamples, 2500.0, "one@200"},
      {"grown, cut", grow, true, changed + silence, 2490.0, "one@190"},
      {"another recording", other, false, changed + silence, 2500.0, "one@200"},
      {"gone", remove, false,
       "message: " + CouldNotBeOpened(path, "No such file or directory.") + "\n" + silence, 2500.0,
       "one@200"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Session session(*this, Place::kMemory);
    ASSERT_TRUE(session.document.OnOpenDocument(path));
    session.view.Begin({645, 500});
    Label(session, 5.0, "a");
    Select(session, 10, 20);
    if (row.cuts) CutSelection(session.view);
    Kill(session);
    const std::string bytes = ReadWholeFile(path);
    row.happens();
    Restored();
    const auto told = prompts.TakeTranscript();
    EXPECT_EQ(told.back(), row.told);
    EXPECT_EQ(next->channel().totalLength, row.length);
    EXPECT_EQ(LabelsOf(next->channel(), 0), row.labels);
    EXPECT_EQ(LabelsOf(next->channel(), 2), "a@5");
    // The journal of its own holds what was restored.
    const std::string content = ContentOf(*next);
    EXPECT_EQ(LeftFiles().size(), 1U);
    next.reset();
    EXPECT_TRUE(Restored() == content);
    prompts.TakeTranscript();
    std::filesystem::remove(app.temporaryDirectory + LeftFiles()[0]);
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
    session.document.SetModified(false);
  }
}

TEST_F(RecoveryTest, AsksOnceForARecordingWithLabels) {
  const auto record = [this] {
    Session session(*this, Place::kMemory);
    auto file = RecordingFile::Create(folder.path() + "/tmp", "20261121-120000", 16000);
    file->Append(SamplesFrom(0, 4000));
    PlaceRecording(session.view, std::move(file));
    Label(session, 100.0, "said");
    Kill(session);
    return ContentOf(session.document);
  };
  const std::string content = record();
  prompts.WillAnswer(Answer::kCancel);
  const OfferedWork later = OfferLeftWork(app);
  EXPECT_THAT(OfferUnsavedRecordings(app, later.recordingsForLater), IsEmpty());
  EXPECT_TRUE(Restored() == content);
  EXPECT_THAT(OfferUnsavedRecordings(app), IsEmpty());  // it is open
  EXPECT_EQ(prompts.TakeTranscript().size(), 2U);
  next.reset();
  EXPECT_EQ(Restored(Answer::kNo), "");
  EXPECT_THAT(LeftFiles(), IsEmpty());
  prompts.TakeTranscript();
}

TEST_F(RecoveryTest, LeavesNothingBehindAfterASaveOrANormalEnd) {
  Session session(*this, Place::kMemory);
  ASSERT_TRUE(session.document.OnOpenDocument(path));
  session.view.Begin({645, 500});
  session.journal.Tick(0.0);
  EXPECT_THAT(killed.Names(), IsEmpty());  // nothing was done
  Label(session, 5.0, "a");
  Smooth(session.view);
  session.journal.Tick(0.0);
  EXPECT_EQ(killed.Names().size(), 1U);
  EXPECT_THAT(OpenLeftJournals(killed.path() + "/", kDocumentJournals), IsEmpty());  // it is live
  SaveDocument(session.document);
  EXPECT_THAT(killed.Names(), IsEmpty());
  Label(session, 7.0, "b");
  Kill(session);
  EXPECT_TRUE(Restored() == ContentOf(session.document));
  prompts.TakeTranscript();
}

TEST_F(RecoveryTest, TellsOnceThatWorkCannotBeWritten) {
  Session session(*this, Place::kMemory);
  ASSERT_TRUE(session.document.OnOpenDocument(path));
  std::filesystem::permissions(killed.path(), std::filesystem::perms::owner_read);
  std::filesystem::remove_all(killed.path());
  Label(session, 5.0, "a");
  const auto told = session.journal.Tick(0.0);
  ASSERT_TRUE(told);
  EXPECT_EQ(told->find("What is done to ' talk.qrv ' from here on would be lost in a crash. "), 0U);
  EXPECT_EQ(session.journal.Tick(1000.0), std::nullopt);
}

TEST_F(RecoveryTest, TheLogComesBackUntilItIsSaved) {
  std::optional<LogTable> log;
  const auto entry = [](const char* source, const char* value) {
    return LogEntry{source, "Pitch", {value}};
  };
  LogJournal journal(
      log, {[this] { return killed.path() + "/"; }, [] { return std::string("20261121-143005"); }});
  journal.Tick(0.0);
  log.emplace();
  journal.Tick(0.0);
  EXPECT_THAT(killed.Names(), IsEmpty());
  log->Append(entry("a", "1"));
  log->Append(entry("b", "2\t3"));
  journal.Tick(0.0);
  log->RemoveRows(std::vector<std::size_t>{0});
  log->Append(entry("c", "4"));
  log->SetCell(0, 2, "5");
  journal.Tick(0.0);
  EXPECT_FALSE(journal.isBehind());
  for (int i = 0; i < 1200; ++i) log->Append(entry("d", std::to_string(i).c_str()));
  journal.Tick(0.0);
  EXPECT_TRUE(journal.isBehind());  // nothing of it counts yet
  log->RemoveRows(std::vector<std::size_t>{1, 3, 700});
  log->Undo();
  log->RemoveRows(std::vector<std::size_t>{3, 900});
  while (journal.isBehind()) journal.Tick(0.0);
  std::filesystem::copy_file(killed / killed.Names()[0],
                             app.temporaryDirectory + killed.Names()[0]);
  prompts.WillAnswer(Answer::kYes);
  ASSERT_TRUE(OfferLeftLog(app));
  EXPECT_THAT(
      prompts.TakeTranscript(),
      ElementsAre("ask yes/no/cancel: The log ' Untitled Log ' from 2026-11-21 14:30:05 was "
                  "not saved: 1200 rows.\nWould you like to restore it ?"));
  EXPECT_EQ(app.log->rows(), log->rows());
  EXPECT_EQ(app.log->captions(), log->captions());
  EXPECT_TRUE(app.log->isModified());
  log->SetStoredAt("/log.txt");
  journal.Tick(0.0);
  EXPECT_THAT(killed.Names(), IsEmpty());
}

}  // namespace
}  // namespace cantorix
