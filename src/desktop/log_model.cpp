// log_model.cpp - cells and headings as the toolkit asks for them.
#include "desktop/log_model.h"

#include "desktop/qt_text.h"

namespace cantorix {

void LogModel::Follow(LogTable* log) {
  const int rows = log == nullptr ? 0 : static_cast<int>(log->rows().size());
  const int columns = log == nullptr ? 0 : static_cast<int>(log->captions().size());
  if (log != nullptr && log == shown_ && columns == columns_ && rows >= rows_) {
    if (rows == rows_) return;
    beginInsertRows({}, rows_, rows - 1);
    rows_ = rows;
    endInsertRows();
    return;
  }
  beginResetModel();
  log_ = log;
  shown_ = log;
  rows_ = rows;
  columns_ = columns;
  endResetModel();
}

int LogModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int LogModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columns_;
}

QVariant LogModel::data(const QModelIndex& index, int role) const {
  if (log_ == nullptr || !index.isValid() || index.row() >= rows_) return {};
  // Numbers stand right, as everywhere; the source and the kind of the entry are texts.
  if (role == Qt::TextAlignmentRole && index.column() >= 2) {
    return QVariant(Qt::AlignRight | Qt::AlignVCenter);
  }
  if (role != Qt::DisplayRole && role != Qt::EditRole) return {};
  const std::string* const cell =
      log_->Cell(static_cast<std::size_t>(index.row()), static_cast<std::size_t>(index.column()));
  return cell == nullptr ? QVariant() : QVariant(Shown(*cell));
}

bool LogModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (log_ == nullptr || !index.isValid() || index.row() >= rows_ || role != Qt::EditRole) {
    return false;
  }
  if (value.toString() == data(index, Qt::EditRole).toString()) return true;
  log_->SetCell(static_cast<std::size_t>(index.row()), static_cast<std::size_t>(index.column()),
                value.toString().toStdString());
  Q_EMIT dataChanged(index, index);
  if (edited) edited();
  return true;
}

Qt::ItemFlags LogModel::flags(const QModelIndex& index) const {
  return QAbstractTableModel::flags(index) | Qt::ItemIsEditable;
}

bool LogOrder::lessThan(const QModelIndex& left, const QModelIndex& right) const {
  const QString a = left.data().toString();
  const QString b = right.data().toString();
  bool isNumberA = false;
  bool isNumberB = false;
  const double numberA = a.toDouble(&isNumberA);
  const double numberB = b.toDouble(&isNumberB);
  if (isNumberA && isNumberB) return numberA < numberB;
  if (isNumberA != isNumberB) return isNumberA;
  return a.localeAwareCompare(b) < 0;
}

QVariant LogModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || log_ == nullptr) return {};
  if (orientation == Qt::Vertical) return section + 1;
  if (section < 0 || section >= columns_) return {};
  return Shown(log_->captions()[static_cast<std::size_t>(section)]);
}

}  // namespace cantorix
