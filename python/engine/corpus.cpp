// corpus.cpp - the pieces of a corpus run: which recordings, the header of a table, the rows of one
// recording. Who runs them where is left to the package.
#include "measure/corpus_file.h"

#include "bindings.h"

namespace cantorix::python {
namespace {

using Bytes = std::vector<py::bytes>;

// The next recordings of a list, `most` of them at most.
std::vector<std::pair<py::bytes, py::bytes>> TakeEntries(CorpusReader& reader, std::size_t most) {
  std::vector<CorpusEntry> entries;
  {
    const py::gil_scoped_release free;
    while (entries.size() < most) {
      auto entry = reader.Next();
      if (!entry) break;
      entries.push_back(std::move(*entry));
    }
  }
  std::vector<std::pair<py::bytes, py::bytes>> taken;
  taken.reserve(entries.size());
  for (const CorpusEntry& entry : entries) taken.emplace_back(entry.path, entry.leading);
  return taken;
}

Bytes ColumnsOf(const CorpusReader& reader) {
  return {reader.columns().begin(), reader.columns().end()};
}

std::vector<std::string> Tables(const std::string& names) {
  std::vector<std::string> tables;
  for (const CorpusTable table : CorpusTablesOf(names)) tables.emplace_back(NameOf(table));
  return tables;
}

py::bytes Header(const std::string& table, const std::vector<std::string>& columns, int points) {
  return CorpusHeader(CorpusTablesOf(table).front(), columns, points);
}

struct Work {
  CorpusWork work;
  Settings settings;
  // Held for all the recordings: making one for each takes longer than measuring a short one.
  std::shared_ptr<const PrivateFolder> folder;
};

py::tuple Rows(const Work& work, const std::string& path, const std::string& leading) {
  const CorpusOpening opening{work.settings, work.folder->path(), {}, {}};
  PolledProgress progress;
  progress.Start(nullptr);
  CorpusResult result;
  {
    const py::gil_scoped_release free;
    try {
      result = MeasureCorpusFile({path, leading}, work.work, opening, progress);
    } catch (...) {
      progress.Finish();
      throw;
    }
  }
  return py::make_tuple(Bytes(result.rows.begin(), result.rows.end()), py::bytes(result.failure));
}

CorpusWork WorkOf(const std::string& tables, int points, bool exact, const std::string& labels,
                  bool usualOrder) {
  CorpusWork work{CorpusTablesOf(tables), points, exact, labels, {}};
  work.options.usualLpcOrder = usualOrder;
  return work;
}

}  // namespace

void BindCorpus(py::module_& module) {
  const auto home = std::make_shared<TemporaryHome>();
  py::class_<Work>(module, "CorpusWork")
      .def(py::init([home](const std::string& tables, int points, bool exact,
                           const std::string& labels, bool usualOrder, const Settings& settings) {
        return Work{WorkOf(tables, points, exact, labels, usualOrder), settings, home->Folder()};
      }))
      .def("rows", Rows);
  py::class_<CorpusReader>(module, "CorpusReader")
      .def(py::init<std::vector<std::string>, const std::string&>())
      .def_property_readonly("columns", ColumnsOf)
      .def("take", TakeEntries);
  module.def("corpus_tables", Tables);
  module.def("corpus_header", Header);
}

}  // namespace cantorix::python
