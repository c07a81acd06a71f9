// log_model.h - the measurement log as a table that views can show.
#pragma once

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <functional>

#include "app/log_table.h"

namespace cantorix {

class LogModel : public QAbstractTableModel {
 public:
  // Shows `log`; null shows nothing. Rows that came since the last call are added, anything else
  // that changed shows the table anew.
  void Follow(LogTable* log);
  // The table was replaced or rows went: shows it anew at the next Follow.
  void Invalidate() { shown_ = nullptr; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  // A cell's text can be changed in place; `edited` is told.
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  std::function<void()> edited;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  LogTable* log_ = nullptr;
  const LogTable* shown_ = nullptr;
  int rows_ = 0;
  int columns_ = 0;
};

// The rows in another order, which the log itself does not take: numbers by their size, texts by
// their letters, cells without a value last.
class LogOrder : public QSortFilterProxyModel {
 protected:
  bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
};

}  // namespace cantorix
