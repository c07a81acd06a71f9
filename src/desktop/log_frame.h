// log_frame.h - the log window: a frame that shows while a log is open and asks before it goes, and
// the form in it with the table.
#pragma once

#include <QHBoxLayout>
#include <QTableView>
#include <functional>

#include "app/application.h"
#include "desktop/log_model.h"
#include "desktop/tool_frame.h"

namespace cantorix {

class EmptyNote;

// The table of the log; Ctrl+C copies the selected rows, Ctrl+A selects all, Delete removes them,
// Ctrl+Z takes that or an edited cell back, a heading sorts.
class CFormLog : public QWidget {
 public:
  CFormLog(Application& application, QWidget* parent);

  void Refresh();
  void ShowAnew();
  // Captions and selected rows as lines of cells separated by TABs, onto the desktop's clipboard.
  void CopyRows() const;
  void DeleteRows();
  void Undo();
  // Right of the buttons.
  void AddAtEnd(QWidget* widget) { line_->addWidget(widget); }
  QTableView& table() { return *table_; }

  // Keeps the keys of the table from the commands of the main frame that have the same ones.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // As the table shows them.
  std::vector<std::size_t> SelectedRows() const;
  void AddButton(const QString& text, const std::function<void()>& act);
  void LogChanged();

  Application& application_;
  LogModel model_;
  LogOrder order_;
  QTableView* table_;
  EmptyNote* note_;
  QHBoxLayout* line_;
};

class CFrameLog : public ToolFrame {
 public:
  // `changed` is told when the log was closed, saved or shortened in this window.
  CFrameLog(QWidget* owner, Application& application, std::function<void()> changed);

  // Shows the log as it is now, with rows added since; hides without one.
  void Refresh();
  // Another log was opened or begun: comes to the front with it.
  void ShowNewLog();
  CFormLog& form() { return *form_; }

 protected:
  QRect DefaultPlace() const override;
  // Its rows are long.
  Qt::DockWidgetArea DockArea() const override { return Qt::BottomDockWidgetArea; }
  void closeEvent(QCloseEvent* event) override;

 private:
  Application& application_;
  std::function<void()> changed_;
  CFormLog* form_;
};

}  // namespace cantorix
