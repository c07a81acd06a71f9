// picture_output.h - temporary
#pragma once
#include "desktop/desktop_services.h"
#include "desktop/windows/analysis_frame.h"
namespace cantorix {
inline void OutputPicture(AnalysisFrame&, WindowCommand, const DesktopServices&) {}
}  // namespace cantorix
