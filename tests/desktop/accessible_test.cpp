// accessible_test.cpp - the program as assistive technology meets it: the tree of accessible
// objects of the frame with all its windows and of every dialog.
#include <QAccessible>
#include <QScrollBar>

#include "desktop/analysis_fixture.h"
#include "desktop/dialog_helpers.h"
#include "desktop/dialogs/channel_dialog.h"
#include "desktop/dialogs/generic_dialog.h"
#include "desktop/dialogs/label_dialog.h"
#include "desktop/dialogs/label_file_dialogs.h"
#include "desktop/dialogs/label_import_dialog.h"
#include "desktop/dialogs/option_dialog.h"
#include "desktop/dialogs/texts_dialog.h"
#include "desktop/dialogs/tiers_dialog.h"
#include "mainview/dialog_answers.h"
#include "mainview/label_entry_state.h"
#include "settings/option_forms.h"

namespace cantorix {
namespace {

bool IsInteractive(const QAccessibleInterface& object) {
  switch (object.role()) {
    case QAccessible::Button:
    case QAccessible::ButtonMenu:
    case QAccessible::CheckBox:
    case QAccessible::RadioButton:
    case QAccessible::ComboBox:
    case QAccessible::EditableText:
    case QAccessible::SpinBox:
    case QAccessible::Slider:
    case QAccessible::MenuItem:
    case QAccessible::Table:
    case QAccessible::ColumnHeader:
    case QAccessible::Chart:
      return true;
    default:
      return object.state().focusable;
  }
}

// The bars of a table, and the frames around widgets, pass the focus on.
bool IsToolkits(const QAccessibleInterface& object) {
  const auto* const widget = qobject_cast<const QWidget*>(object.object());
  if (widget == nullptr) return object.role() == QAccessible::MenuItem && object.state().invisible;
  return widget->inherits("QMdiArea") || widget->inherits("QMdiSubWindow") ||
         (widget->inherits("QScrollBar") && !widget->parent()->inherits("QWidget"));
}

// One line for each object below `object`: role, name and value; a failure for each that a user can
// reach and that has no name.
void Walk(QAccessibleInterface* object, const QString& path, std::map<QString, QString>& values) {
  if (object == nullptr || !object->isValid() || path.count('/') > 24) return;
  const QString name = object->text(QAccessible::Name);
  const auto* const widget = qobject_cast<const QWidget*>(object->object());
  const bool isSeen = widget == nullptr || widget->isVisible();
  const QString here = path + '/' + (widget == nullptr ? "" : widget->metaObject()->className()) +
                       '[' + QString::number(object->role()) + "] " + name;
  if (isSeen && !object->state().invisible && IsInteractive(*object) && !IsToolkits(*object)) {
    EXPECT_FALSE(name.isEmpty()) << Typed(here);
  }
  if (object->role() == QAccessible::Chart) values[name] = object->text(QAccessible::Value);
  for (int i = 0; i < object->childCount(); ++i) Walk(object->child(i), here, values);
}

std::map<QString, QString> ValuesOf(QWidget& window) {
  std::map<QString, QString> values;
  Walk(QAccessible::queryAccessibleInterface(&window), {}, values);
  return values;
}

using Accessible = AnalysisDesktopTest;

TEST_F(Accessible, PicturesAreReadWithTheirPanesAndValues) {
  frame.resize(1280, 900);
  CSonadexView& view = OpenSample();
  for (const Command command : {Command::kLogNew, Command::kViewLabels, Command::kDisplayOptions,
                                Command::kRecordPlayOptions, Command::kPhoneticChart}) {
    Perform(command);
  }
  Mark(view, 300.0);
  for (const Command command :
       {Command::kPitchAll, Command::kPitchWindow, Command::kSpectrogramAll, Command::kFftLpc}) {
    Perform(command);
  }
  auto values = ValuesOf(frame);
  EXPECT_EQ(Typed(values["Recording"]), "cursor 300.0 ms");
  EXPECT_EQ(Typed(values["words"]), "cursor 300.0 ms  'i'  7 labels");
  EXPECT_TRUE(values["Audio"].startsWith("cursor 300.0 ms  amp ")) << Typed(values["Audio"]);
  QAccessibleInterface* const picture =
      QAccessible::queryAccessibleInterface(&frame.activeFrame()->area().picture());
  const PixelRect& audio = view.layout.audio;
  QRect found;
  for (int i = 0; i < picture->childCount(); ++i) {
    if (picture->child(i)->text(QAccessible::Name) == "Audio") found = picture->child(i)->rect();
  }
  EXPECT_EQ(found.size(), QSize(audio.right - audio.left, audio.bottom - audio.top));
  const QStringList pitch = values["Pitch (Hz)"].split(' ');
  ASSERT_EQ(pitch.size(), 7) << Typed(values["Pitch (Hz)"]);
  EXPECT_NEAR(pitch[5].toDouble(), 100.0, 2.0) << "the truth of the sample at 300 ms";
  EXPECT_EQ(Typed(values["Spectrogram"]),
            "shown 0.0 ms \u2013 5410.1 ms  0 \u2013 5000 Hz  formants");
  EXPECT_EQ(Typed(values["Pitch"]), "shown 0.0 ms \u2013 5410.1 ms");
  EXPECT_EQ(Typed(values["FFT/LPC"]), "FFT, LPC  0 \u2013 5000 Hz  at 300.0 ms");
  Select(view, 200.0, 700.0);
  EXPECT_EQ(Typed(ValuesOf(frame)["Recording"]), "selection 200.0 ms \u2013 700.0 ms");
  // What is under the pointer, once that has rested.
  AnalysisFrame& spectrogram = Find(view, WindowKind::kSpectrogram);
  const PixelRect& plot = spectrogram.model().plot;
  const auto pointed = PointedIn(spectrogram.model(), plot.left + 50, plot.top + 20);
  ASSERT_TRUE(pointed);
  frame.PointedAt(view, pointed);
  EXPECT_NE(Typed(ValuesOf(frame)["Recording"]), pointed->text);
  QTest::qWait(350);
  for (const char* const name : {"Recording", "Spectrogram", "Pitch"}) {
    EXPECT_EQ(Typed(ValuesOf(frame)[name]), pointed->text) << name;
  }
  frame.PointedAt(view, std::nullopt);
  EXPECT_EQ(Typed(ValuesOf(frame)["Recording"]), "selection 200.0 ms \u2013 700.0 ms");
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->isVisible()) ValuesOf(*window);
  }
}

TEST_F(Accessible, EveryFieldOfEveryDialogHasAName) {
  const auto walk = [](QWidget&& dialog) {
    dialog.show();
    SCOPED_TRACE(Typed(dialog.windowTitle()));
    ValuesOf(dialog);
  };
  walk(LabelDialog(prompts, {}, true, nullptr));
  walk(TiersDialog(prompts, {}, nullptr));
  walk(ChannelDialog("Which ?", 3, nullptr));
  walk(TextsDialog(prompts, {"Go to", {{"Time:", "1.0"}}, "Milliseconds"}, nullptr));
  walk(OptionDialog<FftLpcSettings>(prompts, FftLpcForm(), {{}, {}, 11025.0}, nullptr));
  walk(OptionDialog<SpectrogramSettings>(prompts, SpectrogramForm(), {{}, {}, 11025.0}, nullptr));
  walk(OptionDialog<PitchSettings>(prompts, PitchForm(), {{}, {}, 11025.0}, nullptr));
  walk(OptionDialog<IntensitySettings>(prompts, IntensityForm(), {{}, {}, 11025.0}, nullptr));
  walk(OptionDialog<DocumentSettings>(prompts, ZoomForm(), {{}, {}, 11025.0}, nullptr));
  walk(OptionDialog<DocumentSettings>(prompts, LogForm(), {{}, {}, 11025.0}, nullptr));
  walk(OptionDialog<GainSettings>(prompts, GainForm(), {{}, {}, 11025.0}, nullptr));
  walk(LabelImportDialog(prompts, {"tones"}, {}, nullptr));
  walk(LabelFileDialog(prompts, {.importFormat = "eaf"}, nullptr));
  walk(LabelExportDialog(prompts, {"tones"}, {.exportFormat = "eaf"}, nullptr));
  struct : GenericPreview {
    GenericOutcome Try(const GenericParameters&, int) override { return {}; }
  } preview;
  walk(GenericDialog(prompts, {}, preview, nullptr));
}

}  // namespace
}  // namespace cantorix
