// long_table.cpp - stretches of rows, each printed in parts and then written.
#include "batch/long_table.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/abandon.h"
#include "platform/workers.h"

namespace cantorix::batch {
namespace {

constexpr int kPartCells = 4096;  // a tenth of a ms or two
constexpr std::size_t kStretchParts = 256;

// Text in memory.
class StringSink : public TextSink {
 public:
  void Write(std::string_view text) override { text_ += text; }
  void Finish() override {}
  std::string Take() { return std::exchange(text_, {}); }

 private:
  std::string text_;
};

}  // namespace

void WriteRows(Session& session, bool namesFile, TextSink& sink, std::int64_t count, int cells,
               const RowWriter& writeRow) {
  const auto partRows = static_cast<std::size_t>(std::max(1, kPartCells / std::max(1, cells)));
  const auto total = static_cast<std::size_t>(count);
  const bool exact = session.request().exact;
  const std::string name = namesFile ? session.file() : "";
  std::vector<std::string> texts;
  NoProgress none;
  ProgressScope quiet(none, {}, 0.0);
  for (std::size_t first = 0; first < total; first += kStretchParts * partRows) {
    if (session.interrupted()) throw Abandoned(AbandonReason::kCancelled);
    const std::size_t stretch = std::min(kStretchParts * partRows, total - first);
    texts.assign((stretch + partRows - 1) / partRows, {});
    ComputeParts(session.workers(), stretch, partRows, quiet, [&]() -> PartWork {
      return [&](const Part& part, ProgressScope&) {
        StringSink text;
        TableRows rows(text, exact, name);
        for (std::size_t row = part.first; row < part.end; ++row) {
          writeRow(static_cast<std::int64_t>(first + row), rows);
        }
        rows.Flush();
        texts[part.first / partRows] = text.Take();
      };
    });
    for (const std::string& text : texts) sink.Write(text);
  }
}

}  // namespace cantorix::batch
