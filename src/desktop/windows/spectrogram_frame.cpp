// spectrogram_frame.cpp - the fields beside the commands, and the settings that they turn.
#include "desktop/windows/spectrogram_frame.h"

#include <algorithm>

#include "desktop/paint/words.h"
#include "mainview/option_commands.h"
#include "settings/option_forms.h"

namespace cantorix {
namespace {

constexpr int kWidestRangeDb = 200;

struct NamedMap {
  ColorMap map;
  const char* name;
};
constexpr NamedMap kMaps[] = {{ColorMap::kGrey, Marked("Grey")},
                              {ColorMap::kInverseGrey, Marked("Inverse grey")},
                              {ColorMap::kEmber, Marked("Ember")},
                              {ColorMap::kTide, Marked("Tide")}};

int MostHz(double rateHz) { return std::max(SpectrogramRangeLimitHz(rateHz), kLowestRangeHz); }

}  // namespace

CSpectrogramFrame::CSpectrogramFrame(CSonadexView& view, AnalysisFrameHost& host,
                                     WindowPlacement& placement)
    : AnalysisFrame(view, host, placement),
      model_(view.document(), Services()),
      picture_(model_, host.WaveformOf(view.document())) {
  Build();
}

void CSpectrogramFrame::FillStrip(QToolBar& strip) {
  const double rateHz = view().channel().sampleRateHz;
  colors_ = new StripList(&strip);
  for (const NamedMap& map : kMaps) colors_->addItem(Tr(map.name));
  colors_->setToolTip(Tr("Colours from silence to the highest level"));
  connect(colors_, &QComboBox::currentIndexChanged, this, [this](int index) {
    picture_.SetColors(kMaps[index].map);
    canvas().update();
  });
  strip.addSeparator();
  fields_ = new StripFields(strip, {[this] { Refresh(); }, [this] { return busy(); }});
  sizes_ = fields_->AddSizes(rateHz, kSpectrogramSizes, [this](std::int32_t points) {
    Set([points](auto& settings) { Use({.points = points}, settings); });
  });
  order_ = fields_->AddNumber(
      {Tr("&LPC order"),
       Tr("Coefficients of the formants"),
       {},
       QStringLiteral("LPC "),
       1,
       kMostTrackingCoefficients},
      [this](int order) { Set([order](auto& settings) { settings.lpcOrder = order; }); });
  rangeHz_ =
      fields_->AddNumber({Tr("Ra&nge"),
                          Tr("The picture reaches from 0 Hz to here"),
                          QStringLiteral(" Hz"),
                          {},
                          kLowestRangeHz,
                          MostHz(rateHz),
                          kRangeStepHz},
                         [this](int hz) { Set([hz](auto& settings) { settings.rangeHz = hz; }); });
  rangeDb_ = fields_->AddNumber(
      {Tr("&Dynamic"),
       Tr("Levels this far below the highest one are shown"),
       QStringLiteral(" dB"),
       {},
       1,
       kWidestRangeDb,
       5},
      [this](int db) { Set([db](auto& settings) { settings.dynamicRangeDb = db; }); });
  fields_->AddList(Tr("Colo&urs"), *colors_);
}

void CSpectrogramFrame::RefreshStrip() {
  const SpectrogramSettings& settings = view().document().settings.spectrogram;
  StripFields::ShowPoints(*sizes_, settings.points);
  fields_->Show(*order_, settings.lpcOrder);
  order_->setEnabled(settings.trackFormants != 0);
  fields_->Show(*rangeHz_, settings.rangeHz);
  fields_->Show(*rangeDb_, settings.dynamicRangeDb);
}

RateHint CSpectrogramFrame::Hint() const {
  const CSonadexDoc& document = model_.document();
  return HintFor(document.settings.spectrogram, document.channel().sampleRateHz);
}

void CSpectrogramFrame::Set(const std::function<void(SpectrogramSettings&)>& change) {
  Run([&] {
    SpectrogramSettings settings = view().document().settings.spectrogram;
    change(settings);
    UseInDocument(view(), settings);
  });
}

}  // namespace cantorix
