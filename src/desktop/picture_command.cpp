// picture_command.cpp - parses, opens, analyses, paints.
#include "desktop/picture_command.h"

#include <charconv>
#include <cmath>
#include <iostream>
#include <optional>

#include "desktop/paint/main_view_painter.h"
#include "desktop/paint/picture_export.h"
#include "desktop/paint/picture_layout.h"
#include "desktop/paint/pitch_painter.h"
#include "desktop/paint/spectrogram_image.h"
#include "desktop/paint/spectrogram_painter.h"
#include "desktop/paint/spectrum_painter.h"
#include "desktop/quiet_host.h"
#include "mainview/analysis_commands.h"
#include "mainview/document_waveform.h"
#include "mainview/view_commands.h"
#include "platform/abandon.h"
#include "platform/file_error.h"

namespace cantorix {
namespace {

constexpr int kMostPixels = 20000;  // of a side

struct Request {
  std::string kind, out, file;
  PixelSize size{1000, 600};
  double scale = 1.0;
  PaletteKind palette = PaletteKind::kLight;
  std::optional<AxisSelection> selection;  // ms
  std::optional<double> atMs;              // of the cursor, and of the spectrum's frame
};

// A number that is the whole of `text`.
template <typename Number>
std::optional<Number> Parsed(std::string_view text) {
  Number number{};
  const auto end = std::from_chars(text.data(), text.data() + text.size(), number);
  if (end.ec != std::errc{} || end.ptr != text.data() + text.size()) return std::nullopt;
  return number;
}

// Two numbers with `separator` between them.
template <typename Number>
std::optional<std::pair<Number, Number>> ParsedPair(std::string_view text, char separator) {
  const std::size_t at = text.find(separator);
  if (at == std::string_view::npos) return std::nullopt;
  const auto first = Parsed<Number>(text.substr(0, at));
  const auto second = Parsed<Number>(text.substr(at + 1));
  if (!first || !second) return std::nullopt;
  return std::pair(*first, *second);
}

bool TakeSize(Request& request, std::string_view text) {
  const auto size = ParsedPair<int>(text, 'x');
  if (!size || std::min(size->first, size->second) < 1 ||
      std::max(size->first, size->second) > kMostPixels) {
    return false;
  }
  request.size = {size->first, size->second};
  return true;
}

bool TakeSelection(Request& request, std::string_view text) {
  const auto span = ParsedPair<double>(text, ':');
  if (!span || !(span->first <= span->second)) return false;
  request.selection = AxisSelection{span->first, span->second};
  return true;
}

bool TakeTime(Request& request, std::string_view text) {
  request.atMs = Parsed<double>(text);
  return request.atMs && std::isfinite(*request.atMs);
}

bool TakeScale(Request& request, std::string_view text) {
  const auto scale = Parsed<double>(text);
  if (!scale || !(*scale >= 0.1 && *scale <= 8.0)) return false;
  request.scale = *scale;
  return true;
}

// An option and its value, which may be missing.
bool TakeOption(Request& request, std::string_view option, std::string_view value) {
  if (option == "--size") return TakeSize(request, value);
  if (option == "--scale") return TakeScale(request, value);
  if (option == "--at") return TakeTime(request, value);
  if (option == "--select") return TakeSelection(request, value);
  return false;
}

std::optional<Request> ParseRequest(std::span<const std::string> arguments) {
  Request request;
  std::vector<std::string> names;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    if (argument == "--picture") continue;
    if (argument == "--dark") {
      request.palette = PaletteKind::kDark;
    } else if (argument.starts_with("--")) {
      if (i + 1 == arguments.size() || !TakeOption(request, argument, arguments[i + 1])) return {};
      ++i;
    } else {
      names.push_back(argument);
    }
  }
  if (names.size() != 3 || !NamesPicture(names[1])) return {};
  request.kind = names[0];
  request.out = names[1];
  request.file = names[2];
  return request;
}

// The open recording with its view, selected and analysed as the picture wants it.
struct Recording {
  Recording(QuietHost& host, const Request& wanted)
      : document(host.host),
        waveform(document),
        view(document, host.Services()),
        request(wanted),
        style(StyleOf(wanted.palette)) {}

  void Export(const PaintPicture& paint) const {
    ExportPicture(request.out, QSize(request.size.width, request.size.height), request.scale,
                  paint);
  }

  CSonadexDoc document;
  DocumentWaveform waveform;
  CSonadexView view;
  const Request& request;
  PaintStyle style;
};

void DrawMain(Recording& recording) {
  AnalysePitch(recording.view, Stretch::kAll);
  const PictureLayout layout(recording.view, recording.request.size);
  const MainViewPicture picture{recording.view, recording.waveform.Pyramid()};
  recording.Export([&](QPainter& painter) { PaintMainView(painter, picture, recording.style); });
}

void DrawPitchWindow(Recording& recording) {
  PitchSettings& options = recording.document.settings.pitch;
  options.addAudio = options.addIntensity = options.addLabels = 1;
  AnalysePitch(recording.view, Stretch::kAll);
  const CChannel& channel = recording.view.channel();
  const PitchPicture picture{.document = recording.document,
                             .pitch = recording.view.pitch,
                             .waveform = &recording.waveform.Pyramid(),
                             .client = recording.request.size,
                             .startMs = 0.0,
                             .endMs = channel.totalDurationMs,
                             .cursorMs = recording.request.atMs,
                             .selection = recording.request.selection};
  recording.Export([&](QPainter& painter) { PaintPitch(painter, picture, recording.style); });
}

void DrawSpectrumWindow(Recording& recording) {
  const PixelRect plot = SpectrumLayout(recording.request.size).plot;
  const CChannel& channel = recording.view.channel();
  SpectrumPlace place{.position = channel.totalLength / 2.0, .selection = {}};
  if (recording.request.atMs) place.position = channel.cursor.samples;
  if (recording.request.selection) {
    place.selection = {channel.selectionStart.samples, channel.selectionEnd.samples};
  }
  CFFTLPCView view(recording.document);
  if (!view.AnalyseSpectrum(place, plot.right - plot.left)) {
    throw FileError("There is no spectrum to draw.");
  }
  const SpectrumPicture picture{view, recording.request.size, {}};
  recording.Export([&](QPainter& painter) { PaintSpectrum(painter, picture, recording.style); });
}

void DrawSpectrogramWindow(Recording& recording) {
  const CSonadexDoc& document = recording.document;
  const PixelRect plot = SpectrogramLayout(recording.request.size, document).plot;
  CSpectrogramView view(recording.document);
  const SpectrogramSize size{plot.right - plot.left, plot.bottom - plot.top, true};
  if (!view.ComputeSpectrogram({0.0, document.channel().totalLength}, size)) {
    throw FileError("There is no spectrogram to draw.");
  }
  if (document.settings.spectrogram.drawIntensity != 0) {
    AnalyseIntensity(recording.view, Stretch::kAll);
  }
  const QImage image = SpectrogramImage(
      view.spectrogram(), document.settings.spectrogram.dynamicRangeDb, ColorMap::kGrey);
  std::optional<SpectrogramCursor> cursor;
  if (recording.request.atMs) cursor = {*recording.request.atMs, 0.0};
  const SpectrogramPicture picture{view,
                                   image,
                                   &recording.waveform.Pyramid(),
                                   recording.request.size,
                                   cursor,
                                   recording.request.selection};
  recording.Export([&](QPainter& painter) { PaintSpectrogram(painter, picture, recording.style); });
}

struct Kind {
  std::string_view name;
  void (*draw)(Recording&);
};
constexpr Kind kKinds[] = {{"main", DrawMain},
                           {"pitch", DrawPitchWindow},
                           {"spectrum", DrawSpectrumWindow},
                           {"spectrogram", DrawSpectrogramWindow}};

int Report(const std::string& text) {
  std::cerr << "cantorix: " << text << '\n';
  return 1;
}

int Draw(const Request& request, const Kind& kind) {
  QuietHost host;
  Recording recording(host, request);
  if (!recording.document.OnOpenDocument(request.file)) {
    const OpenFailure& failure = recording.document.openFailure;
    if (failure.shown) return 1;
    return Report(CouldNotBeOpened(request.file, failure.reason));
  }
  try {
    recording.view.Begin(request.size);
    if (request.atMs) PlaceMarker(recording.view, *request.atMs);
    if (request.selection) {
      SelectSpan(recording.view, request.selection->start, request.selection->end);
    }
    kind.draw(recording);
  } catch (const FileError& error) {
    return Report(CouldNotBeSaved(request.out, error.what()));
  } catch (const Abandoned&) {
    return Report(request.file + ": the analysis was given up.");
  }
  return 0;
}

}  // namespace

bool AsksForPicture(std::span<const std::string> arguments) {
  return !arguments.empty() && arguments.front() == "--picture";
}

int RunPictureCommand(std::span<const std::string> arguments) {
  const auto request = ParseRequest(arguments);
  if (request) {
    for (const Kind& kind : kKinds) {
      if (kind.name == request->kind) return Draw(*request, kind);
    }
  }
  std::cerr << "usage: " << kPictureUsage;
  return 2;
}

}  // namespace cantorix
