// about_box.h - the box that says what the program is.
#pragma once

class QWidget;

namespace cantorix {

void ShowAboutBox(QWidget* parent);

}  // namespace cantorix
