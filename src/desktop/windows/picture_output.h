// picture_output.h - the picture of an analysis window as a file, on the clipboard and on paper.
#pragma once

#include <functional>

#include "desktop/windows/analysis_frame.h"

class QPrinter;

namespace cantorix {

class Prompts;

// What a picture needs to leave the program.
struct PictureOutlets {
  Prompts& prompts;
  DocumentWaveform& waveform;          // of the window's document
  std::function<QPrinter&()> printer;  // with its paper as it was set up
};

// kSavePicture, kCopyPicture or kPrint. Files and paper take the size, and the spectrum its
// colours, from the options of the window, and are computed for that size as long as the samples
// are still those of the window; a copy is the window as it is. Says so when a file could not be
// written. Throws FileError when samples cannot be read, Abandoned when the user cancels.
void OutputPicture(AnalysisFrame& frame, WindowCommand command, const PictureOutlets& outlets);

}  // namespace cantorix
