// open_pipeline.h - opening a recording: which reader takes the file, the question when none does,
// and what a document becomes when one did. The readers fill the channel (reader_table.h).
#pragma once

#include <string>

#include "document/reader_table.h"

namespace cantorix {

class CSonadexDoc;

// Opens `path` exclusively and gives it to the readers of `table` in their order; the first that
// takes it reads alone. When none does, asks whether to try the generic ones. True with the
// document loaded, unmodified, titled by the path and its rate the program's current one. False,
// with document.openFailure saying why, when it could not be opened; discard the document then.
// File errors are shown to the user, a cancel and a lack of memory are not.
bool OpenRecording(CSonadexDoc& document, const std::string& path, const ReaderTable& table);

}  // namespace cantorix
