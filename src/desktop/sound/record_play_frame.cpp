// record_play_frame.cpp - the fields and what they say.
#include "desktop/sound/record_play_frame.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QVBoxLayout>

#include "app/sound_input.h"
#include "audio/sound_rates.h"
#include "desktop/command_keys.h"
#include "desktop/paint/paint_style.h"
#include "desktop/paint/words.h"
#include "desktop/qt_text.h"
#include "desktop/sound/level_meter_view.h"
#include "mainview/sound_texts.h"

namespace cantorix {
namespace {

constexpr int kMostMinutes = 100000;
constexpr int kWidth = 380;  // logical pixels
constexpr double kTextContrast = 4.5;

QString RateText(double rateHz) { return QStringLiteral("%1 Hz").arg(rateHz, 0, 'g', 10); }

QLabel* AddText(QWidget* parent) {
  auto* const label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

QColor Red(const QPalette& palette) {
  return Legible(QColor(0xc0, 0x20, 0x20), palette.color(QPalette::Base), kTextContrast);
}

}  // namespace

CFrameRecordPlay::CFrameRecordPlay(QWidget* owner, WindowPlacement& placement,
                                   RecordPlayRequests requests)
    : ToolFrame(owner, placement), requests_(std::move(requests)) {
  setWindowTitle(QStringLiteral("Record/Play"));
  auto* const column = new QVBoxLayout(this);
  AddInput(*column);
  AddPlaying(*column);
  AddFiles(*column);
  column->addStretch();
  Connect();
  new CommandKeys(*this);
}

void CFrameRecordPlay::AddInput(QVBoxLayout& column) {
  auto* const group = new QGroupBox(Tr("Recording"), this);
  auto* const form = new QFormLayout(group);
  input_ = new QComboBox(group);
  input_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  rescan_ = new QPushButton(Tr("Re&scan"), group);
  rescan_->setToolTip(Tr("Look for sound devices anew"));
  auto* const line = new QHBoxLayout;
  line->addWidget(input_, 1);
  line->addWidget(rescan_);
  form->addRow(Tr("&Input"), line);
  static_cast<QLabel*>(form->labelForField(line))->setBuddy(input_);
  rate_ = new QComboBox(group);
  form->addRow(Tr("&Rate"), rate_);
  rateReason_ = AddText(group);
  rateReason_->setStyleSheet(QStringLiteral("color: %1").arg(Red(palette()).name()));
  rateReason_->hide();
  form->addRow(rateReason_);
  meter_ = new LevelMeterView(Qt::Horizontal, group);
  form->addRow(Tr("Level"), meter_);
  levelText_ = AddText(group);
  // Two lines at once, so that a text that comes and goes does not move the window.
  levelText_->setMinimumHeight(2 * levelText_->fontMetrics().lineSpacing());
  levelText_->setAlignment(Qt::AlignTop);
  form->addRow(levelText_);
  scope_ = new QPushButton(Tr("Open S&cope Window"), group);
  form->addRow(scope_);
  column.addWidget(group);
}

void CFrameRecordPlay::AddPlaying(QVBoxLayout& column) {
  auto* const group = new QGroupBox(Tr("Playing"), this);
  auto* const line = new QVBoxLayout(group);
  playSecond_ = new QPushButton(Tr("&Play One Second of the Selection"), group);
  line->addWidget(playSecond_);
  column.addWidget(group);
}

void CFrameRecordPlay::AddFiles(QVBoxLayout& column) {
  auto* const group = new QGroupBox(Tr("Files"), this);
  auto* const form = new QFormLayout(group);
  memoryMinutes_ = new QSpinBox(group);
  memoryMinutes_->setRange(0, kMostMinutes);
  memoryMinutes_->setKeyboardTracking(false);
  form->addRow(QStringLiteral("Available &memory to read files (min)"), memoryMinutes_);
  automatic_ = new QCheckBox(
      QStringLiteral("Always perform Pitch and Intensity\nfor all &files automatically."), group);
  form->addRow(automatic_);
  column.addWidget(group);
}

void CFrameRecordPlay::Connect() {
  connect(input_, &QComboBox::activated, this, [this](int index) {
    requests_.chooseInput(index, index > 0 ? Typed(input_->itemText(index)) : std::string());
  });
  connect(rate_, &QComboBox::activated, this, [this] { Keep(); });
  connect(memoryMinutes_, &QSpinBox::valueChanged, this, [this] { Keep(); });
  connect(automatic_, &QCheckBox::toggled, this, [this] { Keep(); });
  connect(rescan_, &QPushButton::clicked, this, [this] { requests_.rescan(); });
  connect(scope_, &QPushButton::clicked, this, [this] { requests_.openScope(); });
  connect(playSecond_, &QPushButton::clicked, this, [this] { requests_.playSecond(); });
}

void CFrameRecordPlay::Keep() {
  settings_.rateHz = rate_->currentData().toDouble();
  settings_.memoryMinutes = memoryMinutes_->value();
  settings_.automaticAnalysis = automatic_->isChecked() ? 1 : 0;
  requests_.keep(settings_);
  if (rate_->count() > 0) ShowRate(settings_.rateHz);
}

void CFrameRecordPlay::ShowInputs(const std::vector<std::string>& names, const SoundInput& chosen) {
  const QSignalBlocker quiet(input_);
  input_->clear();
  input_->addItem(Tr("System default"));
  for (const std::string& name : names) input_->addItem(Shown(name));
  input_->setCurrentIndex(chosen.index);
}

void CFrameRecordPlay::ShowRates(const std::function<bool(std::uint32_t rateHz)>& takesRate) {
  const QSignalBlocker quiet(rate_);
  rate_->clear();
  for (const std::uint32_t rateHz : kRecordingRatesHz) {
    rate_->addItem(RateText(rateHz), static_cast<double>(rateHz));
    auto* const model = static_cast<QStandardItemModel*>(rate_->model());
    model->item(rate_->count() - 1)->setEnabled(takesRate(rateHz));
  }
  ShowRate(settings_.rateHz);
}

// A rate that is not offered stands at the top of the list, in red, until another one is chosen.
void CFrameRecordPlay::ShowRate(double rateHz) {
  const QSignalBlocker quiet(rate_);
  while (rate_->count() > static_cast<int>(kRecordingRatesHz.size())) rate_->removeItem(0);
  int index = rate_->findData(rateHz);
  const bool isOffered = index >= 0;
  if (!isOffered) {
    rate_->insertItem(0, RateText(rateHz), rateHz);
    rate_->setItemData(0, Red(palette()), Qt::ForegroundRole);
    index = 0;
  }
  rate_->setCurrentIndex(index);
  QPalette shown = palette();
  if (!isOffered) {
    for (const auto role : {QPalette::Text, QPalette::ButtonText}) {
      shown.setColor(role, Red(palette()));
    }
  }
  rate_->setPalette(shown);
  const auto deviceHz = DeviceRate(rateHz);
  rateReason_->setText(Translated(kNeedsRecordingRate));
  rateReason_->setVisible(!deviceHz || !CanRecordAt(*deviceHz));
}

void CFrameRecordPlay::ShowSettings(const RecordPlaySettings& settings) {
  const bool newRate = settings.rateHz != settings_.rateHz;
  settings_ = settings;
  if (newRate && rate_->count() > 0) ShowRate(settings.rateHz);
  const QSignalBlocker quietMemory(memoryMinutes_);
  const QSignalBlocker quietAutomatic(automatic_);
  memoryMinutes_->setValue(settings.memoryMinutes);
  automatic_->setChecked(settings.automaticAnalysis != 0);
}

void CFrameRecordPlay::ShowState(const RecordPlayState& state) {
  scope_->setEnabled(state.canOpenScope);
  playSecond_->setEnabled(state.canPlay);
  rescan_->setEnabled(state.canRescan);
}

void CFrameRecordPlay::ShowLevel(const SoundDesk& desk) {
  const bool recording = desk.isRecording();
  const auto level = recording ? std::nullopt : desk.inputLevel();
  meter_->Show(level);
  if (level) {
    levelText_->setText(Translated(PeakText(level->reading) + "     " + RmsText(level->reading) +
                                   '\n' + ClippedText(*level)));
  } else if (recording) {
    levelText_->setText(Tr("A recording runs: its level stands in the status bar."));
  } else {
    levelText_->setText(Translated(desk.watchFailure()));
  }
}

QRect CFrameRecordPlay::DefaultPlace() const {
  const QRect owner = parentWidget()->geometry();
  const QSize size = sizeHint().expandedTo(QSize(kWidth, 0));
  return {QPoint(owner.right() - size.width() - 60, owner.top() + 120), size};
}

void CFrameRecordPlay::showEvent(QShowEvent* event) {
  ToolFrame::showEvent(event);
  requests_.visibilityChanged();
}

void CFrameRecordPlay::hideEvent(QHideEvent* event) {
  ToolFrame::hideEvent(event);
  requests_.visibilityChanged();
}

}  // namespace cantorix
