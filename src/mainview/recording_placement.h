// recording_placement.h - a finished recording as the samples of a document.
#pragma once

#include <memory>

#include "audio/recording_file.h"
#include "mainview/sonadex_view.h"

namespace cantorix {

// Replaces what the view's document holds by the recording, and tells all views: the fields become
// those of a foreign recording at its rate; labels, tracks, undo, cursor and selection go; title,
// path and the tiers themselves stay. Below the memory limit the samples are copied, else the file
// becomes the disk store. Either way it stays on the disk until the document is saved or its user
// gives it up. "Pitch All" follows when it is automatic. A recording without a sample changes
// nothing; its file is deleted, and false given.
bool PlaceRecording(CSonadexView& view, std::unique_ptr<RecordingFile> file);

// The same for a document that no view shows yet: a recording with samples, not marked modified.
void HoldRecording(CSonadexDoc& document, std::unique_ptr<RecordingFile> file);

}  // namespace cantorix
