// words.h - texts of the program in the user's language. English stands in the sources; what has no
// translation, the texts that keep their words in every language among them, stays as it is.
// tools/words.py finds the texts for the translators: those in Tr, TrOn and Marked, the tables of
// commands, and the sentences of the libraries below.
#pragma once

#include <QString>
#include <QStringList>
#include <string_view>

#include "desktop/paint/paint_style.h"

namespace cantorix {

// A text of the desktop; "%1" stands for what the caller fills in.
QString Tr(const char* text);
// On a picture: in English in files and prints, which are the same for every reader.
QString TrOn(const PaintStyle& style, const char* text);
// Of a table: translated where it is shown.
constexpr const char* Marked(const char* text) { return text; }

// A text of the libraries, which know no language: as a whole, else as a sentence with numbers and
// quoted names in it ("channel %1 of %2"), else piece by piece.
QString Translated(std::string_view text);
// A sign of the phonetic chart, as a whole, else word by word ("voiced dental plosive").
QString TranslatedSign(std::string_view name);

// The languages of this translation and of the toolkit's own buttons, for the first of `wanted`
// ("de-DE", best first) that there is; English, which is there without one, ends the search.
void UseLanguage(const QStringList& wanted);

}  // namespace cantorix
