// pulse_server.h - a sound server of a test's own, without a sound card: what is played into its
// one sink comes back from its one source.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string>

#include "support/sound_samples.h"
#include "support/temporary_folder.h"

namespace cantorix {

class PulseServer {
 public:
  // Makes the sound libraries of this process look for this server, and for no other.
  PulseServer() {
    ::setenv("HOME", folder_.path().c_str(), 1);
    ::setenv("XDG_RUNTIME_DIR", folder_.path().c_str(), 1);
    ::setenv("PULSE_SERVER", ("unix:" + Socket()).c_str(), 1);
    ::setenv("PULSE_SINK", "loop", 1);
    ::setenv("PULSE_SOURCE", "loop.monitor", 1);
  }
  ~PulseServer() { Kill(); }
  PulseServer(const PulseServer&) = delete;
  PulseServer& operator=(const PulseServer&) = delete;

  // False when it did not come up.
  bool Start(std::uint32_t rateHz) {
    const std::string sink = "module-null-sink sink_name=loop rate=" + std::to_string(rateHz) +
                             " format=s16le channels=1 channel_map=mono norewinds=1";
    const std::string protocol =
        "module-native-protocol-unix socket=" + Socket() + " auth-anonymous=1";
    process_ = ::fork();
    if (process_ == 0) {
      const int nowhere = ::open("/dev/null", O_RDWR);
      for (int fd = 0; fd < 3; ++fd) ::dup2(nowhere, fd);
      ::execlp("pulseaudio", "pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no",
               "--exit-idle-time=-1", "-L", sink.c_str(), "-L", protocol.c_str(), nullptr);
      ::_exit(127);
    }
    return Eventually([this] { return Connects(); });
  }
  // Takes its sink and source away.
  bool Unload() const { return std::system("pactl unload-module module-null-sink") == 0; }
  void Signal(int signal) const { ::kill(process_, signal); }
  void Kill() {
    if (process_ <= 0) return;
    Signal(SIGKILL);
    ::waitpid(process_, nullptr, 0);
    process_ = 0;
  }

 private:
  std::string Socket() const { return folder_ / "pulse.sock"; }
  bool Connects() const {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    Socket().copy(address.sun_path, sizeof address.sun_path - 1);
    const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    const bool connected =
        ::connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    ::close(fd);
    return connected;
  }

  TemporaryFolder folder_;
  pid_t process_ = 0;
};

}  // namespace cantorix
