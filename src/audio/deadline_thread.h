// deadline_thread.h - a thread for calls into a library that may hang. Callers wait with a deadline
// and go on without it; when the library comes back the thread catches up. Nobody ever joins it: a
// program ends normally and leaves a stuck thread behind.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace cantorix {

class DeadlineThread {
 public:
  DeadlineThread();
  // What was given to it is still done, then it ends; nobody waits for that.
  ~DeadlineThread();
  DeadlineThread(const DeadlineThread&) = delete;
  DeadlineThread& operator=(const DeadlineThread&) = delete;

  // Runs `work` on the thread. Gives what it gave, or false when it was not done in time or the
  // thread does not answer since an earlier call. `work` must not throw and must own all that it
  // touches. A late success is taken back with `undo`, on the thread; a work with an `undo` that
  // was given up before it began is never begun.
  bool Run(std::function<bool()> work, std::chrono::milliseconds deadline,
           std::function<void()> undo = nullptr);
  // The same without waiting; it is done whenever the thread answers.
  void Post(std::function<void()> work);

  // False from a missed deadline until the thread is back.
  bool isAnswering() const;

 private:
  struct Call;
  struct State;
  void Add(const std::shared_ptr<Call>& call);
  static void Serve(const std::shared_ptr<State>& state);

  std::shared_ptr<State> state_;
};

}  // namespace cantorix
