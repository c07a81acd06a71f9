// told_labels.h - a file of labels as one text: "words: [0.25-1]a [1-2]b; tones: [0.5]H*; ! note".
#pragma once

#include <string>

#include "labelfile/label_formats.h"
#include "support/joined.h"

namespace cantorix {

inline std::string Told(const LabelFile& file) {
  std::string told;
  for (const LabelFileTier& tier : file.tiers) {
    told += tier.name + ":";
    for (const TimedLabel& label : tier.labels) {
      told += " [" + Joined(label.startS);
      if (tier.intervals) told += "-" + Joined(label.endS);
      told += "]" + label.text;
    }
    told += "; ";
  }
  for (const std::string& note : file.notes) told += "! " + note + " ";
  return told;
}

}  // namespace cantorix
