// label_list_frame.cpp - rows, their keys and their menu.
#include "desktop/label_list_frame.h"

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QResizeEvent>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/paint/words.h"
#include "desktop/qt_text.h"
#include "desktop/table_rows.h"
#include "mainview/label_renaming.h"
#include "mainview/listening.h"
#include "platform/numbers.h"
#include "settings/settings.h"
#include "settings/time_base.h"

namespace cantorix {
namespace {

enum Column { kTier, kTime, kText, kColumns };
constexpr int kAsStored = -1;
constexpr int kNoteMargin = 12;  // pixels
constexpr int kButtonPadding = 16;

}  // namespace

void LabelListModel::Show(const CSonadexView* view) {
  beginResetModel();
  listing_.Take(view == nullptr ? std::vector<LabelListRow>() : LabelListRows(view->document()));
  if (view != nullptr) timeBase_ = view->document().settings.display.timeBase;
  endResetModel();
}

void LabelListModel::Filter(const std::string& search, int tier) {
  beginResetModel();
  listing_.Filter(search, tier);
  endResetModel();
}

void LabelListModel::sort(int column, Qt::SortOrder order) {
  static constexpr std::array kSorted{LabelColumn::kTier, LabelColumn::kTime, LabelColumn::kText};
  beginResetModel();
  listing_.SortBy(column == kAsStored ? std::nullopt
                                      : std::optional(kSorted.at(static_cast<std::size_t>(column))),
                  order == Qt::DescendingOrder);
  endResetModel();
}

int LabelListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(listing_.size());
}

int LabelListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant LabelListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount()) return {};
  const LabelListRow& label = row(index.row());
  if (role == Qt::TextAlignmentRole && index.column() == kTime) {
    return QVariant(Qt::AlignRight | Qt::AlignVCenter);
  }
  if (role != Qt::DisplayRole) return {};
  switch (index.column()) {
    case kTier:
      return Shown(label.tierName);
    case kTime:
      return Shown(FormatOneDecimal(InTimeBase(label.timeMs, timeBase_)));
    default:
      return Shown(label.text);
  }
}

QVariant LabelListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return {};
  if (orientation == Qt::Vertical) return section + 1;
  switch (section) {
    case kTier:
      return Tr("Tier");
    case kTime:
      return timeBase_ != 0 ? Tr("Time (sec)") : Tr("Time (ms)");
    default:
      return Tr("Label");
  }
}

LabelListFrame::LabelListFrame(QWidget* owner, FrameHost& host, WindowPlacement& placement)
    : ToolFrame(owner, placement),
      host_(host),
      table_(new QTableView(this)),
      search_(new QLineEdit(this)),
      tier_(new QComboBox(this)),
      note_(new QLabel(table_->viewport())) {
  setWindowTitle(Tr("Labels"));
  BuildTable();
  auto* const column = new QVBoxLayout(this);
  column->addLayout(BuildFilter());
  column->addWidget(table_);
  column->addLayout(BuildButtons());
  connect(&model_, &QAbstractItemModel::modelReset, this, [this] { ShowState(); });
  ShowTiers();
  ShowState();
}

void LabelListFrame::BuildTable() {
  table_->setModel(&model_);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  table_->setContextMenuPolicy(Qt::ActionsContextMenu);
  table_->setAccessibleName(Tr("Labels"));
  UseCompactRows(*table_);
  QHeaderView& header = *table_->horizontalHeader();
  header.setStretchLastSection(true);
  header.setSectionsClickable(true);
  connect(&header, &QHeaderView::sectionClicked, this, [this](int column) { SortByNext(column); });
  connect(table_, &QTableView::doubleClicked, this, [this] { Play(); });
  connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { ShowState(); });
  note_->setTextFormat(Qt::PlainText);
  note_->setWordWrap(true);
  note_->setAlignment(Qt::AlignCenter);
  note_->setMargin(kNoteMargin);
  note_->setAttribute(Qt::WA_TransparentForMouseEvents);
  table_->viewport()->installEventFilter(this);
  auto* const deleteKey = new QShortcut(QKeySequence::Delete, table_);
  deleteKey->setContext(Qt::WidgetShortcut);
  connect(deleteKey, &QShortcut::activated, this, [this] { Delete(); });
}

QHBoxLayout* LabelListFrame::BuildFilter() {
  search_->setPlaceholderText(Tr("Search"));
  search_->setAccessibleName(Tr("Search"));
  search_->setClearButtonEnabled(true);
  tier_->setAccessibleName(Tr("Tier"));
  auto* const line = new QHBoxLayout;
  line->addWidget(search_, 1);
  line->addWidget(tier_);
  connect(search_, &QLineEdit::textChanged, this, [this] { Filter(); });
  connect(tier_, &QComboBox::currentIndexChanged, this, [this] { Filter(); });
  return line;
}

QHBoxLayout* LabelListFrame::BuildButtons() {
  auto* const line = new QHBoxLayout;
  AddEntry(*line, Tr("&Play"), Needs::kOne, &LabelListFrame::Play);
  AddEntry(*line, Tr("&Zoom"), Needs::kOne, &LabelListFrame::Zoom);
  AddEntry(*line, Tr("&Edit..."), Needs::kOne, &LabelListFrame::Edit);
  AddEntry(*line, Tr("&Rename..."), Needs::kSome, &LabelListFrame::Rename);
  AddEntry(*line, Tr("&Delete"), Needs::kSome, &LabelListFrame::Delete);
  line->addStretch();
  line->addWidget(MakeDockButton());
  return line;
}

void LabelListFrame::AddEntry(QHBoxLayout& line, const QString& text, Needs needs,
                              void (LabelListFrame::*act)()) {
  auto* const button = new QPushButton(text, this);
  // All of them beside each other in a narrow window.
  button->setMinimumWidth(button->fontMetrics().horizontalAdvance(text) + kButtonPadding);
  auto* const action = new QAction(text, table_);
  connect(button, &QPushButton::clicked, this, [this, act] { (this->*act)(); });
  connect(action, &QAction::triggered, this, [this, act] { (this->*act)(); });
  line.addWidget(button);
  table_->addAction(action);
  entries_.push_back({button, action, needs});
}

bool LabelListFrame::eventFilter(QObject* watched, QEvent* event) {
  if (watched == table_->viewport() && event->type() == QEvent::Resize) {
    note_->resize(static_cast<QResizeEvent*>(event)->size());
  }
  return ToolFrame::eventFilter(watched, event);
}

void LabelListFrame::Follow(CSonadexView* view) {
  setWindowTitle(view == nullptr ? Tr("Labels")
                                 : Tr("Labels - ") + Shown(view->document().shownName()));
  if (view == view_) return;
  view_ = view;
  Refresh();
}

// The same rows stay chosen: after a deletion the label that took the place.
void LabelListFrame::Refresh() {
  stale_ = view_ != nullptr && !isVisible();
  if (stale_) return;
  const std::vector<int> rows = ChosenRows();
  model_.Show(view_);
  ShowTiers();
  ChooseAgain(rows);
}

void LabelListFrame::showEvent(QShowEvent* event) {
  ToolFrame::showEvent(event);
  if (stale_) Refresh();
}

void LabelListFrame::ChooseAgain(const std::vector<int>& rows) {
  if (rows.empty() || model_.rowCount() == 0) return;
  table_->selectRow(std::min(rows.front(), model_.rowCount() - 1));
}

void LabelListFrame::Play() {
  Apply([](CSonadexView& view, const LabelListRow& row) { PlayLabel(view, row.tier, row.index); });
}

void LabelListFrame::Zoom() { Apply(ZoomToLabel); }
void LabelListFrame::Edit() { Apply(EditListedLabel); }
void LabelListFrame::Rename() { Apply(RenameListedLabels); }
void LabelListFrame::Delete() { Apply(DeleteListedLabels); }

// The focus alone makes the first row the current one, which chooses nothing.
std::vector<int> LabelListFrame::ChosenRows() const {
  std::vector<int> rows;
  for (const QModelIndex& index : table_->selectionModel()->selectedRows()) {
    rows.push_back(index.row());
  }
  std::sort(rows.begin(), rows.end());
  return rows;
}

bool LabelListFrame::MayApply() const {
  return view_ != nullptr && !view_->services().sound.Sound().recordingHere;
}

void LabelListFrame::Apply(RowAction action) {
  const std::vector<int> chosen = ChosenRows();
  if (chosen.size() != 1 || !MayApply()) return;
  // A copy: the action brings the list up to date.
  const LabelListRow row = model_.row(chosen.front());
  host_.Run(*view_, [&] { action(*view_, row); });
}

void LabelListFrame::Apply(RowsAction action) {
  std::vector<LabelListRow> rows;
  for (const int row : ChosenRows()) rows.push_back(model_.row(row));
  if (rows.empty() || !MayApply()) return;
  host_.Run(*view_, [&] { action(*view_, rows); });
}

void LabelListFrame::Filter() {
  model_.Filter(Typed(search_->text()), tier_->currentData().toInt());
}

// A column is sorted upward, then downward, then as the labels are stored.
void LabelListFrame::SortByNext(int column) {
  QHeaderView& header = *table_->horizontalHeader();
  const bool shown = header.isSortIndicatorShown();
  const bool again = shown && header.property("column").toInt() == column;
  const bool downward = again && header.property("downward").toBool();
  header.setProperty("column", column);
  header.setProperty("downward", again && !downward);
  header.setSortIndicatorShown(!downward);
  const Qt::SortOrder order = again ? Qt::DescendingOrder : Qt::AscendingOrder;
  header.setSortIndicator(column, order);
  model_.sort(downward ? kAsStored : column, order);
}

void LabelListFrame::ShowTiers() {
  const QSignalBlocker quiet(tier_);
  const LabelListing& listing = model_.listing();
  tier_->clear();
  tier_->addItem(Tr("All tiers"), -1);
  for (const auto& [slot, name] : listing.tiers()) tier_->addItem(Shown(name), slot);
  tier_->setCurrentIndex(std::max(tier_->findData(listing.tier()), 0));
}

void LabelListFrame::ShowState() {
  const std::size_t chosen = ChosenRows().size();
  for (const Entry& entry : entries_) {
    const bool enabled = entry.needs == Needs::kOne ? chosen == 1 : chosen > 0;
    entry.button->setEnabled(enabled);
    entry.action->setEnabled(enabled);
  }
  const bool empty = model_.rowCount() == 0;
  note_->setText(empty ? Translated(model_.listing().EmptyText()) : QString());
  note_->setVisible(empty);
}

QRect LabelListFrame::DefaultPlace() const {
  constexpr QSize kSize(420, 360);
  const QRect owner = parentWidget()->geometry();
  return QRect(owner.topRight() - QPoint(kSize.width() + 40, -140), kSize);
}

}  // namespace cantorix
