// picture_output.h - the picture of an analysis window as a file, on the clipboard and on paper.
#pragma once

#include "desktop/desktop_services.h"
#include "desktop/windows/analysis_frame.h"

namespace cantorix {

// kSavePicture, kCopyPicture or kPrint. Files and paper take the size, and the spectrum its
// colours, from the options of the window; the pitch window has none, so its picture has the size
// of its canvas, as every copy has. Says so when a file could not be written. Throws FileError when
// samples cannot be read.
void OutputPicture(AnalysisFrame& frame, WindowCommand command, const DesktopServices& services);

}  // namespace cantorix
