// log_model.h - the measurement log as a table that views can show.
#pragma once

#include <QAbstractTableModel>

#include "app/log_table.h"

namespace cantorix {

class LogModel : public QAbstractTableModel {
 public:
  // Shows `log`; null shows nothing. Rows that came since the last call are added, anything else
  // that changed shows the table anew.
  void Follow(const LogTable* log);
  // The table was replaced or rows went: shows it anew at the next Follow.
  void Invalidate() { shown_ = nullptr; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  const LogTable* log_ = nullptr;
  const LogTable* shown_ = nullptr;
  int rows_ = 0;
  int columns_ = 0;
};

}  // namespace cantorix
