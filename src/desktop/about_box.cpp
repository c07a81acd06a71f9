// about_box.cpp - the texts of the box.
#include "desktop/about_box.h"

#include <QApplication>
#include <QMessageBox>

#include "desktop/paint/words.h"
#include "desktop/tool_icon.h"

namespace cantorix {

void ShowAboutBox(QWidget* parent) {
  QMessageBox box(parent);
  box.setWindowTitle(QStringLiteral("About Cantorix"));
  box.setIconPixmap(DrawnIcon(QStringLiteral("program")).pixmap(64, 64));
  box.setText(QStringLiteral("<b>Cantorix %1</b>").arg(QApplication::applicationVersion()));
  box.setInformativeText(
      Tr("A speech-analysis workstation for phoneticians and speech scientists.\n\n"
         "Built with Qt %1.")
          .arg(QString::fromLatin1(qVersion())));
  box.exec();
}

}  // namespace cantorix
