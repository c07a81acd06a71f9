// words.cpp - texts looked up, and the values in them kept as they are.
#include "desktop/paint/words.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QRegularExpression>
#include <QStringList>
#include <QTranslator>
#include <array>

#include "desktop/qt_text.h"

namespace cantorix {
namespace {

constexpr const char* kContext = "Cantorix";
constexpr const char* kSigns = "Phonetic signs";

QString LookUp(const QString& text) {
  return QCoreApplication::translate(kContext, text.toUtf8().constData());
}

// The text without its values, and these.
struct Sentence {
  QString pattern;
  QStringList values;
};

// Numbers that are no part of a word ("F1"), with the unit of a time; dates; a dash in place of a
// number; and what stands in quotes.
Sentence SentenceOf(const QString& text) {
  static const QRegularExpression values(QStringLiteral(
      "\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d"
      "|(?<![\\w.])[-+]?(?:\\d+(?:\\.\\d+|(?::\\d\\d)+)?|\\x{221e})(?: m?s\\b|(?!\\w))"
      "|(?<![^ ])(?<!\\d )(?<! ms )(?<! s )\\x{2013}(?![^ ])"
      "|'[^']+'|\"[^\"]+\""));
  Sentence sentence;
  qsizetype done = 0;
  for (auto each = values.globalMatch(text); each.hasNext();) {
    const QRegularExpressionMatch match = each.next();
    sentence.pattern += text.mid(done, match.capturedStart() - done);
    const QString value = match.captured();
    const bool quoted = value.startsWith('\'') || value.startsWith('"');
    const QString quote = quoted ? value.left(1) : QString();
    sentence.values << (quoted ? value.mid(1, value.size() - 2) : value);
    sentence.pattern += quote + '%' + QString::number(sentence.values.size()) + quote;
    done = match.capturedEnd();
  }
  sentence.pattern += text.mid(done);
  return sentence;
}

QString Filled(const QString& pattern, const QStringList& values) {
  static const QRegularExpression place(QStringLiteral("%(\\d+)"));
  QString filled;
  qsizetype done = 0;
  for (auto each = place.globalMatch(pattern); each.hasNext();) {
    const QRegularExpressionMatch match = each.next();
    filled += pattern.mid(done, match.capturedStart() - done);
    filled += values.value(match.captured(1).toInt() - 1);
    done = match.capturedEnd();
  }
  return filled + pattern.mid(done);
}

// Null where there is nothing for the text as it is.
QString AsSentence(const QString& text) {
  QString whole = LookUp(text);
  if (whole != text) return whole;
  const Sentence sentence = SentenceOf(text);
  if (sentence.values.isEmpty()) return {};
  const QString pattern = LookUp(sentence.pattern);
  return pattern == sentence.pattern ? QString() : Filled(pattern, sentence.values);
}

// What parts the pieces of a longer text, the coarsest first.
const std::array<QRegularExpression, 6>& Separators() {
  static const std::array<QRegularExpression, 6> separators{
      QRegularExpression(QStringLiteral("\\n+")),
      QRegularExpression(QStringLiteral(" {2,}|\\t")),
      QRegularExpression(QStringLiteral("(?<=[.?!]) ")),
      QRegularExpression(QStringLiteral(" \\x{b7} ")),
      QRegularExpression(QStringLiteral(", ")),
      QRegularExpression(QStringLiteral(" \\(|\\)$"))};
  return separators;
}

QString ByPieces(const QString& text, std::size_t from) {
  if (text.isEmpty()) return text;
  if (QString whole = AsSentence(text); !whole.isNull()) return whole;
  for (std::size_t i = from; i < Separators().size(); ++i) {
    QString joined;
    qsizetype done = 0;
    for (auto each = Separators()[i].globalMatch(text); each.hasNext();) {
      const QRegularExpressionMatch match = each.next();
      joined += ByPieces(text.mid(done, match.capturedStart() - done), i + 1) + match.captured();
      done = match.capturedEnd();
    }
    if (done > 0) return joined + ByPieces(text.mid(done), i + 1);
  }
  return text;
}

bool Install(const QString& name, const QString& folder) {
  auto* const translator = new QTranslator(QCoreApplication::instance());
  if (!translator->load(name, folder)) {
    delete translator;
    return false;
  }
  return QCoreApplication::installTranslator(translator);
}

}  // namespace

QString Tr(const char* text) { return QCoreApplication::translate(kContext, text); }

QString TrOn(const PaintStyle& style, const char* text) {
  return style.onScreen ? Tr(text) : QString::fromUtf8(text);
}

QString TranslatedSign(std::string_view name) {
  const auto lookUp = [](const QString& text) {
    return QCoreApplication::translate(kSigns, text.toUtf8().constData());
  };
  const QString shown = Shown(name);
  QString whole = lookUp(shown);
  if (whole != shown) return whole;
  QStringList words = shown.split(' ');
  for (QString& word : words) word = lookUp(word);
  return words.join(' ');
}

QString Translated(std::string_view text) {
  const QString shown = Shown(text);
  static const char* const kNameOfLanguage = Marked("English");
  const bool isEnglish = Tr(kNameOfLanguage) == QLatin1String(kNameOfLanguage);
  return isEnglish ? shown : ByPieces(shown, 0);
}

void UseLanguage(const QStringList& wanted) {
  for (const QString& name : wanted) {
    const QString language = name.section(QRegularExpression(QStringLiteral("[-_]")), 0, 0);
    if (language == QLatin1String("en") || language == QLatin1String("C")) return;
    if (!Install(QStringLiteral("cantorix_") + language, QStringLiteral(":/translations"))) {
      continue;
    }
    Install(QStringLiteral("qtbase_") + language,
            QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    return;
  }
}

}  // namespace cantorix
