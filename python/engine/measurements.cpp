// measurements.cpp - the analyses: arguments in, arrays out.
#include <limits>

#include "analysis/intensity.h"
#include "arguments.h"
#include "arrays.h"
#include "bindings.h"
#include "platform/abandon.h"

namespace cantorix::python {
namespace {

using Task = std::function<void(CSonadexDoc&, const MeasureOptions&, const Remark&)>;

// Runs one measurement with its arguments.
void Measure(Recording& self, const char* name, const py::tuple& arguments, const Task& work) {
  const auto given = arguments[0].cast<py::dict>();
  const bool ownSettings = arguments[1].is_none();
  const py::object progress = arguments[2];
  const Settings& settings = ownSettings ? self.settings() : arguments[1].cast<const Settings&>();
  const Job job = JobFor(name, given, settings, progress);
  const Remark remark = [&self](const std::string& text) { self.Say(text); };
  self.Run(job, [&](CSonadexDoc& document) { work(document, job.options, remark); });
}

// The values of a result being copied for Python: an hour of them takes long enough to be
// interrupted.
class Copying {
 public:
  Copying(CSonadexDoc& document, std::int64_t count)
      : progress_(document.host().progress),
        scope_(progress_, "Copying...", static_cast<double>(count)) {}

  // Throws Abandoned after an interrupt.
  void Look(std::int64_t done) {
    if (progress_.Step(static_cast<double>(done))) throw Abandoned(AbandonReason::kCancelled);
  }
  // The same now and then.
  void Count(std::int64_t done) {
    if (done % kBetweenLooks == 0) Look(done);
  }

 private:
  static constexpr std::int64_t kBetweenLooks = 65536;

  Progress& progress_;
  ProgressScope scope_;
};

py::tuple Pitch(Recording& self, const py::tuple& arguments) {
  std::vector<double> times;
  std::vector<double> values;
  Measure(self, "pitch", arguments,
          [&](CSonadexDoc& document, const MeasureOptions& options, const Remark&) {
            const PitchResult result = MeasurePitch(document, options);
            const auto entries = result.entries();
            values.assign(entries.begin(), entries.end());
            const double msPerSample = document.channel().msPerSample();
            times.reserve(entries.size());
            for (std::int64_t i = 0; i < result.count(); ++i) {
              times.push_back(result.TimeMs(i, msPerSample));
            }
          });
  return py::make_tuple(ArrayOf(std::move(times)), ArrayOf(std::move(values)));
}

py::tuple Intensity(Recording& self, const py::tuple& arguments) {
  std::vector<double> times;
  std::vector<double> values;
  Measure(self, "intensity", arguments,
          [&](CSonadexDoc& document, const MeasureOptions& options, const Remark&) {
            const IntensityResult result = MeasureIntensity(document, options);
            const LevelTrack& track = result.IntensityTrack;
            const double msPerSample = document.channel().msPerSample();
            const std::int64_t count =
                options.perSample ? track.size() : std::ssize(track.levels());
            const double step = options.perSample ? 1.0 : track.stepSamples();
            times.reserve(static_cast<std::size_t>(count));
            values.reserve(static_cast<std::size_t>(count));
            Copying copying(document, count);
            for (std::int64_t i = 0; i < count; ++i) {
              copying.Count(i);
              times.push_back((result.range.start + static_cast<double>(i) * step) * msPerSample);
              values.push_back(options.perSample ? track[i]
                                                 : track.levels()[static_cast<std::size_t>(i)]);
            }
          });
  return py::make_tuple(ArrayOf(std::move(times)), ArrayOf(std::move(values)));
}

py::tuple SpectrumAt(Recording& self, const py::tuple& arguments) {
  Spectrum spectrum;
  std::vector<double> frequencies;
  Measure(self, "spectrum", arguments,
          [&](CSonadexDoc& document, const MeasureOptions& options, const Remark& remark) {
            CFFTLPCView view(document);
            MeasureSpectrum(document, options, remark, view);
            spectrum = view.spectrum();
            for (std::size_t j = 0; j < spectrum.fftDb.size(); ++j) {
              frequencies.push_back(spectrum.FrequencyHz(j));
            }
          });
  const auto listed = [](const auto& five) {
    return std::vector<double>(five.begin(), five.end());
  };
  return py::make_tuple(ArrayOf(std::move(frequencies)), ArrayOf(std::move(spectrum.fftDb)),
                        ArrayOf(std::move(spectrum.lpcDb)),
                        ArrayOf(listed(spectrum.formants.frequencyHz)),
                        ArrayOf(listed(spectrum.formants.bandwidthHz)));
}

// What a spectrogram with formants comes to as arrays; without levels, or without formants, theirs
// is empty.
struct Picture {
  std::vector<double> times, frequencies, levels, formants;
};

Picture PictureOf(const Spectrogram& spectrogram, CSonadexDoc& document) {
  const double msPerSample = document.channel().msPerSample();
  Picture picture;
  const auto columns = static_cast<std::size_t>(spectrogram.columns);
  if (spectrogram.levels)
    picture.levels.reserve(columns * static_cast<std::size_t>(spectrogram.rows));
  picture.formants.reserve(spectrogram.formants.size() * kFormants);
  Copying copying(document, spectrogram.columns);
  for (std::int64_t column = 0; column < spectrogram.columns; ++column) {
    copying.Look(column);
    picture.times.push_back(spectrogram.StartOf(column) * msPerSample);
    if (!spectrogram.levels) continue;
    const auto levels = spectrogram.Column(column);
    picture.levels.insert(picture.levels.end(), levels.begin(), levels.end());
  }
  for (int row = 0; row < spectrogram.rows; ++row) {
    picture.frequencies.push_back(spectrogram.FrequencyHz(row));
  }
  for (const FormantColumn& column : spectrogram.formants) {
    for (const std::uint16_t hz : column) {
      picture.formants.push_back(hz == kNoFormantHz ? std::numeric_limits<double>::quiet_NaN()
                                                    : static_cast<double>(hz));
    }
  }
  return picture;
}

py::array FormantArray(Picture& picture) {
  const auto rows = static_cast<py::ssize_t>(picture.formants.size() / kFormants);
  return ArrayOf(std::move(picture.formants), {rows, static_cast<py::ssize_t>(kFormants)});
}

py::tuple SpectrogramOf(Recording& self, const py::tuple& arguments) {
  Picture picture;
  Measure(self, "spectrogram", arguments,
          [&](CSonadexDoc& document, const MeasureOptions& options, const Remark& remark) {
            CSpectrogramView view(document);
            MeasureSpectrogram(document, options, remark, view);
            picture = PictureOf(view.spectrogram(), document);
          });
  const std::vector<py::ssize_t> shape{static_cast<py::ssize_t>(picture.times.size()),
                                       static_cast<py::ssize_t>(picture.frequencies.size())};
  const py::array formants = FormantArray(picture);
  return py::make_tuple(ArrayOf(std::move(picture.times)), ArrayOf(std::move(picture.frequencies)),
                        ArrayOf(std::move(picture.levels), shape), formants);
}

py::tuple Formants(Recording& self, const py::tuple& arguments) {
  Picture picture;
  Measure(self, "formants", arguments,
          [&](CSonadexDoc& document, const MeasureOptions& options, const Remark& remark) {
            CSpectrogramView view(document);
            MeasureFormants(document, options, remark, view);
            picture = PictureOf(view.spectrogram(), document);
          });
  const py::array formants = FormantArray(picture);
  return py::make_tuple(ArrayOf(std::move(picture.times)), formants);
}

}  // namespace

void BindMeasurements(RecordingClass& recording) {
  recording.def("pitch", Pitch)
      .def("intensity", Intensity)
      .def("spectrum", SpectrumAt)
      .def("spectrogram", SpectrogramOf)
      .def("formants", Formants);
}

}  // namespace cantorix::python
