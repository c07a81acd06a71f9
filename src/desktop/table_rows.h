// table_rows.h - the look that the tables of the floating windows share.
#pragma once

#include <QHeaderView>
#include <QTableView>

namespace cantorix {

// One line of text per row, whatever a cell holds.
inline void UseCompactRows(QTableView& table) {
  constexpr int kPadding = 8;  // logical pixels above and below the text together
  table.setWordWrap(false);
  table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + kPadding);
}

}  // namespace cantorix
