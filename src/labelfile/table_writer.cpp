// table_writer.cpp - a table with the heading tier, start_s, end_s, text. A point has no end.
#include "labelfile/format_writers.h"
#include "labelfile/time_text.h"
#include "platform/text.h"

namespace cantorix {
namespace {

std::string Time(double seconds) { return FormatSeconds(seconds, 6, 6); }

std::string Written(const LabelFile& file, char separator) {
  std::string out = std::string("tier") + separator + "start_s" + separator + "end_s" + separator;
  out += "text\n";
  for (const LabelFileTier& tier : file.tiers) {
    for (const TimedLabel& label : tier.labels) {
      out += TableCell(tier.name, separator) + separator + Time(label.startS) + separator;
      if (tier.intervals) out += Time(label.endS);
      out += separator + TableCell(label.text, separator) + '\n';
    }
  }
  return out;
}

}  // namespace

std::string WriteCommaTable(const LabelFile& file) { return Written(file, ','); }

std::string WriteTabTable(const LabelFile& file) { return Written(file, '\t'); }

}  // namespace cantorix
