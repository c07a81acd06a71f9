// qt_messages.cpp
#include "desktop/qt_messages.h"

#include <QString>
#include <cstdio>
#include <cstdlib>

namespace cantorix {
namespace {

bool IsError(QtMsgType type) { return type == QtFatalMsg || type == QtCriticalMsg; }

// Qt aborts once a fatal message was handled. Nothing of the program exists yet that would have to
// be given back.
void EndWithoutDisplay(QtMsgType type, const QMessageLogContext&, const QString&) {
  if (type != QtFatalMsg) return;
  std::fputs(
      "cantorix: there is no display to open a window on; cantorix-batch measures recordings "
      "without one.\n",
      stderr);
  std::_Exit(EXIT_FAILURE);
}

void WriteErrors(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (IsError(type)) std::fprintf(stderr, "cantorix: %s\n", qPrintable(text));
}

}  // namespace

DisplaySearch::DisplaySearch() : before_(qInstallMessageHandler(EndWithoutDisplay)) {}
DisplaySearch::~DisplaySearch() { qInstallMessageHandler(before_); }

void DropQtRemarks() { qInstallMessageHandler(WriteErrors); }

}  // namespace cantorix
