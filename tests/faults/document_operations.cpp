// document_operations.cpp - what commands of the desktop do to documents, logs, settings and
// recordings, by the functions that its menus call.
#include <array>
#include <filesystem>
#include <new>

#include "app/log_file.h"
#include "audio/sound_recorder.h"
#include "document/native_file.h"
#include "document/save_commands.h"
#include "faults/operation_rows.h"
#include "faults/witness.h"
#include "mainview/commands.h"
#include "mainview/label_commands.h"
#include "mainview/quiet_view.h"
#include "mainview/recording_placement.h"
#include "mainview/view_commands.h"
#include "mainview/view_fixture.h"
#include "platform/ini_profile_store.h"
#include "platform/quiet_prompts.h"
#include "settings/config_file.h"
#include "support/eventually.h"
#include "support/samples.h"
#include "support/scripted_wave.h"
#include "support/virtual_clock.h"

namespace cantorix::faults {
namespace {

class ImportDialogs : public QuietDialogs {
 public:
  std::optional<LabelFileOptions> AskLabelFile(const LabelFileOptions& preset) override {
    return preset;
  }
  std::optional<LabelExportAnswer> AskLabelExport(const std::vector<std::string>&,
                                                  const LabelFileOptions& preset) override {
    return LabelExportAnswer{"", preset};
  }
};

// A program with one document and its view; the user chooses the file "chosen", which is there.
struct Desk : Attempt {
  using Act = std::function<bool(Desk& desk)>;
  Desk(const std::string& path, Act whatToDo) : folder(path), act(std::move(whatToDo)) {
    prompts->chosen = folder + "files/chosen";
    std::filesystem::create_directory(folder + "files");
    WriteText(prompts->chosen, "an earlier file");
  }
  bool Do() override { return act(*this); }
  std::string State() override { return BytesOf(prompts->chosen); }
  int told() const override { return prompts->told; }
  std::string lastText() const override { return prompts->last.data(); }

  bool toldFailure() const {
    const std::string text = lastText();
    return text.find("could not be saved") + 1 != 0 || text.find("could not be opened") + 1 != 0;
  }
  // As a menu runs a command; what is captured needs no block of memory.
  bool Command(bool (*command)(Desk& desk)) {
    isDone = false;
    return Guarded(view, [this, command] { isDone = command(*this); }) && isDone;
  }
  void Fill(Place place) {
    Samples samples(3000);
    for (std::size_t i = 0; i < samples.size(); ++i) samples[i] = static_cast<std::int16_t>(i * 7);
    Hold(document, samples, 1000.0, place);
    AddLabel(document, 1, 700.0, "one");
    AddLabel(document, 1, 1400.0, "another one, of some length");
    view.Begin({645, 500});
  }
  // The recording as it would be saved.
  std::string Recording() {
    std::string bytes;
    if (!document.loaded) return bytes;
    const auto sink = [&bytes](std::span<const std::byte> piece) {
      bytes.append(reinterpret_cast<const char*>(piece.data()), piece.size());
    };
    WriteNative(sink, document, std::nullopt, progress);
    return bytes + (document.isModified() ? "modified" : "");
  }

  std::string folder;
  Act act;
  bool isDone = false;
  std::shared_ptr<Witness> prompts = std::make_shared<Witness>();
  NoProgress progress;
  FakeMemoryProbe memory;
  DocumentHost host{.prompts = *prompts,
                    .progress = progress,
                    .memory = memory,
                    .programDirectory = folder.substr(0, folder.size() - 1),
                    .application = {},
                    .documentsWriteConfiguration = false};
  Clipboard clipboard;
  FixedTextMeasurer measurer;
  QuietWindow window;
  ImportDialogs dialogs;
  CSonadexDoc document{host};
  CSonadexView view{document, {clipboard, folder, measurer, window, window, dialogs, {}}};
};

// What changes a file: saves, exports, log, configuration and profile.
struct FileRow {
  const char* name;
  bool (*command)(Desk& desk);
  bool isSilent = false;
};

LogTable LogOfThree() {
  LogTable log;
  for (int i = 0; i < 3; ++i) log.Append({"talk", "Pitch Entry: time, pitch", {"100.0", "20.5"}});
  return log;
}

const FileRow kFileRows[] = {
    {"save", [](Desk& desk) { return SaveDocument(desk.document); }},
    {"save as", [](Desk& desk) { return SaveDocumentAs(desk.document); }},
    {"save copy", [](Desk& desk) { return SaveCopyAs(desk.document); }},
    {"save selection", [](Desk& desk) { return SaveSelectionAs(desk.document); }},
    {"export", [](Desk& desk) { return ExportAsWave(desk.document); }},
    {"export labels",
     [](Desk& desk) {
       ExportLabels(desk.view);
       return !desk.toldFailure();
     }},
    {"save log",
     [](Desk& desk) {
       LogTable log = LogOfThree();
       return SaveLog(log, desk.prompts->chosen, *desk.prompts);
     }},
    {"export log",
     [](Desk& desk) { return ExportLogAsCsv(LogOfThree(), desk.prompts->chosen, *desk.prompts); }},
    {"write configuration",
     [](Desk& desk) {
       return Succeeds([&] {
         return WriteConfiguration(desk.prompts->chosen, {{}, desk.document.settings});
       });
     },
     true},
    {"write profile",
     [](Desk& desk) {
       return Succeeds(
           [&] { return IniProfileStore(desk.prompts->chosen).WriteText("a", "b", "c"); });
     },
     true},
};

void AddFileRows(std::vector<Operation>& operations) {
  for (const Place place : {Place::kMemory, Place::kDisk}) {
    for (const FileRow& row : kFileRows) {
      const auto prepare = [&row, place](const std::string& folder) {
        auto desk = std::make_unique<Desk>(
            folder, [&row](Desk& self) { return self.Command(row.command); });
        desk->Fill(place);
        desk->document.SetPathName(desk->prompts->chosen);
        SelectSpan(desk->view, 500.0, 900.0);
        return desk;
      };
      operations.push_back({std::string(row.name) + (place == Place::kDisk ? ", store" : ""),
                            prepare, row.isSilent});
    }
  }
}

// What changes a recording. One in the store that is half changed comes back by Undo.
struct EditDesk : Desk {
  using Desk::Desk;
  std::string State() override {
    const bool isHalf = failed && !isUndo && document.samplesOnDisk();
    if (isHalf && !view.undoAvailable) return kInParts;
    if (isHalf) Undo(view);
    return Recording().substr(0, isHalf ? before.size() : std::string::npos);
  }
  bool Do() override {
    failed = !Desk::Do();
    return !failed;
  }

  std::string before;
  bool isUndo = false;
  bool failed = false;
};

struct EditRow {
  const char* name;
  void (*edit)(CSonadexView& view);
  bool onDisk = false;  // too
  void (*first)(CSonadexView& view) = nullptr;
};

void Gain(CSonadexView& view) { ApplyReferenceAndGain(view, {50.0, 3.0}); }

const EditRow kEditRows[] = {
    {"cut", CutSelection},
    {"copy", CopySelection, true},
    {"paste", Paste, false, CopySelection},
    {"clear", ClearToReference},
    {"gain", Gain, true},
    {"smooth", Smooth, true},
    {"undo", Undo, true, Gain},
    {"undo a cut", Undo, false, CutSelection},
    {"undo a label", Undo, true, [](CSonadexView& view) { DeleteLabel(view, 1, 0); }},
    {"add label", [](CSonadexView& view) { AddLabelToTier(view, 2, LabelOf(5.0, "new")); }, true},
    {"edit label", [](CSonadexView& view) { EditLabel(view, 1, 0, LabelOf(6.0, "other")); }},
    {"import label lines",
     [](CSonadexView& view) {
       ImportLabelLines(view, 0, "0.1\tfirst\n0.5\tsecond one, longer\n", {});
     }},
};

void AddEditRows(std::vector<Operation>& operations) {
  for (const EditRow& row : kEditRows) {
    for (const Place place : {Place::kMemory, Place::kDisk}) {
      if (place == Place::kDisk && !row.onDisk) continue;
      const auto prepare = [&row, place](const std::string& folder) {
        auto desk = std::make_unique<EditDesk>(folder, [&row](Desk& self) {
          return Guarded(self.view, [&] { row.edit(self.view); });
        });
        desk->Fill(place);
        SelectSpan(desk->view, 500.0, 900.0);
        if (row.first != nullptr) row.first(desk->view);
        desk->before = desk->Recording();
        desk->isUndo = row.edit == Undo;
        return desk;
      };
      operations.push_back(
          {row.name + std::string(place == Place::kDisk ? ", store" : ""), prepare});
    }
  }
}

// What reads a file into a document: recordings, and labels for one that is there.
struct OpenDesk : Desk {
  using Desk::Desk;
  std::string State() override { return Recording(); }
};

bool Open(Desk& desk) {
  const bool isOpen = desk.document.OnOpenDocument(desk.prompts->chosen);
  const OpenFailure& failure = desk.document.openFailure;
  if (!isOpen && !failure.shown && !failure.reason.empty()) ++desk.prompts->told;
  return isOpen;
}

void AddOpens(std::vector<Operation>& operations) {
  namespace fs = std::filesystem;
  std::vector<fs::path> files{SamplesDirectory() + "/vowels.qrv"};
  for (const auto& entry :
       fs::directory_iterator(SamplesDirectory() + "/../tests/document/recordings")) {
    const auto ending = entry.path().extension();
    if (ending != ".s16" && ending != ".tsv") files.push_back(entry.path());
  }
  std::sort(files.begin() + 1, files.end());
  std::string seen;
  for (const fs::path& file : files) {
    const bool isFirst = seen.find(file.extension()) == std::string::npos;
    seen += file.extension();
    for (const std::int32_t minutes : {5, 0}) {
      const auto prepare = [file, minutes](const std::string& folder) {
        auto desk = std::make_unique<OpenDesk>(folder, Open);
        WriteText(desk->prompts->chosen, BytesOf(file));
        desk->document.memoryLimitMinutes = minutes;
        return desk;
      };
      operations.push_back({"open " + file.filename().string() + (minutes == 0 ? ", store" : ""),
                            prepare, false, true, isFirst});
    }
  }
}

void AddLabelFiles(std::vector<Operation>& operations) {
  for (const char* name : {"textgrid/long_utf16", "elan/plain", "emu/plain", "audacity/regions"}) {
    const auto prepare = [name](const std::string& folder) {
      auto desk = std::make_unique<OpenDesk>(folder, [](Desk& self) {
        return self.Command([](Desk& there) {
          ImportLabelFile(there.view);
          return !there.toldFailure();
        });
      });
      desk->Fill(Place::kMemory);
      // The first byte of an input of the fuzzer chooses the format.
      WriteText(desk->prompts->chosen,
                BytesOf(SamplesDirectory() + "/../fuzz/corpus/" + name).substr(1));
      return desk;
    };
    Operation operation{std::string("import ") + name, prepare};
    // The library of JSON needs memory to free what it has read.
    operation.freesWithoutMemory = std::string_view(name) != "emu/plain";
    operations.push_back(std::move(operation));
  }
}

// A recording of two buffers that becomes the document's. What was recorded before a failure is
// kept.
struct RecordDesk : OpenDesk {
  explicit RecordDesk(const std::string& path) : OpenDesk(path, Record) {}
  std::string State() override { return failed ? kInParts : Recording(); }

  static bool Record(Desk& desk) {
    auto& self = static_cast<RecordDesk&>(desk);
    self.failed = !self.Command([](Desk& there) { return static_cast<RecordDesk&>(there).Run(); });
    return !self.failed;
  }
  bool Run() {
    recorder.SetUp({11025, 16, folder, "20261121-143005", nullptr, nullptr});
    bool isWhole = recorder.Start();
    for (int i = 1; i <= 2 && isWhole; ++i) {
      device->Deliver(samples);
      const auto settled = [&] {
        return recorder.Status().hasFailed || recorder.Status().deliveredSamples == i * 4096;
      };
      isWhole = Eventually(settled) && !recorder.Status().hasFailed;
    }
    // The desktop ends a recording that has failed, and says that it has.
    if (recorder.Status().hasFailed && told() == 0) ++prompts->told;
    recorder.Stop();
    auto file = recorder.TakeFile();
    const bool isThere = file != nullptr;
    return isThere && PlaceRecording(view, std::move(file)) && isWhole;
  }

  std::vector<std::int16_t> samples = std::vector<std::int16_t>(4096, 5);
  bool failed = false;
  VirtualClock clock;
  std::shared_ptr<ScriptedIn> device = std::make_shared<ScriptedIn>();
  SoundRecorder recorder{device, prompts, clock, memory};
};

}  // namespace

void AddDocumentOperations(std::vector<Operation>& operations) {
  AddFileRows(operations);
  AddEditRows(operations);
  AddLabelFiles(operations);
  operations.push_back({"open log", [](const std::string& folder) {
                          auto desk = std::make_unique<Desk>(folder, [](Desk& self) {
                            return self.Command([](Desk& there) {
                              LogTable log;
                              return OpenLog(log, there.prompts->chosen, *there.prompts);
                            });
                          });
                          WriteText(desk->prompts->chosen, LogText(LogOfThree()));
                          return desk;
                        }});
  operations.push_back(
      {"record", [](const std::string& folder) { return std::make_unique<RecordDesk>(folder); }});
  AddOpens(operations);
}

std::vector<Operation> Operations() {
  std::vector<Operation> operations;
  AddDocumentOperations(operations);
  AddApplicationOperations(operations);
  AddBatchOperations(operations);
  return operations;
}

}  // namespace cantorix::faults
