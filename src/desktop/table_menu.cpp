// table_menu.cpp - actions of the table, in step with what is chosen.
#include "desktop/table_menu.h"

#include <QAction>
#include <QItemSelectionModel>
#include <QTableView>

namespace cantorix {

void GiveContextMenu(QTableView& table, const std::vector<TableEntry>& entries) {
  table.setContextMenuPolicy(Qt::ActionsContextMenu);
  for (const TableEntry& entry : entries) {
    auto* const action = new QAction(entry.text, &table);
    QObject::connect(action, &QAction::triggered, &table, entry.act);
    table.addAction(action);
    if (!entry.needsRows) continue;
    const auto follow = [&table, action] {
      action->setEnabled(table.selectionModel()->hasSelection());
    };
    QObject::connect(table.selectionModel(), &QItemSelectionModel::selectionChanged, action,
                     follow);
    QObject::connect(table.model(), &QAbstractItemModel::modelReset, action, follow);
    follow();
  }
}

}  // namespace cantorix
