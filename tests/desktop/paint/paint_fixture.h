// paint_fixture.h - recordings, their views and results, and images to paint them on.
#pragma once

#include <QImage>
#include <QPainter>

#include "analysis/intensity.h"
#include "analysis/pitch.h"
#include "desktop/paint/paint_style.h"
#include "desktop/qt_text.h"
#include "document/label.h"
#include "mainview/document_waveform.h"
#include "mainview/view_fixture.h"
#include "settings/settings.h"
#include "support/samples.h"

namespace cantorix {

inline constexpr double kFixtureRateHz = 11025.0;

// A second of the sample recording: the end of a pause, an "a", a pause, the begin of an "o".
inline Samples Vowels() {
  TestHost host;
  CSonadexDoc document(host.host);
  EXPECT_TRUE(document.OnOpenDocument(SamplesDirectory() + "/vowels.qrv"));
  Samples samples(11025);
  document.Samples().Read(16537, samples);
  return samples;
}

inline QImage Canvas(PixelSize client, double pixelRatio = 1.0) {
  QImage image(static_cast<int>(client.width * pixelRatio),
               static_cast<int>(client.height * pixelRatio), QImage::Format_RGB32);
  image.setDevicePixelRatio(pixelRatio);
  image.fill(Qt::magenta);
  return image;
}

// A picture that paint(painter, style) makes in the light colours.
template <typename Paint>
QImage Painted(PixelSize client, const Paint& paint, double pixelRatio = 1.0) {
  QImage image = Canvas(client, pixelRatio);
  QPainter painter(&image);
  paint(painter, StyleOf(PaletteKind::kLight));
  return image;
}

// A view with a recording, two tiers of labels, pitch and intensity, at a size.
struct AnalysedRecording {
  AnalysedRecording(const Samples& samples, PixelSize client)
      : recording(world, samples, kFixtureRateHz), waveform(recording.document) {
    AddLabel(recording.document, 0, 200.0, "H*");
    AddLabel(recording.document, 1, 700.0, "\xc9\xaa\xcb\x90");  // IPA
    recording.channel().tiers[1].labels[0].flag = 1;
    AddLabel(recording.document, 0, 450.0, "red");
    Label& red = recording.channel().tiers[0].labels[1];
    red.colour = 0x2111d1U;  // red in the lowest byte
    red.alignment = kAlignRight;
    red.flag = 1;
    red.font.Set(-18, 700, true, false, "Arial");
    CChannel& channel = recording.channel();
    NoProgress progress;
    const SampleRange all{0.0, channel.totalLength};
    DocumentSettings& settings = recording.document.settings;
    channel.intensity = ComputeIntensity(recording.document.Samples(), all, kFixtureRateHz,
                                         settings.intensity, progress);
    recording.view.pitch =
        ComputePitch(recording.document.Samples(), all, kFixtureRateHz, settings.pitch, progress);
    recording.view.LayOut(client);
  }

  ViewWorld world;
  ViewedRecording recording;
  DocumentWaveform waveform;
};

}  // namespace cantorix
