// spectrogram_frame.cpp - the fields for colours and dynamic range beside the commands.
#include "desktop/windows/spectrogram_frame.h"

#include <QComboBox>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolBar>

#include "mainview/option_commands.h"

namespace cantorix {
namespace {

constexpr int kWidestRangeDb = 200;

struct NamedMap {
  ColorMap map;
  const char* name;
};
constexpr NamedMap kMaps[] = {{ColorMap::kGrey, "Grey"},
                              {ColorMap::kInverseGrey, "Inverse grey"},
                              {ColorMap::kEmber, "Ember"},
                              {ColorMap::kTide, "Tide"}};

}  // namespace

CSpectrogramFrame::CSpectrogramFrame(CSonadexView& view, AnalysisFrameHost& host,
                                     WindowPlacement& placement)
    : AnalysisFrame(view, host, placement),
      model_(view.document(), Services()),
      picture_(model_, host.WaveformOf(view.document())) {
  Build();
}

void CSpectrogramFrame::FillStrip(QToolBar& strip) {
  strip.addSeparator();
  auto* const colorsName = new QLabel(QStringLiteral(" Colo&urs "), &strip);
  colors_ = new QComboBox(&strip);
  for (const NamedMap& map : kMaps) colors_->addItem(QLatin1String(map.name));
  colorsName->setBuddy(colors_);
  colors_->setToolTip(QStringLiteral("Colours from silence to the highest level"));
  connect(colors_, &QComboBox::currentIndexChanged, this, [this](int index) {
    picture_.SetColors(kMaps[index].map);
    canvas().update();
  });
  auto* const rangeName = new QLabel(QStringLiteral(" &Dynamic range "), &strip);
  range_ = new QSpinBox(&strip);
  range_->setRange(1, kWidestRangeDb);
  range_->setSuffix(QStringLiteral(" dB"));
  // Not at every digit that is typed.
  range_->setKeyboardTracking(false);
  range_->setToolTip(QStringLiteral("Levels this far below the highest one are shown"));
  rangeName->setBuddy(range_);
  connect(range_, &QSpinBox::valueChanged, this, [this](int db) { SetDynamicRange(db); });
  for (QWidget* const widget :
       std::initializer_list<QWidget*>{colorsName, colors_, rangeName, range_}) {
    strip.addWidget(widget);
  }
}

void CSpectrogramFrame::RefreshStrip() {
  const QSignalBlocker quiet(range_);
  range_->setValue(model_.document().settings.spectrogram.dynamicRangeDb);
}

void CSpectrogramFrame::SetDynamicRange(int db) {
  Run([this, db] {
    model_.document().settings.spectrogram.dynamicRangeDb = db;
    KeepOptions(view(), SettingsDialog::kSpectrogram);
  });
}

}  // namespace cantorix
