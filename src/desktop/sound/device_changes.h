// device_changes.h - notices that sound devices may have come or gone: a card, a headset, a sound
// server that was started.
#pragma once

#include <QFileSystemWatcher>
#include <QStringList>
#include <QTimer>
#include <functional>

namespace cantorix {

// Where cards and the socket of the sound server appear.
QStringList SoundFolders();

class DeviceChanges : public QObject {
 public:
  // Calls `changed` once when nothing has happened in the folders for half a second after a change.
  // Folders that do not exist are looked for whenever it is turned on.
  DeviceChanges(QStringList folders, std::function<void()> changed);

  // Off at first.
  void Watch(bool on);

 private:
  QStringList folders_;
  QFileSystemWatcher watcher_;
  QTimer settled_;
};

}  // namespace cantorix
