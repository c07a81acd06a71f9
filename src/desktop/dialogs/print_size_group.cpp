// print_size_group.cpp - width, height and unit as one group of fields.
#include "desktop/dialogs/print_size_group.h"

#include <QAbstractButton>
#include <QButtonGroup>

#include "desktop/dialogs/number_field.h"

namespace cantorix {

void PrintSizeGroup::Fill(const PrintSize& size) const {
  width->SetValue(size.width);
  height->SetValue(size.height);
  if (unit != nullptr) unit->button(size.unit != 0 ? 1 : 0)->setChecked(true);
}

PrintSize PrintSizeGroup::Entered() const {
  return {width->Value(), height->Value(), unit == nullptr ? 0 : unit->checkedId()};
}

}  // namespace cantorix
