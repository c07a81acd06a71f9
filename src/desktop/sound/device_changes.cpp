// device_changes.cpp - folders under watch, and the pause after a change.
#include "desktop/sound/device_changes.h"

#include <QFileInfo>
#include <utility>

namespace cantorix {
namespace {

constexpr int kSettledMs = 500;

}  // namespace

QStringList SoundFolders() {
  QStringList folders{QStringLiteral("/dev/snd")};
  const QString server = qEnvironmentVariable("PULSE_SERVER");
  const QString socket = server.section(QStringLiteral("unix:"), 1);
  if (!socket.isEmpty()) folders << QFileInfo(socket).path();
  const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
  if (!runtime.isEmpty()) folders << runtime + QStringLiteral("/pulse");
  return folders;
}

DeviceChanges::DeviceChanges(QStringList folders, std::function<void()> changed)
    : folders_(std::move(folders)) {
  settled_.setSingleShot(true);
  settled_.setInterval(kSettledMs);
  connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, [this] { settled_.start(); });
  connect(&settled_, &QTimer::timeout, this, std::move(changed));
}

void DeviceChanges::Watch(bool on) {
  if (!on) {
    settled_.stop();
    if (!watcher_.directories().isEmpty()) watcher_.removePaths(watcher_.directories());
    return;
  }
  for (const QString& folder : folders_) {
    if (!watcher_.directories().contains(folder) && QFileInfo(folder).isDir()) {
      watcher_.addPath(folder);
    }
  }
}

}  // namespace cantorix
