// picture_command.h - pictures of a recording from the command line, without a display.
#pragma once

#include <span>
#include <string>

namespace cantorix {

// Behind "usage: ", or as many spaces.
inline constexpr const char* kPictureUsage =
    "cantorix --picture main|pitch|spectrum|spectrogram OUT.png|svg|pdf|bmp\n"
    "                [--size WxH] [--scale N] [--dark] [--select FROM:TO] [--at MS] FILE\n";

// Whether the program was called for a picture; asked before it opens a display.
bool AsksForPicture(std::span<const std::string> arguments);

// Draws it. Exit code: 0 done, 1 the recording or the picture failed, 2 wrong usage; what went
// wrong is one line on standard error. Needs a QGuiApplication.
int RunPictureCommand(std::span<const std::string> arguments);

}  // namespace cantorix
