// label_list_frame.h - the label list window: every label of the document in front as a row, sorted
// and filtered, to be played, shown in the main view, edited, renamed or deleted.
#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <vector>

#include "desktop/frame_host.h"
#include "desktop/tool_frame.h"
#include "mainview/label_listing.h"

class QAction;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace cantorix {

class LabelListModel : public QAbstractTableModel {
 public:
  // The labels of the view's document; none for null.
  void Show(const CSonadexView* view);
  void Filter(const std::string& search, int tier);
  // By the column of the table; -1: as stored.
  void sort(int column, Qt::SortOrder order) override;
  const LabelListing& listing() const { return listing_; }
  // Throws std::out_of_range for a row that the list does not have.
  const LabelListRow& row(int index) const { return listing_.row(static_cast<std::size_t>(index)); }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  LabelListing listing_;
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
  QLineEdit& search() { return *search_; }
  QComboBox& tier() { return *tier_; }
  // What stands over the empty table.
  QLabel& note() { return *note_; }
  void Play();
  void Zoom();
  void Edit();
  void Rename();
  void Delete();

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void showEvent(QShowEvent* event) override;
  QRect DefaultPlace() const override;

 private:
  using RowAction = void (*)(CSonadexView&, const LabelListRow&);
  using RowsAction = void (*)(CSonadexView&, const std::vector<LabelListRow>&);
  // How many rows must be chosen.
  enum class Needs { kOne, kSome };
  struct Entry {
    QPushButton* button;
    QAction* action;  // of the context menu
    Needs needs;
  };

  void BuildTable();
  QHBoxLayout* BuildFilter();
  QHBoxLayout* BuildButtons();
  void AddEntry(QHBoxLayout& line, const QString& text, Needs needs, void (LabelListFrame::*act)());
  std::vector<int> ChosenRows() const;  // ascending
  // Chooses what is in the rows' place now.
  void ChooseAgain(const std::vector<int>& rows);
  bool MayApply() const;
  void Apply(RowAction action);
  void Apply(RowsAction action);
  void Filter();
  void SortByNext(int column);
  void ShowTiers();
  void ShowState();

  FrameHost& host_;
  CSonadexView* view_ = nullptr;
  LabelListModel model_;
  QTableView* table_;
  QLineEdit* search_;
  QComboBox* tier_;
  QLabel* note_;
  std::vector<Entry> entries_;
  bool stale_ = false;  // labels have changed while nobody could see it
};

}  // namespace cantorix
