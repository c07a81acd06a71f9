// application_operations.cpp - what the program does for itself: its configuration, its start, the
// journals of work and log, and what a killed program left.
#include <filesystem>

#include "app/configuration_commands.h"
#include "app/log_file.h"
#include "app/log_journal.h"
#include "app/recovery.h"
#include "app/start_up.h"
#include "document/native_file.h"
#include "faults/operation_rows.h"
#include "faults/witness.h"
#include "mainview/view_fixture.h"
#include "platform/ini_profile_store.h"
#include "settings/config_file.h"
#include "settings/record.h"

namespace cantorix::faults {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSection = "General Strings Section";

Settings SettingsOf(double rateHz, double windowMs) {
  Settings settings{{}, DefaultDocumentSettings()};
  settings.document.referenceRateHz = rateHz;
  settings.document.intensity.windowMs = windowMs;
  return settings;
}

// A program in its folder, with a profile that names it and a configuration.
struct Program : Attempt {
  using Act = bool (*)(Program& program);
  using Look = std::string (*)(Program& program);
  Program(const std::string& path, Act whatToDo, Look whatIsThere)
      : folder(path), act(whatToDo), look(whatIsThere) {
    fs::create_directories(tmp());
    application.host.programDirectory = home();
    application.host.documentsWriteConfiguration = false;
    application.temporaryDirectory = tmp();
    witness.chosen = folder + "chosen.cfg";
    WriteConfiguration(ConfigPath(home()), SettingsOf(16000.0, 20.0));
    profile.WriteText(kSection, "Temp Directory", home());
    profile.WriteText("Recent Files", "File1", folder + "talk.qrv");
  }
  std::string home() const { return folder + "home"; }
  std::string tmp() const { return home() + "/tmp/"; }

  bool Do() override {
    try {
      return act(*this);
    } catch (const std::bad_alloc&) {
      return Fails();
    }
  }
  // For want of memory, as menus and the main function tell it.
  bool Fails() {
    ++witness.told;
    return false;
  }
  std::string State() override { return look(*this); }
  int told() const override { return witness.told; }
  std::string lastText() const override { return witness.last.data(); }

  std::string folder;
  Act act;
  Look look;
  Witness witness;
  NoProgress progress;
  FakeMemoryProbe memory;
  IniProfileStore profile{folder + "profile.ini"};
  Application application{{profile, witness, progress, memory}};
  std::unique_ptr<CSonadexDoc> document;
  std::unique_ptr<DocumentJournal> journal;
  std::unique_ptr<LogJournal> log;
  bool isSynced = true;
};

std::string ConfigurationOf(Program& program) { return BytesOf(ConfigPath(program.home())); }

bool Patch(Program& program) {
  return PatchConfiguration(ConfigPath(program.home()), SettingsDialog::kIntensity,
                            SettingsOf(22050.0, 33.0));
}

bool Load(Program& program) { return LoadConfiguration(program.application.host, nullptr); }

bool SaveIt(Program& program) {
  SaveConfiguration(program.application.host, *program.document);
  return program.told() == 0;
}
std::string Chosen(Program& program) { return BytesOf(program.witness.chosen); }

// The folder that the profile names stays the program's, whatever cannot be read once; a
// configuration is whole.
bool Start(Program& program) {
  return StartUp(program.application, program.folder + "elsewhere") == StartUpResult::kReady;
}
std::string Started(Program& program) {
  const std::string kept = program.profile.ReadText(kSection, "Temp Directory").value_or("");
  if (kept != program.home()) return "the profile names '" + kept + "'";
  if (program.told() == 0 && program.application.host.programDirectory != program.home()) {
    return "it works elsewhere";
  }
  return BytesOf(ConfigPath(program.home())).size() == kRecordBytes ? kInParts : "no configuration";
}
bool StartFirst(Program& program) {
  return StartUp(program.application, program.home()) == StartUpResult::kReady;
}
std::string StartedFirst(Program& program) {
  const auto size = BytesOf(ConfigPath(program.home())).size();
  return size == 0 || size == kRecordBytes ? kInParts : "a torn configuration";
}

// As the timer of the desktop does it, which shows the sentence.
bool Tick(Program& program) {
  auto text = program.journal ? program.journal->Tick(0.0) : std::nullopt;
  if (!text && program.log) text = program.log->Tick(0.0);
  if (text) program.witness.Message(*text);
  return !text;
}

// What the next start would find in the journals. What could not be told for want of memory is told
// as soon as there is some.
std::string Journalled(Program& program) {
  Tick(program);
  std::string text;
  for (const auto& entry : fs::directory_iterator(program.tmp())) {
    if (entry.path().extension() != ".journal") continue;
    int records = 0;
    const auto committed = ReadCommitted(
        File::OpenUnlocked(entry.path().string()), [&] { records = 0; },
        [&](const JournalRecord&) { ++records; });
    if (committed) text += std::to_string(committed->changes) + " in " + std::to_string(records);
  }
  // Without the sync it stands there, and perhaps not on the disk.
  if (!program.isSynced) return kInParts;
  return text.empty() ? "nothing" : text;
}

JournalPlace PlaceIn(Program& program) {
  return {[&program] { return program.tmp(); }, [] { return std::string("20261121-143005"); }};
}

void Note(Program& program, const char* text) {
  AddLabel(*program.document, 1, 5.0, text);
  program.document->SetModified(true);
  program.document->Notify(DocumentChange::kLabels);
}

// A second commit behind the first one.
bool NoteMore(Program& program) {
  try {
    Note(program, "a second label of some length");
  } catch (const std::bad_alloc&) {
    return program.Fails();  // nothing was done
  }
  return Tick(program) && (program.isSynced = program.journal->WriteAll());
}

void OpenWithJournal(Program& program) {
  const std::string path = program.folder + "talk.qrv";
  {
    CSonadexDoc talk(program.application.host);
    Hold(talk, Ramp(3000), 1000.0);
    SaveNative(talk, path, std::nullopt);
  }
  program.document = std::make_unique<CSonadexDoc>(program.application.host);
  program.document->OnOpenDocument(path);
  program.journal = std::make_unique<DocumentJournal>(*program.document, PlaceIn(program));
  Note(program, "a first label of some length");
  Tick(program);
}

void LeaveJournal(Program& program) {
  OpenWithJournal(program);
  program.journal.reset();
  program.document.reset();
}

// As the desktop does it, which gives up a document that was not restored.
bool Recover(Program& program) {
  OfferedWork offered = OfferLeftWork(program.application);
  if (offered.wanted.empty()) return false;
  program.document = std::make_unique<CSonadexDoc>(program.application.host);
  program.journal = std::make_unique<DocumentJournal>(*program.document, PlaceIn(program));
  if (!RestoreWork(program.application, std::move(offered.wanted.front()), *program.document,
                   *program.journal)) {
    program.document->SetModified(false);
    program.journal.reset();
    program.document.reset();
    return false;
  }
  return program.told() == 0;
}
// Restored without its samples it has told so. Whatever happens, it can be restored once more.
std::string Recovered(Program& program) {
  if (Journalled(program) == "nothing") return "the work is lost";
  if (!program.document) return "left";
  if (program.told() > 0) return kInParts;
  return "restored " + LabelsOf(program.document->channel(), 1) +
         std::to_string(program.document->Samples().length());
}

bool OfferOnly(Program& program) {
  OfferLeftWork(program.application);
  return program.told() == 0;
}

bool EnterRow(Program& program) {
  LogTable& log = *program.application.log;
  log.Append({"talk", "Pitch Entry: time, pitch", {"100.0", "a value of some length"}});
  return Tick(program) && (program.isSynced = program.log->WriteAll());
}
void OpenLog(Program& program) {
  program.log = std::make_unique<LogJournal>(program.application.log, PlaceIn(program));
  program.application.log.emplace();
  EnterRow(program);
}
void LeaveLog(Program& program) {
  OpenLog(program);
  program.log.reset();
  program.application.log.reset();
}
bool RecoverLog(Program& program) {
  return OfferLeftLog(program.application).has_value() && program.told() == 0;
}
std::string RecoveredLog(Program& program) {
  if (Journalled(program) == "nothing") return "the rows are lost";
  return program.application.log ? LogText(*program.application.log) : "left";
}

struct Row {
  const char* name;
  Program::Act act;
  Program::Look look;
  void (*prepare)(Program& program) = nullptr;
  bool isSilent = false;
};

const Row kRows[] = {
    {"patch configuration", Patch, ConfigurationOf, nullptr, true},
    {"load configuration", Load, ConfigurationOf,
     [](Program& program) { WriteConfiguration(program.witness.chosen, SettingsOf(8000.0, 7.0)); }},
    {"save configuration", SaveIt, Chosen,
     [](Program& program) {
       WriteText(program.witness.chosen, "an earlier file");
       program.document = std::make_unique<CSonadexDoc>(program.application.host);
     }},
    {"start", Start, Started},
    {"start, first", StartFirst, StartedFirst,
     [](Program& program) {
       fs::remove_all(program.folder + "profile.ini");
       fs::remove(ConfigPath(program.home()));
     }},
    {"journal a label", NoteMore, Journalled, OpenWithJournal},
    {"journal a row", EnterRow, Journalled, OpenLog},
    // What cannot be read now is offered by the next start.
    {"restore work", Recover, Recovered, LeaveJournal, true},
    {"keep work", OfferOnly, Journalled,
     [](Program& program) {
       LeaveJournal(program);
       program.witness.answer = Answer::kCancel;
     },
     true},
    {"delete work", OfferOnly,
     [](Program& program) {
       const std::string text = Journalled(program);
       return text == "nothing" ? text : std::string(kInParts);
     },
     [](Program& program) {
       LeaveJournal(program);
       program.witness.answer = Answer::kNo;
     },
     true},
    {"restore a log", RecoverLog, RecoveredLog, LeaveLog, true},
};

}  // namespace

void AddApplicationOperations(std::vector<Operation>& operations) {
  for (const Row& row : kRows) {
    const auto prepare = [&row](const std::string& folder) {
      auto program = std::make_unique<Program>(folder, row.act, row.look);
      if (row.prepare != nullptr) row.prepare(*program);
      return program;
    };
    operations.push_back({row.name, prepare, row.isSilent});
  }
}

}  // namespace cantorix::faults
