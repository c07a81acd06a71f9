// log_frame.cpp - the frame that shows and hides with the log, and the form with its table.
#include "desktop/log_frame.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "app/log_documents.h"
#include "desktop/empty_note.h"
#include "desktop/paint/words.h"
#include "desktop/qt_text.h"
#include "desktop/table_menu.h"
#include "desktop/table_rows.h"

namespace cantorix {
namespace {

std::string JoinedWithTabs(const LogTable::Row& cells, std::size_t columns) {
  std::string line;
  for (std::size_t column = 0; column < columns; ++column) {
    if (column > 0) line += '\t';
    if (column < cells.size()) line += cells[column];
  }
  return line + '\n';
}

// The kind of an entry names all its columns: the values stand in sight beside it.
void FitColumns(QTableView& table) {
  constexpr int kEntryType = 1;
  constexpr int kWidest = 280;
  table.resizeColumnsToContents();
  if (table.columnWidth(kEntryType) > kWidest) table.setColumnWidth(kEntryType, kWidest);
}

}  // namespace

CFormLog::CFormLog(Application& application, QWidget* parent)
    : QWidget(parent),
      application_(application),
      table_(new QTableView(this)),
      note_(new EmptyNote(*table_)),
      line_(new QHBoxLayout) {
  note_->Say(
      Tr("Nothing measured. Ctrl+D enters the selection's duration, Ctrl+I its statistics."));
  order_.setSourceModel(&model_);
  table_->setModel(&order_);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  table_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
  table_->setAccessibleName(Tr("Measurement log"));
  // The third click on a heading brings the order of the measurements back.
  table_->horizontalHeader()->setSortIndicatorClearable(true);
  table_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
  table_->setSortingEnabled(true);
  UseCompactRows(*table_);
  AddButton(QStringLiteral("&Copy"), [this] { CopyRows(); });
  AddButton(Tr("&Delete"), [this] { DeleteRows(); });
  AddButton(QStringLiteral("&Undo"), [this] { Undo(); });
  AddButton(Tr("Export as CS&V..."), [this] { ExportOpenLogAsCsv(application_); });
  line_->addStretch();
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(table_);
  column->addLayout(line_);
  model_.edited = [this] { parentWidget()->setWindowModified(true); };
  table_->installEventFilter(this);
  GiveContextMenu(*table_,
                  {{QStringLiteral("&Copy"), [this] { CopyRows(); }},
                   {Tr("&Delete"), [this] { DeleteRows(); }},
                   {QStringLiteral("Select &All"), [this] { table_->selectAll(); }, false}});
}

void CFormLog::AddButton(const QString& text, const std::function<void()>& act) {
  auto* const button = new QPushButton(text, this);
  connect(button, &QPushButton::clicked, this, act);
  line_->addWidget(button);
}

bool CFormLog::eventFilter(QObject* watched, QEvent* event) {
  const bool typed = event->type() == QEvent::KeyPress;
  if (watched != table_ || (!typed && event->type() != QEvent::ShortcutOverride)) {
    return QWidget::eventFilter(watched, event);
  }
  auto* const key = static_cast<QKeyEvent*>(event);
  const bool copies = key->matches(QKeySequence::Copy);
  const bool deletes = key->matches(QKeySequence::Delete);
  const bool undoes = key->matches(QKeySequence::Undo);
  if (!copies && !deletes && !undoes && !key->matches(QKeySequence::SelectAll)) return false;
  if (typed && copies) CopyRows();
  if (typed && deletes) DeleteRows();
  if (typed && undoes) Undo();
  event->accept();
  // The table itself selects all.
  return !typed || copies || deletes || undoes;
}

void CFormLog::Refresh() {
  const int before = model_.rowCount();
  model_.Follow(application_.log ? &*application_.log : nullptr);
  note_->ShowWhen(model_.rowCount() == 0);
  if (model_.rowCount() == before) return;
  if (before == 0) FitColumns(*table_);
  table_->scrollToBottom();
}

void CFormLog::ShowAnew() {
  model_.Invalidate();
  Refresh();
  FitColumns(*table_);
}

std::vector<std::size_t> CFormLog::SelectedRows() const {
  const QModelIndexList chosen = table_->selectionModel()->selectedRows();
  std::vector<int> shown(static_cast<std::size_t>(chosen.size()));
  std::transform(chosen.begin(), chosen.end(), shown.begin(),
                 [](const QModelIndex& index) { return index.row(); });
  std::sort(shown.begin(), shown.end());
  std::vector<std::size_t> rows(shown.size());
  std::transform(shown.begin(), shown.end(), rows.begin(), [this](int row) {
    return static_cast<std::size_t>(order_.mapToSource(order_.index(row, 0)).row());
  });
  return rows;
}

void CFormLog::CopyRows() const {
  if (!application_.log) return;
  const LogTable& log = *application_.log;
  const auto rows = SelectedRows();
  if (rows.empty()) return;
  const std::size_t columns = log.captions().size();
  std::string text = JoinedWithTabs(log.captions(), columns);
  for (const std::size_t row : rows) text += JoinedWithTabs(log.rows()[row], columns);
  QApplication::clipboard()->setText(Shown(text));
}

void CFormLog::DeleteRows() {
  if (!application_.log) return;
  auto rows = SelectedRows();
  if (rows.empty()) return;
  std::sort(rows.begin(), rows.end());
  application_.log->RemoveRows(rows);
  LogChanged();
}

void CFormLog::Undo() {
  if (!application_.log || !application_.log->canUndo()) return;
  application_.log->Undo();
  LogChanged();
}

// By other ways than in a cell.
void CFormLog::LogChanged() {
  model_.Invalidate();
  Refresh();
  parentWidget()->setWindowModified(true);
}

CFrameLog::CFrameLog(QWidget* owner, Application& application, std::function<void()> changed)
    : ToolFrame(owner, application.host.application.log),
      application_(application),
      changed_(std::move(changed)),
      form_(new CFormLog(application, this)) {
  auto* const column = new QVBoxLayout(this);
  column->addWidget(form_);
  form_->AddAtEnd(MakeDockButton());
}

void CFrameLog::Refresh() {
  form_->Refresh();
  if (!application_.log) return hide();
  setWindowTitle(ShownPath(application_.log->title()) + "[*]");
  setWindowModified(application_.log->isModified());
}

void CFrameLog::ShowNewLog() {
  form_->ShowAnew();
  Refresh();
  show();
  raise();
}

void CFrameLog::closeEvent(QCloseEvent* event) {
  if (!CloseLog(application_)) return event->ignore();
  event->accept();
  form_->ShowAnew();
  changed_();
}

QRect CFrameLog::DefaultPlace() const {
  constexpr QSize kSize(760, 300);
  const QRect owner = parentWidget()->geometry();
  return QRect(owner.bottomRight() - QPoint(kSize.width() + 40, kSize.height() + 80), kSize);
}

}  // namespace cantorix
