// table_menu.h - the context menu of a table of rows: what its buttons and keys do, too.
#pragma once

#include <QString>
#include <functional>
#include <vector>

class QTableView;

namespace cantorix {

struct TableEntry {
  QString text;
  std::function<void()> act;
  bool needsRows = true;  // grey while no row is chosen
};

// The table has its model by then.
void GiveContextMenu(QTableView& table, const std::vector<TableEntry>& entries);

}  // namespace cantorix
