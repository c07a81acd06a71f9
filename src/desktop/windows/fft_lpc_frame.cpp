// fft_lpc_frame.cpp - the fields beside the commands, and the settings that they turn.
#include "desktop/windows/fft_lpc_frame.h"

#include <QLabel>
#include <algorithm>

#include "analysis/spectrum_limits.h"
#include "desktop/paint/words.h"
#include "desktop/qt_text.h"
#include "mainview/option_commands.h"
#include "settings/option_forms.h"

namespace cantorix {
namespace {

int MostOrder(double rateHz) {
  return static_cast<int>(std::clamp(static_cast<double>(MostLpcCoefficients(rateHz)),
                                     kSpectrumOrders.least, kSpectrumOrders.most));
}

}  // namespace

CFFTLPCFrame::CFFTLPCFrame(CSonadexView& view, AnalysisFrameHost& host, WindowPlacement& placement)
    : AnalysisFrame(view, host, placement), model_(view.document(), Services()), picture_(model_) {
  Build();
}

void CFFTLPCFrame::FillStrip(QToolBar& strip) {
  const double rateHz = view().channel().sampleRateHz;
  fields_ = new StripFields(strip, {[this] { Refresh(); }, [this] { return busy(); }});
  sizes_ = fields_->AddSizes(rateHz, kFftLpcSizes, [this](std::int32_t points) {
    Set([points](auto& settings) { Use({.points = points}, settings); });
  });
  order_ = fields_->AddNumber(
      {Tr("L&PC order"),
       Tr("Coefficients of envelope and formants"),
       {},
       QStringLiteral("LPC "),
       static_cast<int>(kSpectrumOrders.least),
       MostOrder(rateHz)},
      [this](int order) { Set([order](auto& settings) { settings.lpcOrder = order; }); });
  rangeHz_ =
      fields_->AddNumber({Tr("Ra&nge"),
                          Tr("The picture reaches from 0 Hz to here"),
                          QStringLiteral(" Hz"),
                          {},
                          1,
                          std::max(HighestRangeHz(rateHz), 1),
                          kRangeStepHz},
                         [this](int hz) { Set([hz](auto& settings) { settings.rangeHz = hz; }); });
  place_ = new QLabel(&strip);
  place_->setTextFormat(Qt::PlainText);
  place_->setFont(rangeHz_->font());
  place_->setContentsMargins(8, 0, 4, 0);
  place_->setAccessibleName(Tr("Place of the spectrum"));
  strip.addWidget(place_);
}

void CFFTLPCFrame::RefreshStrip() {
  const FftLpcSettings& settings = view().document().settings.fftLpc;
  StripFields::ShowPoints(*sizes_, settings.points);
  fields_->Show(*order_, settings.lpcOrder);
  fields_->Show(*rangeHz_, settings.rangeHz);
  place_->setText(Translated(model_.PlaceText()));
}

RateHint CFFTLPCFrame::Hint() const {
  const CSonadexDoc& document = model_.document();
  return HintFor(document.settings.fftLpc, document.channel().sampleRateHz);
}

void CFFTLPCFrame::Set(const std::function<void(FftLpcSettings&)>& change) {
  Run([&] {
    FftLpcSettings settings = view().document().settings.fftLpc;
    change(settings);
    UseInDocument(view(), settings);
  });
}

}  // namespace cantorix
