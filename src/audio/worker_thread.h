// worker_thread.h - a thread that can be waited for with limited patience. One that does not end is
// left to itself, so its work must own all that it touches.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <thread>

namespace cantorix {

class WorkerThread {
 public:
  WorkerThread() = default;
  ~WorkerThread();
  WorkerThread(const WorkerThread&) = delete;
  WorkerThread& operator=(const WorkerThread&) = delete;

  // Runs `body`, which must not throw. False when the system has no thread to give. An earlier
  // thread must have been finished.
  bool Start(std::function<void()> body);
  // Waits for the end. False when it did not come in time; the thread is on its own then.
  bool Finish(std::chrono::milliseconds patience);

 private:
  struct End;
  std::shared_ptr<End> end_;
  std::thread thread_;
};

}  // namespace cantorix
