// record_play_settings.h - what the record/play window sets. Rate, input and memory are the
// program's, so that every open document has them and whichever closes last stores them; automatic
// analysis is the choice of the document in front and of those to come.
#pragma once

#include <cstdint>
#include <span>

#include "document/document.h"

namespace cantorix {

struct RecordPlaySettings {
  std::int32_t memoryMinutes = 0;      // recordings of this length and more go to the disk store
  double rateHz = 0.0;                 // of recordings and of new documents
  std::int32_t automaticAnalysis = 0;  // 0 or 1
  std::int32_t input = 0;              // 0: the system's own
};

// `front` may be null: then what the configuration file holds, or the defaults.
RecordPlaySettings RecordPlaySettingsOf(const DocumentHost& host, const CSonadexDoc* front);
// Gives the settings to program and documents, puts them into the configuration file, when there is
// a valid one, and tells the document in front.
void KeepRecordPlaySettings(const RecordPlaySettings& settings, DocumentHost& host,
                            std::span<CSonadexDoc* const> open, CSonadexDoc* front);

}  // namespace cantorix
