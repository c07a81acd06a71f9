// app_fixture.h - an application in a folder of its own, with a scripted user and a fake profile.
#pragma once

#include <gmock/gmock.h>

#include <string>

#include "app/application.h"
#include "settings/config_file.h"
#include "settings/settings.h"
#include "support/cancelling_progress.h"
#include "support/fake_services.h"
#include "support/scripted_prompts.h"
#include "support/temporary_folder.h"

namespace cantorix {

class AppTest : public testing::Test {
 protected:
  std::string ConfigFile() const { return ConfigPath(folder.path()); }

  // Puts a configuration file into the program directory.
  void StoreConfiguration(const Settings& settings) {
    ASSERT_TRUE(WriteConfiguration(ConfigFile(), settings));
  }
  // What the program's configuration file holds; fails the test when there is no valid one.
  Settings StoredConfiguration() const {
    Settings settings;
    EXPECT_TRUE(DecodeRecord(ReadConfiguration(ConfigFile()), settings));
    return settings;
  }

  TemporaryFolder folder;
  FakeProfileStore profile;
  ScriptedPrompts prompts;
  CancellingProgress progress;
  FakeMemoryProbe memory;
  Application app{{profile, prompts, progress, memory}};
};

}  // namespace cantorix
