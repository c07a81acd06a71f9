// keyboard_panes.cpp - Qt does not tell the state of these keys; the lamps of the keyboard do,
// under every window system.
#include "desktop/keyboard_panes.h"

#include <QLabel>
#include <QStatusBar>
#include <filesystem>
#include <fstream>

#include "desktop/paint/words.h"

namespace cantorix {
namespace {

constexpr const char* kLedFolder = "/sys/class/leds";
constexpr int kLookEveryMs = 500;

struct PaneText {
  const char* lamp;
  const char* text;
  const char* name;
};
constexpr std::array kTexts{PaneText{"capslock", "CAP", Marked("Caps Lock")},
                            PaneText{"numlock", "NUM", Marked("Num Lock")},
                            PaneText{"scrolllock", "SCRL", Marked("Scroll Lock")}};

}  // namespace

bool IsLampLit(const std::string& ledFolder, const std::string& lamp) {
  std::error_code unreadable;
  for (const auto& entry : std::filesystem::directory_iterator(ledFolder, unreadable)) {
    if (!entry.path().filename().string().ends_with("::" + lamp)) continue;
    int brightness = 0;
    if (std::ifstream(entry.path() / "brightness") >> brightness && brightness > 0) return true;
  }
  return false;
}

KeyboardPanes::KeyboardPanes(QStatusBar& bar) {
  for (std::size_t i = 0; i < panes_.size(); ++i) {
    auto* const text = new QLabel(QString::fromLatin1(kTexts[i].text), &bar);
    text->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    text->setContentsMargins(6, 0, 6, 0);
    text->setToolTip(Tr(kTexts[i].name));
    bar.addPermanentWidget(text);
    panes_[i] = {kTexts[i].lamp, text};
  }
  QObject::connect(&timer_, &QTimer::timeout, &bar, [this] { Refresh(); });
  timer_.start(kLookEveryMs);
  Refresh();
}

void KeyboardPanes::Refresh() {
  for (const Pane& pane : panes_) pane.text->setEnabled(IsLampLit(kLedFolder, pane.lamp));
}

}  // namespace cantorix
