// recovery_fixture.h - a program that is killed while it has a recording open, and the next one,
// with a folder of temporary files each.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "app/recovery.h"
#include "app_fixture.h"
#include "document/native_file.h"
#include "mainview/view_fixture.h"
#include "settings/record.h"

namespace cantorix {

inline constexpr double kRateHz = 1000.0;

class RecoveryTest : public AppTest {
 protected:
  // A document, its view and its journal in the folder of the program that will be killed.
  struct Session {
    Session(RecoveryTest& test, Place place)
        : document(test.app.host),
          view(document, test.world.Services()),
          journal(document, {[&test] { return test.killed.path() + "/"; },
                             [] { return std::string("20261121-143005"); }}) {
      if (place == Place::kDisk) document.memoryLimitMinutes = 0;
    }

    CSonadexDoc document;
    CSonadexView view;
    DocumentJournal journal;
  };

  RecoveryTest() {
    app.temporaryDirectory = folder.path() + "/tmp/";
    std::filesystem::create_directory(app.temporaryDirectory);
    app.host.documentsWriteConfiguration = false;
    CSonadexDoc talk(app.host);
    Hold(talk, SpeechLike(2500), kRateHz);
    AddLabel(talk, 1, 200.0, "one");
    AddLabel(talk, 4, 1800.0, "two");
    SaveNative(talk, path, std::nullopt);
  }

  static Samples SpeechLike(int count) {
    Samples samples;
    std::uint32_t state = 1;
    while (std::ssize(samples) < count) {
      state = state * 1664525U + 1013904223U;
      samples.push_back(static_cast<std::int16_t>(state >> 16U));
    }
    return samples;
  }

  // The journals as they stand when the program is killed.
  void Kill(Session& session, double nowMs = 0.0) {
    do {
      EXPECT_EQ(session.journal.Tick(nowMs), std::nullopt);
    } while (session.journal.isBehind());
    for (const std::string& name : killed.Names()) {
      if (!name.ends_with(".journal")) continue;
      std::filesystem::copy_file(killed / name, app.temporaryDirectory + name);
    }
  }

  std::vector<std::string> LeftFiles() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(app.temporaryDirectory)) {
      names.push_back(entry.path().filename());
    }
    return names;
  }

  // All that a native file holds, and the slots of the tiers and the settings beside it.
  static std::string ContentOf(CSonadexDoc& document) {
    std::string content;
    const auto add = [&content](std::span<const std::byte> bytes) {
      content.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    };
    WriteNative(add, document, std::nullopt, document.host().progress);
    add(EncodeRecord({{}, document.settings}));
    for (const Tier& tier : document.channel().tiers) content += tier.inUse ? "+" : "-";
    return content + (document.samplesOnDisk() ? " on disk" : " in memory");
  }

  // What the next start makes of the work; empty when nothing was restored.
  std::string Restored(Answer answer = Answer::kYes) {
    prompts.WillAnswer(answer);
    OfferedWork offered = OfferLeftWork(app);
    if (offered.wanted.empty()) return {};
    next = std::make_unique<CSonadexDoc>(app.host);
    DocumentJournal journal(*next, PlaceOfJournals(app));
    if (!RestoreWork(app, std::move(offered.wanted.front()), *next, journal)) return {};
    EXPECT_TRUE(next->isModified());
    return ContentOf(*next);
  }

  void Label(Session& session, double ms, const std::string& text) {
    AddLabel(session.document, 2, ms, text);
    session.document.Notify(DocumentChange::kLabels);
  }
  static void Select(Session& session, double start, double end) {
    CChannel& channel = session.document.channel();
    channel.selectionStart = {start, start};
    channel.selectionEnd = {end, end};
    channel.selectionLength = {end - start, end - start};
    session.view.SetSelection();
  }
  static void PutCursorAt(Session& session, double at) {
    session.document.channel().cursor = {at, at};
    session.view.SetMarker();
  }

  ViewWorld world;
  TemporaryFolder killed;
  const std::string path = folder / "talk.qrv";
  std::unique_ptr<CSonadexDoc> next;
};

}  // namespace cantorix
