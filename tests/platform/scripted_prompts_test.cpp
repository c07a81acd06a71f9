// scripted_prompts_test.cpp - the scripted user notices what a test forgot to expect.
#include "support/scripted_prompts.h"

#include <gtest/gtest-spi.h>

namespace cantorix {
namespace {

TEST(ScriptedPrompts, FailTheTestOnWhatItDidNotExpect) {
  EXPECT_NONFATAL_FAILURE(ScriptedPrompts().Message("surprise"), "unexpected prompt: message");
  EXPECT_NONFATAL_FAILURE(ScriptedPrompts().WillCancel(), "1 scripted answers were never asked");
  ScriptedPrompts prompts;
  EXPECT_NONFATAL_FAILURE(prompts.ChooseFolder("/"), "no answer scripted for: folder: /");
  prompts.WillChooseChannel(1);
  EXPECT_NONFATAL_FAILURE(prompts.Ask("Save?", Buttons::kYesNoCancel), "of another kind");
  prompts.TakeTranscript();
}

}  // namespace
}  // namespace cantorix
