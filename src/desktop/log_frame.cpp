// log_frame.cpp - the frame that shows and hides with the log, and the form with its table.
#include "desktop/log_frame.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "app/log_documents.h"
#include "desktop/empty_note.h"
#include "desktop/qt_text.h"
#include "desktop/table_menu.h"
#include "desktop/table_rows.h"

namespace cantorix {

CFormLog::CFormLog(Application& application, QWidget* parent)
    : QWidget(parent),
      application_(application),
      table_(new QTableView(this)),
      note_(new EmptyNote(*table_)) {
  note_->Say(QStringLiteral(
      "Nothing measured. Ctrl+D enters the selection's duration, Ctrl+I its statistics."));
  table_->setModel(&model_);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  table_->setAccessibleName(QStringLiteral("Measurement log"));
  UseCompactRows(*table_);
  auto* const copy = new QPushButton(QStringLiteral("&Copy"), this);
  auto* const remove = new QPushButton(QStringLiteral("&Delete"), this);
  auto* const line = new QHBoxLayout;
  line->addWidget(copy);
  line->addWidget(remove);
  line->addStretch();
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(table_);
  column->addLayout(line);
  connect(copy, &QPushButton::clicked, this, [this] { CopyRows(); });
  connect(remove, &QPushButton::clicked, this, [this] { DeleteRows(); });
  table_->installEventFilter(this);
  GiveContextMenu(*table_,
                  {{QStringLiteral("&Copy"), [this] { CopyRows(); }},
                   {QStringLiteral("&Delete"), [this] { DeleteRows(); }},
                   {QStringLiteral("Select &All"), [this] { table_->selectAll(); }, false}});
}

bool CFormLog::eventFilter(QObject* watched, QEvent* event) {
  const bool typed = event->type() == QEvent::KeyPress;
  if (watched != table_ || (!typed && event->type() != QEvent::ShortcutOverride)) {
    return QWidget::eventFilter(watched, event);
  }
  auto* const key = static_cast<QKeyEvent*>(event);
  const bool copies = key->matches(QKeySequence::Copy);
  const bool deletes = key->matches(QKeySequence::Delete);
  if (!copies && !deletes && !key->matches(QKeySequence::SelectAll)) return false;
  if (typed && copies) CopyRows();
  if (typed && deletes) DeleteRows();
  event->accept();
  // The table itself selects all.
  return !typed || copies || deletes;
}

void CFormLog::Refresh() {
  const int before = model_.rowCount();
  model_.Follow(application_.log ? &*application_.log : nullptr);
  note_->ShowWhen(model_.rowCount() == 0);
  if (model_.rowCount() == before) return;
  if (before == 0) table_->resizeColumnsToContents();
  table_->scrollToBottom();
}

void CFormLog::ShowAnew() {
  model_.Invalidate();
  Refresh();
  table_->resizeColumnsToContents();
}

std::vector<std::size_t> CFormLog::SelectedRows() const {
  std::vector<std::size_t> rows;
  for (const QModelIndex& index : table_->selectionModel()->selectedRows()) {
    rows.push_back(static_cast<std::size_t>(index.row()));
  }
  std::sort(rows.begin(), rows.end());
  return rows;
}

void CFormLog::CopyRows() const {
  if (!application_.log) return;
  std::string text;
  for (const std::size_t row : SelectedRows()) {
    for (std::size_t column = 0; column < application_.log->captions().size(); ++column) {
      const std::string* const cell = application_.log->Cell(row, column);
      if (column > 0) text += '\t';
      if (cell != nullptr) text += *cell;
    }
    text += '\n';
  }
  if (!text.empty()) QApplication::clipboard()->setText(Shown(text));
}

void CFormLog::DeleteRows() {
  if (!application_.log) return;
  const auto rows = SelectedRows();
  if (rows.empty()) return;
  application_.log->RemoveRows(rows);
  model_.Invalidate();
  Refresh();
  window()->setWindowModified(true);
}

CFrameLog::CFrameLog(QWidget* owner, Application& application, std::function<void()> changed)
    : ToolFrame(owner, application.host.application.log),
      application_(application),
      changed_(std::move(changed)),
      form_(new CFormLog(application, this)) {
  auto* const column = new QVBoxLayout(this);
  column->addWidget(form_);
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
