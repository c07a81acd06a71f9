// audacity_writer.cpp - a label track, as Audacity exports it.
#include "labelfile/format_writers.h"
#include "labelfile/time_text.h"

namespace cantorix {

std::string WriteAudacity(const LabelFile& file) {
  std::string out;
  for (const LabelFileTier& tier : file.tiers) {
    for (const TimedLabel& label : tier.labels) {
      out += FormatSeconds(label.startS, 6, 6) + '\t' + FormatSeconds(label.endS, 6, 6) + '\t' +
             label.text + '\n';
    }
  }
  return out;
}

}  // namespace cantorix
