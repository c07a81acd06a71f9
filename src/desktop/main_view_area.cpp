// main_view_area.cpp - the bars only report what was asked of them; the view decides where they go.
#include "desktop/main_view_area.h"

#include <QGridLayout>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>
#include <filesystem>
#include <optional>

#include "desktop/empty_note.h"
#include "desktop/main_view_widget.h"
#include "desktop/paint/words.h"
#include "desktop/qt_text.h"
#include "mainview/view_commands.h"

namespace cantorix {
namespace {

std::optional<ScrollRequest> RequestOf(int action) {
  switch (action) {
    case QAbstractSlider::SliderSingleStepAdd:
      return ScrollRequest::kLineForward;
    case QAbstractSlider::SliderSingleStepSub:
      return ScrollRequest::kLineBack;
    case QAbstractSlider::SliderPageStepAdd:
      return ScrollRequest::kPageForward;
    case QAbstractSlider::SliderPageStepSub:
      return ScrollRequest::kPageBack;
    case QAbstractSlider::SliderToMinimum:
    case QAbstractSlider::SliderToMaximum:
    case QAbstractSlider::SliderMove:
      return ScrollRequest::kTrack;
    default:
      return std::nullopt;
  }
}

void Show(QScrollBar& bar, const ScrollBar& state) {
  const QSignalBlocker quiet(bar);
  const std::int64_t last = std::int64_t{state.range} - state.page + 1;
  bar.setRange(0, static_cast<int>(std::max<std::int64_t>(last, 0)));
  bar.setPageStep(std::max(state.page, 1));
  bar.setSingleStep(std::max(state.page / 10, 1));
  bar.setValue(state.position);
}

}  // namespace

MainViewArea::MainViewArea(CSonadexView& view, DocumentWaveform& waveform, FrameHost& host,
                           QWidget* parent)
    : QWidget(parent),
      view_(&view),
      host_(host),
      picture_(new MainViewWidget(view, waveform, host, this)),
      horizontal_(new QScrollBar(Qt::Horizontal, this)),
      vertical_(new QScrollBar(Qt::Vertical, this)),
      note_(new EmptyNote(*picture_)) {
  auto* const grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(0);
  grid->addWidget(picture_, 0, 0);
  grid->addWidget(vertical_, 0, 1);
  grid->addWidget(horizontal_, 1, 0);
  horizontal_->setAccessibleName(Tr("Visible stretch"));
  vertical_->setAccessibleName(Tr("Tiers and panes"));
  setFocusProxy(picture_);
  Connect(*horizontal_, false);
  Connect(*vertical_, true);
  Refresh();
}

void MainViewArea::Connect(QScrollBar& bar, bool isVertical) {
  connect(&bar, &QScrollBar::actionTriggered, this, [this, &bar, isVertical](int action) {
    const auto request = RequestOf(action);
    if (view_ == nullptr || !request) return;
    const int position = bar.sliderPosition();
    host_.Run(*view_, [&] {
      if (isVertical) {
        ScrollViewVertically(*view_, *request, position);
      } else {
        ScrollView(*view_, *request, position);
      }
    });
    Refresh();
  });
}

void MainViewArea::Refresh() {
  if (view_ == nullptr) return;
  Show(*horizontal_, view_->horizontal);
  Show(*vertical_, view_->vertical);
  picture_->Refresh();
  OfferWhenEmpty();
}

void MainViewArea::OfferWhenEmpty() {
  if (view_ == nullptr) return;
  const bool isEmpty = !view_->document().loaded && !view_->services().sound.Sound().recordingHere;
  if (isEmpty) Offer();
  note_->ShowWhen(isEmpty);
}

void MainViewArea::Offer() {
  std::vector<std::string> paths = host_.RecentRecordings();
  const std::string sample = host_.SampleRecording();
  if (!sample.empty()) paths.push_back(sample);
  if (!offered_.empty() && paths == offered_) return;
  offered_ = paths;
  note_->RemoveButtons();
  note_->Say(Tr("Open a recording (Ctrl+O), drop one here, or record (Ctrl+R)."));
  for (const std::string& path : paths) {
    const QString name = &path == &paths.back() && !sample.empty()
                             ? Tr("Sample recording")
                             : ShownPath(std::filesystem::path(path).filename().string());
    note_->AddButton(name, [this, path] { host_.OpenOffered(path); });
  }
}

void MainViewArea::LetGo() {
  picture_->LetGo();
  view_ = nullptr;
}

}  // namespace cantorix
