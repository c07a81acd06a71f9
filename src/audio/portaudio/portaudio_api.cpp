// portaudio_api.cpp - PortAudio behind plain calls.
#include "audio/portaudio/portaudio_api.h"

#include <pa_linux_alsa.h>
#include <portaudio.h>

#include <utility>

namespace cantorix {
namespace {

// A loaded machine plays without gaps at 0.3 s where it does not at 0.1 s, and the first sound is
// not later for it: the device asks for the whole stretch at once.
constexpr double kLatencySeconds = 0.3;
// Short periods keep the meter smooth; by default there would be four of them.
constexpr int kPeriods = 12;

PaStreamParameters Parameters(int device) {
  PaStreamParameters parameters{};
  parameters.device = device;
  parameters.channelCount = 1;
  parameters.sampleFormat = paInt16;
  parameters.suggestedLatency = kLatencySeconds;
  return parameters;
}

int Callback(const void* input, void* output, unsigned long frames,
             const PaStreamCallbackTimeInfo* time, PaStreamCallbackFlags, void* user) {
  auto& sink = *static_cast<StreamSink*>(user);
  if (input != nullptr) sink.Recorded({static_cast<const std::int16_t*>(input), frames});
  if (output != nullptr) {
    sink.Wanted({static_cast<std::int16_t*>(output), frames},
                time->outputBufferDacTime - time->currentTime);
  }
  return paContinue;
}

void Finished(void* user) { static_cast<StreamSink*>(user)->Ended(); }

}  // namespace

bool StartSoundLibrary() { return ::Pa_Initialize() == paNoError; }

void EndSoundLibrary() { ::Pa_Terminate(); }

std::vector<HostDevice> ListSoundDevices() {
  std::vector<HostDevice> devices;
  for (int i = 0; i < ::Pa_GetDeviceCount(); ++i) {
    const PaDeviceInfo* const info = ::Pa_GetDeviceInfo(i);
    if (info == nullptr) continue;
    devices.push_back({i, info->name, info->maxInputChannels > 0, info->maxOutputChannels > 0});
  }
  return devices;
}

bool DeviceTakesRate(int device, SoundDirection direction, std::uint32_t rateHz) {
  const PaStreamParameters parameters = Parameters(device);
  const bool isIn = direction == SoundDirection::kIn;
  return ::Pa_IsFormatSupported(isIn ? &parameters : nullptr, isIn ? nullptr : &parameters,
                                rateHz) == paFormatIsSupported;
}

struct PortAudioStream::Parts {
  PaStream* stream = nullptr;
  std::shared_ptr<StreamSink> sink;
};

PortAudioStream::PortAudioStream(std::unique_ptr<Parts> parts) : parts_(std::move(parts)) {}

PortAudioStream::~PortAudioStream() { ::Pa_CloseStream(parts_->stream); }

std::unique_ptr<PortAudioStream> PortAudioStream::Open(int device, SoundDirection direction,
                                                       std::uint32_t rateHz,
                                                       std::shared_ptr<StreamSink> sink) {
  auto parts = std::make_unique<Parts>();
  parts->sink = std::move(sink);
  const PaStreamParameters parameters = Parameters(device);
  const bool isIn = direction == SoundDirection::kIn;
  ::PaAlsa_SetNumPeriods(kPeriods);
  // The samples are never dithered or clipped: they arrive as they were sent.
  const PaError error = ::Pa_OpenStream(
      &parts->stream, isIn ? &parameters : nullptr, isIn ? nullptr : &parameters, rateHz,
      paFramesPerBufferUnspecified, paClipOff | paDitherOff, Callback, parts->sink.get());
  if (error != paNoError) return nullptr;
  ::Pa_SetStreamFinishedCallback(parts->stream, Finished);
  return std::unique_ptr<PortAudioStream>(new PortAudioStream(std::move(parts)));
}

bool PortAudioStream::Start() { return ::Pa_StartStream(parts_->stream) == paNoError; }

bool PortAudioStream::Abort() {
  const PaError error = ::Pa_AbortStream(parts_->stream);
  return error == paNoError || error == paStreamIsStopped;
}

}  // namespace cantorix
