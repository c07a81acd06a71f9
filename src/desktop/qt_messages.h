// qt_messages.h - what Qt writes to standard error about its surroundings, kept from the user.
#pragma once

#include <QtGlobal>

namespace cantorix {

// While Qt looks for a display: its remarks are dropped, and finding none ends the program with one
// line that names the program to use then, and exit code 1, instead of an abort.
class DisplaySearch {
 public:
  DisplaySearch();
  ~DisplaySearch();
  DisplaySearch(const DisplaySearch&) = delete;
  DisplaySearch& operator=(const DisplaySearch&) = delete;

 private:
  QtMessageHandler before_;
};

// From now on drops all but errors: a picture drawn without a display depends on nothing of which
// Qt warns, a runtime folder that is not set, say.
void DropQtRemarks();

}  // namespace cantorix
