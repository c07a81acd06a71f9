// label_list_frame.h - the label list window: every label of the document in front as a row, to be
// shown in the main view, edited or deleted.
#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "desktop/frame_host.h"
#include "desktop/tool_frame.h"
#include "mainview/label_list.h"

class QHBoxLayout;
class QPushButton;
class QTableView;

namespace cantorix {

class LabelListModel : public QAbstractTableModel {
 public:
  // The labels of the view's document; none for null.
  void Show(const CSonadexView* view);
  // Throws std::out_of_range for a row that the list does not have.
  const LabelListRow& row(int index) const { return rows_.at(static_cast<std::size_t>(index)); }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  std::vector<LabelListRow> rows_;
  std::int32_t timeBase_ = 0;
};

class LabelListFrame : public ToolFrame {
 public:
  LabelListFrame(QWidget* owner, FrameHost& host, WindowPlacement& placement);

  // Lists the labels of a view's document, unless it does already; null empties the list.
  void Follow(CSonadexView* view);
  // The labels have changed.
  void Refresh();

  QTableView& table() { return *table_; }
  void Play();
  void Zoom();
  void Edit();
  void Delete();

 protected:
  QRect DefaultPlace() const override;

 private:
  using RowAction = void (*)(CSonadexView&, const LabelListRow&);

  int ChosenRow() const;  // -1: none
  void Apply(RowAction action);
  void ShowButtons();
  QPushButton* AddButton(QHBoxLayout& line, const QString& text, void (LabelListFrame::*act)());

  FrameHost& host_;
  CSonadexView* view_ = nullptr;
  LabelListModel model_;
  QTableView* table_;
  std::vector<QPushButton*> buttons_;
};

}  // namespace cantorix
