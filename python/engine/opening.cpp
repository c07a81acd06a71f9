// opening.cpp - how recordings come to be, what they are, and how they are saved.
#include <pybind11/numpy.h>

#include <algorithm>

#include "arguments.h"
#include "bindings.h"
#include "document/native_file.h"
#include "document/wav_file.h"
#include "platform/abandon.h"
#include "platform/file_error.h"
#include "platform/numbers.h"
#include "platform/text.h"

namespace cantorix::python {
namespace {

using Samples = py::array_t<std::int16_t, py::array::c_style>;

std::shared_ptr<Recording> FromSamples(TemporaryHome& home, const Samples& samples, double rateHz,
                                       const Settings& settings) {
  auto recording = std::make_shared<Recording>(home.Folder(), OpenOptions{{}, {}, settings});
  SampleBlock block(samples.size());
  std::copy_n(samples.data(), samples.size(), block.samples().data());
  recording->Adopt(std::move(block), rateHz);
  return recording;
}

// A view of the block in memory, which lives as long as the recording does; of samples in a disk
// store a copy.
py::array SamplesOf(const std::shared_ptr<Recording>& self, double fromMs, double toMs) {
  const CChannel& channel = self->document().channel();
  const SampleSource& source = self->document().Samples();
  // The samples that a WAV file of the stretch would hold.
  const double from = channel.PointAtTime(fromMs).samples;
  const double length = channel.PointAtTime(toMs).samples - from;
  const std::int64_t start = std::clamp<std::int64_t>(Truncate(from), 0, source.length());
  const std::int64_t count = std::clamp<std::int64_t>(Truncate(length), 0, source.length() - start);
  py::array samples;
  if (self->document().samplesOnDisk()) {
    Samples copy(count);
    std::span<std::int16_t> out(copy.mutable_data(), static_cast<std::size_t>(count));
    self->Work([&](CSonadexDoc& document) { document.Samples().Read(start, out); });
    samples = std::move(copy);
  } else {
    samples = Samples(count, channel.samples.samples().data() + start, py::cast(self));
  }
  samples.attr("setflags")(py::arg("write") = false);
  return samples;
}

struct Place {
  MeasureOptions stretch;
  bool whole = true;
};

Place PlaceOf(const std::optional<double>& fromMs, const std::optional<double>& toMs) {
  Place place;
  place.stretch.fromMs = fromMs;
  place.stretch.toMs = toMs;
  place.whole = !fromMs && !toMs;
  return place;
}

void Write(Recording& self, const std::string& path, bool asWave, const Place& place) {
  Job job;
  job.options = place.stretch;
  self.Run(job, [&](CSonadexDoc& document) {
    const CChannel& channel = document.channel();
    Durability durability{};
    try {
      if (asWave) {
        const SampleRange range = StretchOf(place.stretch, channel);
        durability = ExportWave(document, path, place.whole ? std::nullopt : std::optional(range));
      } else {
        const NativeRange range{
            channel.PointAtTime(place.stretch.fromMs.value_or(0.0)),
            channel.PointAtTime(place.stretch.toMs.value_or(channel.totalDurationMs))};
        durability = SaveNative(document, path, place.whole ? std::nullopt : std::optional(range));
      }
    } catch (const SaveRefused& refusal) {
      throw FileError(std::string("Error in save operation. ") + refusal.what());
    } catch (const FileError& error) {
      throw FileError(CouldNotBeSaved(path, error.what()));
    }
    if (durability == Durability::kPerhapsNotYet) self.Say(SavedButPerhapsNotOnDisk(path));
    if (path == self.path()) self.StampFile();
  });
}

void RequireStretchIn(Recording& self, std::optional<double> fromMs, std::optional<double> toMs) {
  Job job;
  job.options = PlaceOf(fromMs, toMs).stretch;
  self.Run(job, [](CSonadexDoc&) {});
}

}  // namespace

void BindOpening(py::module_& module, RecordingClass& recording) {
  const auto home = std::make_shared<TemporaryHome>();
  module.def("open", [home](const std::string& path, std::optional<int> channel,
                            std::optional<GenericParameters> generic, const Settings& settings,
                            const py::object& progress) {
    auto opened =
        std::make_shared<Recording>(home->Folder(), OpenOptions{channel, generic, settings});
    opened->Open(path, progress);
    return opened;
  });
  module.def("from_samples",
             [home](const Samples& samples, double rateHz, const Settings& settings) {
               return FromSamples(*home, samples, rateHz, settings);
             });
  py::class_<GenericParameters>(module, "Generic")
      .def(py::init([](std::int32_t header, std::int32_t rateHz, bool sixteenBit, bool high,
                       bool binary) {
        return GenericParameters{header, rateHz, sixteenBit ? 1 : 0, high ? 1 : 0, binary ? 1 : 0};
      }));
  recording.def("samples", SamplesOf)
      .def("write",
           [](Recording& self, const std::string& path, bool asWave, std::optional<double> fromMs,
              std::optional<double> toMs) { Write(self, path, asWave, PlaceOf(fromMs, toMs)); })
      .def("require_stretch", RequireStretchIn)
      .def("settings", [](const Recording& self) { return Settings(self.settings()); })
      .def("info", [](const Recording& self) {
        const CSonadexDoc& document = self.document();
        const CChannel& channel = document.channel();
        py::dict info;
        info["rate_hz"] = channel.sampleRateHz;
        info["duration_ms"] = channel.totalDurationMs;
        info["sample_count"] = channel.sampleCount();
        info["on_disk"] = document.samplesOnDisk();
        info["format"] = document.formatName;
        info["encoding"] = document.codingName;
        info["channels"] = document.fileChannels;
        return info;
      });
}

}  // namespace cantorix::python
