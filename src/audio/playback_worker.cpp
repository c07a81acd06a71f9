// playback_worker.cpp - finished buffers, round by round.
#include "audio/playback_worker.h"

#include <algorithm>

#include "platform/file_error.h"

namespace cantorix {
namespace {

// Where it begins lies within the stretch, or `count` is 0.
void ReadOrSilence(PlaybackState& playback, std::span<std::int16_t> out) {
  try {
    playback.source->Read(playback.position, out);
  } catch (const FileError& error) {
    std::fill(out.begin(), out.end(), std::int16_t{0});
    playback.notices->Notice(error.what());
  }
}

void Refill(PlaybackState& playback) {
  if (playback.position > playback.totalSamples) return;
  ++playback.playedBuffers;
  playback.index = 1 - playback.index;
  WaveHeader& header = playback.headers[playback.index];
  if (!playback.device->Unprepare(header)) {
    playback.notices->Notice("Sound output Cannot UnPrepareHeader !");
    return;
  }
  FillBuffer(playback, playback.index);
  if (!PrepareBuffer(playback, playback.index, playback.bufferSamples)) {
    playback.notices->Notice("Sound output Cannot Prepare Header !");
  }
  if (!playback.device->Write(header)) {
    playback.notices->Notice("Sound output Cannot Add Buffer !");
  }
}

void TellObserver(PlaybackState& playback) {
  if (playback.observer) playback.observer->BufferPlayed(playback.playedBuffers);
}

}  // namespace

void FillBuffer(PlaybackState& playback, std::uint32_t which) {
  const std::span<std::int16_t> out(playback.bufferStart(which), playback.bufferSamples);
  const std::int64_t left = std::max<std::int64_t>(playback.totalSamples - playback.position, 0);
  const auto count = static_cast<std::size_t>(std::min<std::int64_t>(left, playback.bufferSamples));
  if (count > 0) ReadOrSilence(playback, out.first(count));
  std::fill(out.begin() + static_cast<std::ptrdiff_t>(count), out.end(), std::int16_t{0});
  // Kept: by the whole buffer, also where the stretch has ended within it.
  playback.position += playback.bufferSamples;
}

bool PrepareBuffer(PlaybackState& playback, std::uint32_t which, std::uint32_t count) {
  WaveHeader& header = playback.headers[which];
  header.data = playback.bufferStart(which);
  header.lengthBytes = count * 2;
  header.flags = 0;
  header.loops = 0;
  return playback.device->Prepare(header) && header.isPrepared();
}

void RunPlayback(PlaybackState& playback) {
  playback.event->Wait();  // the device has opened
  while (playback.stop == 0) {
    if (!playback.event->Wait() || playback.stop != 0) return;
    Refill(playback);
    TellObserver(playback);
  }
  TellObserver(playback);
}

}  // namespace cantorix
