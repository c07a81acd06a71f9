// capture_worker.cpp - completed buffers, round by round.
#include "audio/capture_worker.h"

#include <exception>

namespace cantorix {
namespace {

struct RoundFailed : std::exception {};

void Require(Capture& capture, bool done, const char* text) {
  if (done) return;
  capture.notices->Notice(text);
  throw RoundFailed();
}

void Requeue(Capture& capture) {
  const std::uint32_t which = capture.index;
  WaveHeader& header = capture.headers[which];
  WaveIn& device = *capture.device;
  Require(capture, device.Unprepare(header), "Cannot UnPrepareHeader !");
  Require(capture, PrepareBuffer(capture, which), "Cannot Prepare Header !");
  Require(capture, device.AddBuffer(header), "Cannot Add Buffer (Add Buffer)!");
  Require(capture, device.Start(), "Cannot Start Wave In (Add Buffer)!");
  // Kept: after a failure the next completion tries the same buffer again.
  capture.index = 1 - which;
}

void RunRound(Capture& capture) {
  const std::uint32_t completed = capture.index;
  // Kept: the device has the buffer back before its data is taken. It leaves the last buffer of its
  // queue alone, so the data stands until the other buffer comes back, too.
  Requeue(capture);
  capture.consumer->BufferReady({capture.bufferStart(completed), capture.bufferSamples});
  capture.deliveredSamples.fetch_add(capture.bufferSamples, std::memory_order_acq_rel);
}

}  // namespace

bool PrepareBuffer(Capture& capture, std::uint32_t which) {
  WaveHeader& header = capture.headers[which];
  header.data = capture.bufferStart(which);
  header.lengthBytes = capture.bufferSamples * 2;
  header.flags = 0;
  return capture.device->Prepare(header) && header.isPrepared();
}

void RunCapture(Capture& capture) {
  capture.event->Wait();  // the device has opened
  while (capture.stop == 0) {
    capture.event->Wait();
    if (capture.stop != 0) return;
    try {
      RunRound(capture);
    } catch (const std::exception&) {
      // Whoever threw has told the user, unless memory ran out even for that: who looks at the
      // recorder's status finds the failure, ends the recording and says so.
      capture.hasFailed.store(true, std::memory_order_release);
    }
  }
}

}  // namespace cantorix
