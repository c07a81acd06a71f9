// label_fixture.h - the wide view with the tiers "words", 40 pixels high at the top, and "breaks"
// below it in use; "words" holds a label "one" at 2000 ms and "two" at 6000 ms.
#pragma once

#include <string>

#include "document/label.h"
#include "wide_view.h"

namespace cantorix {

inline constexpr int kWords = 1;
inline constexpr int kBreaks = 2;

class LabelTest : public WideViewTest {
 protected:
  LabelTest() {
    AddLabel(document, kWords, 2000.0, "one");
    AddLabel(document, kWords, 6000.0, "two");
    tier(kWords).tierWord = 40;
    tier(kBreaks).inUse = true;
    view.LayOut(kWideClient);
  }

  Tier& tier(int index) { return channel.tiers[static_cast<std::size_t>(index)]; }
  std::string Words() const { return LabelsOf(channel, kWords); }
};

}  // namespace cantorix
