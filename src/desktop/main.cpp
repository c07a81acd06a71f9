// main.cpp - cantorix: cantorix [FILE...], or cantorix --picture ... for a picture without a
// display
#include <QApplication>
#include <QLocale>
#include <QPixmapCache>
#include <QSessionManager>
#include <clocale>
#include <cstdio>
#include <iostream>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "audio/portaudio/portaudio_host.h"
#include "desktop/paint/words.h"
#include "desktop/picture_command.h"
#include "desktop/program.h"
#include "desktop/qt_messages.h"
#include "desktop/start_arguments.h"
#include "desktop/steady_icons.h"

namespace {

// No window is opened, so none of the user's screens is asked for.
int DrawPicture(int argc, char** argv, const std::vector<std::string>& arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  cantorix::DropQtRemarks();
  QGuiApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  return cantorix::RunPictureCommand(arguments);
}

// Styles keep what they drew of buttons, boxes and icons, each size and state by itself. A screen
// of them takes less than 1 MB; Qt lets 10 MB pile up, which take hours to come together.
void BoundDrawnWidgets() {
  constexpr double kKilobytes = 2048.0;
  const double scale = qApp->devicePixelRatio();  // the greatest of all screens
  QPixmapCache::setCacheLimit(static_cast<int>(kKilobytes * scale * scale));
}

std::unique_ptr<QApplication> FindDisplay(int& argc, char** argv) {
  const cantorix::DisplaySearch search;
  return std::make_unique<QApplication>(argc, argv);
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> given(argv + 1, argv + argc);
  if (const auto answer = cantorix::AnswerWithoutWindow(given)) {
    std::cout << *answer;
    return 0;
  }
  if (cantorix::AsksForPicture(given)) return DrawPicture(argc, argv, given);
  // It sets variables of the environment, so it comes before everything that has threads.
  cantorix::PortAudioHost sound;
  const auto application = FindDisplay(argc, argv);
  QApplication::setStyle(new cantorix::SteadyIcons);
  BoundDrawnWidgets();
  // Qt has taken its own options out of the arguments.
  std::vector<std::string> files(argv + 1, argv + argc);
  const std::string language = cantorix::TakeLanguage(files);
  cantorix::UseLanguage(language.empty() ? QLocale::system().uiLanguages()
                                         : QStringList(QString::fromStdString(language)));
  // Numbers have a decimal point, whatever the user's locale.
  QLocale::setDefault(QLocale::c());
  std::setlocale(LC_NUMERIC, "C");
  QApplication::setApplicationName(QStringLiteral("Cantorix"));
  QApplication::setApplicationVersion(QStringLiteral(CANTORIX_VERSION));

  cantorix::Program program(sound);
  try {
    if (!program.Start(files)) return 1;
  } catch (const std::bad_alloc&) {
    std::fputs("cantorix: There is not enough memory.\n", stderr);
    return 1;
  }
  QObject::connect(application.get(), &QGuiApplication::commitDataRequest,
                   [&program](QSessionManager& session) {
                     const bool mayAsk = session.allowsInteraction();
                     if (!program.EndSession(mayAsk)) session.cancel();
                     if (mayAsk) session.release();
                   });
  return QApplication::exec();
}
