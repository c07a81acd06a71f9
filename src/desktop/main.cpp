// main.cpp - cantorix: cantorix [FILE...]
#include <QApplication>
#include <QLocale>
#include <clocale>
#include <string>
#include <vector>

#include "desktop/program.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  // Numbers have a decimal point, whatever the user's locale.
  QLocale::setDefault(QLocale::c());
  std::setlocale(LC_NUMERIC, "C");
  QApplication::setApplicationName(QStringLiteral("Cantorix"));
  QApplication::setApplicationVersion(QStringLiteral(CANTORIX_VERSION));

  cantorix::Program program;
  // Qt has taken its own options out of the arguments.
  if (!program.Start(std::vector<std::string>(argv + 1, argv + argc))) return 1;
  return QApplication::exec();
}
