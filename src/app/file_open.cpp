// file_open.cpp - the types of recording, in the order of the dialog.
#include "app/file_open.h"

#include "platform/prompts.h"

namespace cantorix {

std::string OpenFilter() {
  return "Cantorix(PC) files (*.qrv)|*.qrv|"
         "Cantorix(Mac) files (*.qrv; *.*)|*.qrv; *.*|"
         "Datalyn files (*.pmf)|*.pmf|"
         "Wave files (*.wav)|*.wav|"
         "CSL files (*.NSP)|*.NSP|"
         "NIST(LDC) files (*.wav; *.sph; *.sp1; *.sp2)|*.wav; *.sph; *.sp1; *.sp2|"
         "NIST(LDC) files (*.*)|*.*|"
         "XWAVE files (*.d)|*.d|"
         "ESPS(xwave) files (*.*)|*.*|"
         "SUN au files (*.au)|*.au|"
         "AIFF files (*.aiff; *.*)|*.aiff; *.*|"
         "ASCII files (*.*)|*.*|"
         "Generic files (*.*)|*.*|"
         // What came later stands behind, so that every type keeps its number.
         "FLAC files (*.flac)|*.flac|"
         "Ogg files (*.ogg; *.oga; *.opus)|*.ogg; *.oga; *.opus|"
         "MP3 files (*.mp3; *.mp2)|*.mp3; *.mp2|"
         "CAF files (*.caf)|*.caf|"
         "W64 and RF64 files (*.w64; *.rf64; *.wav)|*.w64; *.rf64; *.wav|"
         "AVR files (*.avr)|*.avr|"
         "All recordings|*.qrv; *.pmf; *.wav; *.nsp; *.sph; *.sp1; *.sp2; *.nist; *.d; *.sd; *.au; "
         "*.snd; *.aif; *.aiff; *.aifc; *.flac; *.ogg; *.oga; *.opus; *.mp3; *.mp2; *.caf; *.w64; "
         "*.rf64; *.avr|";
}

std::optional<std::string> ChooseRecording(Application& application) {
  FileRequest request;
  request.title = "Open";
  request.filter = OpenFilter();
  request.filterIndex = application.lastFilterIndex;
  request.hideReadOnly = true;
  request.fileMustExist = true;
  const auto choice = application.prompts().ChooseFileToOpen(request);
  if (!choice) return std::nullopt;
  application.lastFilterIndex = choice->filterIndex;
  return choice->path;
}

}  // namespace cantorix
