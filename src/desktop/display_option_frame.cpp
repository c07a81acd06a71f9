// display_option_frame.cpp - one box per option, written through to the document in front.
#include "desktop/display_option_frame.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "desktop/command_keys.h"
#include "desktop/paint/words.h"
#include "mainview/option_commands.h"
#include "settings/settings.h"

namespace cantorix {

template <typename Value>
void CDisplayOptionFrame::Set(Value DisplaySettings::*field, Value value) {
  if (filling_ || view_ == nullptr) return;
  view_->document().settings.display.*field = value;
  host_.Run(*view_, [&] { KeepOptions(*view_, SettingsDialog::kDisplay); });
}

CDisplayOptionFrame::CDisplayOptionFrame(QWidget* owner, FrameHost& host)
    : QWidget(owner, Qt::Tool), host_(host) {
  setWindowTitle(QStringLiteral("Display"));
  auto* const column = new QVBoxLayout(this);
  column->setSizeConstraint(QLayout::SetFixedSize);
  auto* const drawing = new QGroupBox(Tr("Draw"), this);
  auto* const time = new QGroupBox(Tr("Time"), this);
  auto* const behaviour = new QGroupBox(Tr("All windows"), this);
  auto* const size = new QGroupBox(Tr("Size of prints"), this);
  AddDrawing(drawing);
  AddTime(time);
  AddBehaviour(behaviour);
  AddPrintSize(size);
  column->addWidget(drawing);
  column->addWidget(time);
  column->addWidget(behaviour);
  column->addWidget(size);
  new CommandKeys(*this);
  Follow(nullptr);
}

// The first time beside the upper right corner of the main frame, where it hides no menu.
void CDisplayOptionFrame::showEvent(QShowEvent* event) {
  if (!placed_ && parentWidget() != nullptr) {
    const QRect owner = parentWidget()->geometry();
    move(owner.right() - sizeHint().width() - 60, owner.top() + 120);
    placed_ = true;
  }
  QWidget::showEvent(event);
}

void CDisplayOptionFrame::AddDrawing(QWidget* parent) {
  auto* const form = new QFormLayout(parent);
  AddSwitch(parent, Tr("&Audio"), &DisplaySettings::drawAudio);
  AddSwitch(parent, Tr("&Intensity"), &DisplaySettings::drawIntensity);
  AddSwitch(parent, Tr("Intensity in its &own pane"), &DisplaySettings::intensityInOwnPane);
  AddSwitch(parent, Tr("&Pitch"), &DisplaySettings::drawPitch);
  AddSwitch(parent, Tr("&Tiers"), &DisplaySettings::drawTiers);
  AddSwitch(parent, Tr("&Grids"), &DisplaySettings::drawGrids);
  audioPercent_ = AddPercent(form, Tr("Audio pa&ne (%)"), &DisplaySettings::audioPanePercent);
  pitchPercent_ = AddPercent(form, Tr("Pitch pan&e (%)"), &DisplaySettings::pitchPanePercent);
}

void CDisplayOptionFrame::AddTime(QWidget* parent) {
  auto* const row = new QHBoxLayout(parent);
  timeBase_ = new QButtonGroup(this);
  for (const auto& text : {Tr("&milliseconds"), Tr("&seconds")}) {
    auto* const button = new QRadioButton(text, parent);
    timeBase_->addButton(button, static_cast<int>(timeBase_->buttons().size()));
    row->addWidget(button);
  }
  connect(timeBase_, &QButtonGroup::idToggled, this, [this](int id, bool checked) {
    if (checked) Set(&DisplaySettings::timeBase, std::int32_t{id});
  });
}

void CDisplayOptionFrame::AddBehaviour(QWidget* parent) {
  new QFormLayout(parent);
  AddSwitch(parent, QStringLiteral("Trac&k mouse for all windows"), &DisplaySettings::trackMouse);
}

void CDisplayOptionFrame::AddPrintSize(QWidget* parent) {
  auto* const form = new QFormLayout(parent);
  printWidth_ = AddLength(form, Tr("&Width"), &DisplaySettings::printWidth);
  printHeight_ = AddLength(form, Tr("&Height"), &DisplaySettings::printHeight);
  printUnit_ = new QComboBox(parent);
  printUnit_->addItems({QStringLiteral("inches"), QStringLiteral("cm")});
  form->addRow(Tr("&Unit"), printUnit_);
  connect(printUnit_, &QComboBox::currentIndexChanged, this,
          [this](int index) { Set(&DisplaySettings::printUnit, std::int32_t{index}); });
}

QDoubleSpinBox* CDisplayOptionFrame::AddLength(QFormLayout* form, const QString& text,
                                               double DisplaySettings::*field) {
  auto* const box = new QDoubleSpinBox(this);
  box->setRange(0.5, 100.0);
  box->setDecimals(1);
  box->setKeyboardTracking(false);
  form->addRow(text, box);
  connect(box, &QDoubleSpinBox::valueChanged, this,
          [this, field](double value) { Set(field, value); });
  return box;
}

void CDisplayOptionFrame::AddSwitch(QWidget* group, const QString& text,
                                    std::int32_t DisplaySettings::*field) {
  auto* const box = new QCheckBox(text, group);
  static_cast<QFormLayout*>(group->layout())->addRow(box);
  switches_.push_back({box, field});
  connect(box, &QCheckBox::toggled, this,
          [this, field](bool on) { Set(field, std::int32_t{on ? 1 : 0}); });
}

QSpinBox* CDisplayOptionFrame::AddPercent(QFormLayout* form, const QString& text,
                                          std::int32_t DisplaySettings::*field) {
  auto* const box = new QSpinBox(this);
  box->setRange(1, 100);
  box->setKeyboardTracking(false);
  form->addRow(text, box);
  connect(box, &QSpinBox::valueChanged, this, [this, field](int value) { Set(field, value); });
  return box;
}

void CDisplayOptionFrame::Follow(CSonadexView* view) {
  view_ = view;
  setEnabled(view != nullptr);
  if (view == nullptr) return;
  const DisplaySettings& display = view->document().settings.display;
  filling_ = true;
  for (const Switch& entry : switches_) entry.box->setChecked(display.*entry.field != 0);
  timeBase_->button(display.timeBase != 0 ? 1 : 0)->setChecked(true);
  audioPercent_->setValue(display.audioPanePercent);
  pitchPercent_->setValue(display.pitchPanePercent);
  printWidth_->setValue(display.printWidth);
  printHeight_->setValue(display.printHeight);
  printUnit_->setCurrentIndex(display.printUnit != 0 ? 1 : 0);
  filling_ = false;
}

}  // namespace cantorix
