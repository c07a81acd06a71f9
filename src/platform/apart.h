// apart.h - calls of the system that may never come back, as on a network folder whose server is
// gone: each is made in a thread of its own, so that who waits for it can give up.
#pragma once

#include <functional>
#include <string_view>

namespace cantorix {

class Progress;

// How a user is told of a wait, and gives up.
struct Patience {
  Progress& progress;
  std::string_view text;
  bool forOpens = true;  // else for reads alone: an open takes no thread
};

// Does `work` in another thread and waits for its end; after a moment the user sees so. Throws what
// it threw, or Abandoned when the user has cancelled: the thread stays behind then until the system
// comes back, so `work` owns all that it uses. Without a thread to spare it is done here.
void DoApart(const Patience& patience, std::function<void()> work);

}  // namespace cantorix
