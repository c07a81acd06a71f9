// file_filter.h - the filters of the file dialogs, from the form in which requests quote them.
#pragma once

#include <QString>
#include <QStringList>
#include <string>

namespace cantorix {

struct FileFilter {
  QString text;          // as the user sees it
  QStringList patterns;  // "*.wav"; any file is "*"
};

// The entries of "text|pattern; pattern|text|pattern|"; "*.*" means any file, with a point in its
// name or without.
QList<FileFilter> ReadFilters(const std::string& quoted);

// An entry as a Qt dialog takes it, the patterns behind the text in a bracket of their own.
QString QtFilter(const FileFilter& filter);

}  // namespace cantorix
