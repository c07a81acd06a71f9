// channel_documents_test.cpp - the channels of one file as documents beside each other.
#include <fstream>

#include "desktop/desktop_fixture.h"
#include "document/wav_fixture.h"

namespace cantorix {
namespace {

using ChannelDocuments = DesktopTest;

TEST_F(ChannelDocuments, OpenBesideEachOtherUnderTheirNames) {
  const auto bytes =
      fixture::Wav({.channels = 2}, fixture::Samples16({1, -1, 2, -2, 3, -3, 4, -4}));
  const std::string path = folder.path() + "/speech.wav";
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
  struct Row {
    int channel;
    const char* title;
    std::size_t documents;
  };
  const Row rows[] = {{1, "speech.wav::Channel2", 1},
                      {0, "speech.wav::Channel1", 2},
                      {1, "speech.wav::Channel2", 2}};  // again: the window that is open
  for (const Row& row : rows) {
    prompts.WillChooseChannel(row.channel);
    CSonadexView& view = Open(path);
    EXPECT_EQ(Typed(frame.activeFrame()->windowTitle()), std::string(row.title) + "[*]");
    EXPECT_EQ(frame.documents().All().size(), row.documents) << row.title;
    std::int16_t sample = 0;
    view.document().Samples().Read(2, {&sample, 1});
    EXPECT_EQ(sample, row.channel == 0 ? 3 : -3);
    Perform(Command::kViewLabels);
  }
  prompts.TakeTranscript();

  // A file of its own has its own name.
  prompts.WillChooseFile(folder.path() + "/right.qrv");
  Perform(Command::kSaveAs);
  EXPECT_EQ(Typed(frame.activeFrame()->windowTitle()), "right.qrv[*]");
  prompts.TakeTranscript();
}

}  // namespace
}  // namespace cantorix
