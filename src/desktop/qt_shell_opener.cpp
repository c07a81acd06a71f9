// qt_shell_opener.cpp - one call of the desktop.
#include "desktop/qt_shell_opener.h"

#include <QDesktopServices>
#include <QUrl>

#include "desktop/qt_text.h"

namespace cantorix {

bool QtShellOpener::Open(const std::string& path) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(ShownPath(path)));
}

}  // namespace cantorix
