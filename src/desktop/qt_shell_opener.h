// qt_shell_opener.h - opens a file with the program that the desktop keeps for it.
#pragma once

#include "platform/services.h"

namespace cantorix {

class QtShellOpener : public ShellOpener {
 public:
  bool Open(const std::string& path) override;
};

}  // namespace cantorix
