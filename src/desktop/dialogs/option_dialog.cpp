// option_dialog.cpp - what a row has decides how it looks; the settings never see a widget.
#include "desktop/dialogs/option_dialog.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <algorithm>

#include "desktop/paint/words.h"
#include "desktop/qt_text.h"

namespace cantorix {
namespace {

constexpr const char* kSuggestedText = Marked("Suggested: for speech of this recording's rate.");
constexpr const char* kDefaultsText = Marked("Defaults: as the program was always delivered.");

QString Text(const char* text) { return Translated(text); }

template <typename S>
int EntryOf(const OptionSizes<S>& sizes, const S& settings) {
  const int entry = sizes.chosenByPoints ? EntryOfPoints(settings.*sizes.points)
                                         : settings.*sizes.index - sizes.firstIndex;
  return std::clamp(entry, 0, sizes.count - 1);
}

}  // namespace

template <typename S>
OptionDialog<S>::OptionDialog(Prompts& prompts, const OptionForm<S>& form, OptionValues<S> values,
                              QWidget* parent)
    : FormDialog(prompts, Text(form.title), parent), values_(std::move(values)) {
  for (const OptionGroup<S>& group : form.groups) {
    if (group.newColumn) BeginColumn();
    QFormLayout* const box = AddGroup(Text(group.title));
    AddLines(box, group.rows);
    if (group.note != nullptr) AddNote(box, Text(group.note));
    if (group.remark != nullptr) {
      remarks_.push_back({group.remark, new QLabel(this)});
      box->addRow(remarks_.back().label);
    }
  }
  AddRestoring(form);
  for (Line& line : lines_) Fill(line, values_.preset);
  ShowUse();
}

template <typename S>
void OptionDialog<S>::AddRestoring(const OptionForm<S>& form) {
  std::vector<FormButton> buttons;
  QString text;
  if (form.restore != nullptr) {
    buttons.push_back(
        {Text(form.restore), [this, sizeOnly = form.restoresSizeOnly] { Restore(sizeOnly); }});
  }
  if (form.suggested != nullptr) {
    buttons.push_back(
        {Tr("Suggested"), [this, suggested = form.suggested] { Suggest(suggested); }});
    text = Text(kSuggestedText);
    if (!form.restoresSizeOnly) text += ' ' + Text(kDefaultsText);
  }
  AddButtons(buttons, text);
}

template <typename S>
void OptionDialog<S>::Restore(bool sizeOnly) {
  for (Line& line : lines_) {
    if (!sizeOnly || line.row->printSize) Fill(line, values_.defaults);
  }
  ShowUse();
}

template <typename S>
void OptionDialog<S>::Suggest(S (*suggested)(S entered, double rateHz)) {
  const S entered = Entered();
  const S better = suggested(entered, values_.rateHz);
  for (Line& line : lines_) {
    const OptionSizes<S>& sizes = line.row->sizes;
    const bool sized = line.sizes != nullptr && better.*sizes.points != entered.*sizes.points;
    const bool unread = line.number != nullptr && !line.number->Value();
    if (sized || unread || NumberOf(*line.row, better) != NumberOf(*line.row, entered)) {
      Fill(line, better);
    }
  }
  ShowUse();
}

template <typename S>
void OptionDialog<S>::AddLines(QFormLayout* form, std::span<const OptionRow<S>> rows) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    Line line{.row = &rows[i]};
    if (i + 1 < rows.size() && rows[i + 1].beside) {
      Line second{.row = &rows[++i]};
      AddBeside(form, line, second);
      lines_.push_back(line);
      lines_.push_back(second);
      continue;
    }
    AddLine(form, line);
    lines_.push_back(line);
  }
}

template <typename S>
void OptionDialog<S>::AddLine(QFormLayout* form, Line& line) {
  const OptionRow<S>& row = *line.row;
  const QString text = Text(row.text);
  if (row.sizes.count > 0) return AddSizes(form, line);
  if (HasNumber(row)) {
    line.number = new NumberField(row.limits, row.fraction);
    line.number->setAccessibleName(SpokenName(text));
  }
  if (row.second != nullptr) return AddTwoButtons(form, line);
  if (row.on == nullptr) return AddField(form, text, line.number);
  if (line.number == nullptr) {
    line.on = AddSwitch(form, text);
    return;
  }
  line.on = new QCheckBox(WithMnemonic(text), this);
  line.on->setAccessibleName(SpokenName(text));
  form->addRow(line.on, line.number);
  connect(line.on, &QCheckBox::toggled, this, [this] { ShowUse(); });
}

// "LABEL [low] to [high]".
template <typename S>
void OptionDialog<S>::AddBeside(QFormLayout* form, Line& first, Line& second) {
  first.number = new NumberField(first.row->limits, first.row->fraction);
  second.number = new NumberField(second.row->limits, second.row->fraction);
  auto* const box = new QWidget(this);
  auto* const line = new QHBoxLayout(box);
  line->setContentsMargins(0, 0, 0, 0);
  line->addWidget(first.number);
  line->addWidget(new QLabel(Text(second.row->text), box));
  line->addWidget(second.number);
  const QString label = Text(first.row->text);
  AddField(form, label, box);
  static_cast<QLabel*>(form->labelForField(box))->setBuddy(first.number);
  first.number->setAccessibleName(SpokenName(label) + Tr(", low"));
  second.number->setAccessibleName(SpokenName(label) + Tr(", high"));
}

// Side by side; below each other where a number belongs to the first one.
template <typename S>
void OptionDialog<S>::AddTwoButtons(QFormLayout* form, Line& line) {
  const OptionRow<S>& row = *line.row;
  if (line.number == nullptr) {
    line.choice = AddChoice(form, Text(row.caption), {Text(row.text), Text(row.second)});
  } else {
    line.choice = new QButtonGroup(this);
    for (const char* const text : {row.text, row.second}) {
      auto* const button = new QRadioButton(WithMnemonic(Text(text)), this);
      button->setAccessibleName(SpokenName(Text(text)));
      line.choice->addButton(button, static_cast<int>(line.choice->buttons().size()));
    }
    form->addRow(line.choice->button(0), line.number);
    form->addRow(line.choice->button(1));
  }
  connect(line.choice, &QButtonGroup::idToggled, this, [this] { ShowUse(); });
}

template <typename S>
void OptionDialog<S>::AddSizes(QFormLayout* form, Line& line) {
  line.sizes = new QComboBox(this);
  for (const std::string& text : BandwidthTexts(values_.rateHz, line.row->sizes.count)) {
    line.sizes->addItem(Shown(text));
  }
  AddField(form, Text(line.row->text), line.sizes);
}

template <typename S>
void OptionDialog<S>::Fill(Line& line, const S& settings) {
  const OptionRow<S>& row = *line.row;
  if (line.sizes != nullptr) line.sizes->setCurrentIndex(EntryOf(row.sizes, settings));
  if (line.on != nullptr) line.on->setChecked(settings.*row.on != 0);
  if (line.choice != nullptr) line.choice->button(settings.*row.on != 0 ? 1 : 0)->setChecked(true);
  if (line.number == nullptr) return;
  line.filledFrom = NumberOf(row, settings);
  line.number->SetValue(ShownOf(line));
}

template <typename S>
double OptionDialog<S>::ShownOf(const Line& line) const {
  const std::int32_t cap = line.row->cap == nullptr ? 0 : line.row->cap(values_.rateHz);
  return cap > 0 ? std::min<double>(line.filledFrom, cap) : line.filledFrom;
}

template <typename S>
bool OptionDialog<S>::Read(const Line& line, S& entered) const {
  const OptionRow<S>& row = *line.row;
  if (line.sizes != nullptr) {
    entered.*row.sizes.index = line.sizes->currentIndex() + row.sizes.firstIndex;
    entered.*row.sizes.points = PointsOfEntry(line.sizes->currentIndex());
  }
  if (line.on != nullptr) entered.*row.on = line.on->isChecked() ? 1 : 0;
  if (line.choice != nullptr) entered.*row.on = std::max(line.choice->checkedId(), 0);
  if (line.number == nullptr) return true;
  const auto value = line.number->Value();
  if (value) SetNumber(row, entered, *value);
  return value || !line.number->isEnabled();
}

template <typename S>
S OptionDialog<S>::Entered() const {
  S entered = values_.preset;
  for (const Line& line : lines_) {
    Read(line, entered);
    // A setting beyond the recording's rate stays for other recordings until it is typed over.
    if (line.row->cap != nullptr && NumberOf(*line.row, entered) == ShownOf(line)) {
      SetNumber(*line.row, entered, line.filledFrom);
    }
  }
  return entered;
}

template <typename S>
std::optional<FormAnswer> OptionDialog<S>::Refusal() const {
  S entered = values_.preset;
  for (const Line& line : lines_) {
    if (!Read(line, entered)) return FormAnswer{line.number->Refusal(), line.number};
    if (auto refusal = RowRefusal(*line.row, entered, values_.rateHz)) {
      return FormAnswer{std::move(*refusal), line.number};
    }
  }
  return std::nullopt;
}

// Only the numbers that count can be entered.
template <typename S>
void OptionDialog<S>::ShowUse() {
  const S entered = Entered();
  for (const Line& line : lines_) {
    if (line.number == nullptr) continue;
    line.number->setEnabled(NumberCounts(*line.row, entered, values_.rateHz));
  }
  for (const Remark& remark : remarks_) {
    remark.label->setText(Translated(remark.text(entered, values_.rateHz)));
  }
}

template class OptionDialog<FftLpcSettings>;
template class OptionDialog<SpectrogramSettings>;
template class OptionDialog<PitchSettings>;
template class OptionDialog<IntensitySettings>;
template class OptionDialog<DocumentSettings>;
template class OptionDialog<GainSettings>;
template class OptionDialog<GenericParameters>;

}  // namespace cantorix
