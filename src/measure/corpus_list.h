// corpus_list.h - the recordings of a corpus: those of folders, single files, or the rows of a
// table that has a column of paths and any others, which are carried along.
#pragma once

#include <string>
#include <vector>

namespace cantorix {

struct CorpusEntry {
  std::string path;
  std::string leading;  // the first cells of its rows: name and carried columns
};

struct CorpusList {
  std::vector<std::string> columns;  // the names of those cells
  std::vector<CorpusEntry> entries;
};

// Folders are walked in the order of their paths for names of recordings. A file that ends in .tsv,
// .csv or .txt is a table, which stands alone: with a line of names, separated by tabs or, when
// there is none in that line, by commas; `column` holds the paths (empty: the first), which count
// from its folder. Throws FileError, and WrongUsage for a table without the column or with a row
// of another width.
CorpusList ReadCorpus(const std::vector<std::string>& sources, const std::string& column);

}  // namespace cantorix
