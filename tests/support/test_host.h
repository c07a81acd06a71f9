// test_host.h - the program around a document under test: scripted prompts, a progress window that
// may cancel, a memory limit, a program folder of its own. Documents leave no configuration file.
#pragma once

#include "document/document_host.h"
#include "support/cancelling_progress.h"
#include "support/fake_services.h"
#include "support/scripted_prompts.h"
#include "support/temporary_folder.h"

namespace cantorix {

struct TestHost {
  TestHost() { host.documentsWriteConfiguration = false; }

  ScriptedPrompts prompts;
  CancellingProgress progress;
  FakeMemoryProbe memory;
  TemporaryFolder folder;
  DocumentHost host{.prompts = prompts,
                    .progress = progress,
                    .memory = memory,
                    .programDirectory = folder.path(),
                    .application = {}};
};

}  // namespace cantorix
