// application.cpp - putting the application's parts together.
#include "app/application.h"

namespace cantorix {

Application::Application(const ApplicationServices& services)
    : host{services.prompts, services.progress, services.memory, {}, {}},
      recentFiles(services.profile),
      profile_(services.profile) {
  host.workers = &workers;
  host.opensApart = true;
  host.rememberFile = [this](const std::string& path) { recentFiles.Add(path); };
}

}  // namespace cantorix
