// statistics_frame.cpp - a table filled anew after each change, not more than twenty times a
// second.
#include "desktop/statistics_frame.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <exception>
#include <utility>

#include "analysisview/spectrogram_view.h"
#include "desktop/paint/words.h"
#include "desktop/qt_text.h"
#include "desktop/table_rows.h"
#include "mainview/document_waveform.h"
#include "mainview/statistics_texts.h"

namespace cantorix {
namespace {

constexpr int kSoonMs = 50;
constexpr int kName = 0;
constexpr int kValue = 1;
constexpr int kUnit = 2;

}  // namespace

StatisticsFrame::StatisticsFrame(QWidget* owner, FrameHost& host, Surroundings around)
    : ToolFrame(owner, place_),
      host_(host),
      around_(std::move(around)),
      table_(new QTableWidget(static_cast<int>(kStatisticsNames.size()), 3, this)),
      note_(new QLabel(this)),
      pitchAll_(new QPushButton(Tr("&Pitch All (Ctrl+L)"), this)),
      copy_(new QPushButton(QStringLiteral("&Copy"), this)),
      enter_(new QPushButton(Tr("&Enter into Log"), this)) {
  setWindowTitle(Tr("Statistics"));
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setHorizontalHeaderLabels({Tr("Quantity"), Tr("Value"), Tr("Unit")});
  table_->horizontalHeader()->setStretchLastSection(true);
  table_->verticalHeader()->hide();
  table_->setAccessibleName(Tr("Statistics of the selection"));
  UseCompactRows(*table_);
  note_->setTextFormat(Qt::PlainText);
  note_->setWordWrap(true);
  auto* const line = new QHBoxLayout;
  for (QPushButton* const button : {copy_, enter_, pitchAll_}) line->addWidget(button);
  line->addStretch();
  line->addWidget(MakeDockButton());
  auto* const column = new QVBoxLayout(this);
  column->addWidget(table_, 1);
  column->addWidget(note_);
  column->addLayout(line);
  connect(copy_, &QPushButton::clicked, this, [this] { Copy(); });
  connect(enter_, &QPushButton::clicked, this, [this] { EnterIntoLog(); });
  connect(pitchAll_, &QPushButton::clicked, this, [this] { host_.Perform(Command::kPitchAll); });
  soon_.setSingleShot(true);
  soon_.setInterval(kSoonMs);
  connect(&soon_, &QTimer::timeout, this, [this] { Measure(); });
  Show();
}

StatisticsFrame::~StatisticsFrame() {
  if (view_ != nullptr) view_->document().Detach(*this);
}

void StatisticsFrame::Follow(CSonadexView* view) {
  ShowLogState();
  if (view == view_) return;
  if (view_ != nullptr) view_->document().Detach(*this);
  view_ = view;
  if (view_ != nullptr) view_->document().Attach(*this);
  MeasureSoon();
}

void StatisticsFrame::DocumentChanged(DocumentChanges, const DocumentObserver*) { MeasureSoon(); }

// A drag of the selection does not put it off.
void StatisticsFrame::MeasureSoon() {
  if (isVisible() && !soon_.isActive()) soon_.start();
}

void StatisticsFrame::showEvent(QShowEvent* event) {
  ToolFrame::showEvent(event);
  Measure();
}

void StatisticsFrame::Measure() {
  soon_.stop();
  statistics_.reset();
  if (view_ != nullptr && view_->selectionShown()) {
    const CChannel& channel = view_->channel();
    const CSpectrogramView* const spectrogram = around_.spectrogramOf(*view_);
    const bool formants = spectrogram != nullptr && spectrogram->hasFormants();
    try {
      statistics_ = StatisticsOf(*view_, {channel.selectionStart.ms, channel.selectionEnd.ms},
                                 formants ? &spectrogram->spectrogram() : nullptr,
                                 &around_.waveformOf(view_->document()).Pyramid());
    } catch (const std::exception& error) {
      Show();
      note_->setText(QString::fromUtf8(error.what()));
      return;
    }
  }
  Show();
}

void StatisticsFrame::ShowLogState() {
  const bool hasLog = host_.openLog() != nullptr;
  enter_->setEnabled(statistics_ && hasLog);
  enter_->setToolTip(hasLog ? Tr("One row (Ctrl+I)") : Tr("Open a log first"));
}

void StatisticsFrame::Show() {
  const bool hasPitch = view_ != nullptr && view_->pitch.count() > 0;
  pitchAll_->setVisible(statistics_ && !hasPitch);
  copy_->setEnabled(statistics_.has_value());
  ShowLogState();
  note_->setText(note());
  if (view_ == nullptr) return table_->clearContents();
  int row = 0;
  for (const StatisticsLine& line :
       StatisticsLines(*view_, statistics_ ? &*statistics_ : nullptr)) {
    for (const auto& [place, text] :
         {std::pair{kName, line.name}, {kValue, line.value}, {kUnit, line.unit}}) {
      auto* const item = new QTableWidgetItem(Translated(text));
      if (place == kValue) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      table_->setItem(row, place, item);
    }
    ++row;
  }
}

QString StatisticsFrame::note() const {
  if (!statistics_ || view_ == nullptr) return Tr("Select a stretch: drag over the recording.");
  const CSpectrogramView* const spectrogram = around_.spectrogramOf(*view_);
  const std::string text = StatisticsNote(
      *view_, *statistics_, spectrogram == nullptr ? nullptr : &spectrogram->settings());
  return view_->pitch.count() > 0 ? Translated(text)
                                  : (Tr("No pitch yet.") + '\n' + Translated(text)).trimmed();
}

void StatisticsFrame::EnterIntoLog() {
  LogSink* const log = host_.openLog();
  if (log == nullptr || !statistics_) return;
  log->Append(StatisticsEntry(*view_, *statistics_));
  host_.StateChanged();
}

void StatisticsFrame::Copy() const {
  if (!statistics_) return;
  QString text;
  for (const StatisticsLine& line : StatisticsLines(*view_, &*statistics_)) {
    text += Shown(line.name) + '\t' + Shown(line.value) + '\t' + Shown(line.unit) + '\n';
  }
  QApplication::clipboard()->setText(text);
}

void StatisticsFrame::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && !isDocked()) {
    close();
  } else {
    ToolFrame::keyPressEvent(event);
  }
}

QRect StatisticsFrame::DefaultPlace() const {
  constexpr QSize kSize(340, 640);
  const QRect owner = parentWidget()->geometry();
  return {owner.topRight() - QPoint(kSize.width() + 40, -100), kSize};
}

}  // namespace cantorix
