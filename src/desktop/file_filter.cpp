// file_filter.cpp - quoted pieces between bars, taken apart into texts and patterns.
#include "desktop/file_filter.h"

#include "desktop/paint/words.h"
#include "desktop/qt_text.h"

namespace cantorix {

QList<FileFilter> ReadFilters(const std::string& quoted) {
  const QStringList pieces = Shown(quoted).split('|', Qt::SkipEmptyParts);
  QList<FileFilter> filters;
  for (qsizetype i = 0; i + 1 < pieces.size(); i += 2) {
    FileFilter filter{Translated(Typed(pieces[i])), {}};
    for (const QString& pattern : pieces[i + 1].split(';', Qt::SkipEmptyParts)) {
      const QString trimmed = pattern.trimmed();
      filter.patterns << (trimmed == QLatin1String("*.*") ? QStringLiteral("*") : trimmed);
    }
    filters << filter;
  }
  return filters;
}

QString QtFilter(const FileFilter& filter) {
  return filter.text + " (" + filter.patterns.join(' ') + ')';
}

}  // namespace cantorix
