#!/usr/bin/env bash
# Installs the Debian packages that the given purposes need, and only those that are absent.
# usage: tools/setup.sh PURPOSE...: build desktop tests python checks package pictures acceptance
#        reliability manual bench peers fixtures fuzz
set -euo pipefail

packages=()
for purpose in "$@"; do
  case $purpose in
    build)
      packages+=(g++ cmake ninja-build libcli11-dev libsndfile1-dev)
      packages+=(libpugixml-dev nlohmann-json3-dev)
      ;;
    desktop)
      packages+=(qt6-base-dev qt6-svg-dev qt6-l10n-tools fonts-dejavu-core)
      packages+=(portaudio19-dev libportaudio2 libasound2-plugins)
      ;;
    tests) packages+=(python3 libgtest-dev libgmock-dev alsa-utils pulseaudio pulseaudio-utils) ;;
    python)
      packages+=(pybind11-dev python3-dev python3-venv python3-numpy python3-pytest python3-hypothesis mypy)
      packages+=(python3-pandas python3-matplotlib python3-dask python3-distributed)
      ;;
    checks) packages+=(clang-format clang-tidy) ;;
    package) packages+=(dpkg-dev file gzip lintian desktop-file-utils appstream shared-mime-info) ;;
    pictures) packages+=(xvfb openbox xdotool imagemagick pulseaudio pulseaudio-utils) ;;
    reliability) packages+=(python3 strace xvfb xdotool) ;;
    acceptance)
      packages+=(xvfb openbox xdotool imagemagick at-spi2-core gir1.2-atspi-2.0 dbus-daemon alsa-utils)
      packages+=(python3 python3-gi python3-numpy python3-pil)
      ;;
    manual) packages+=(python3 chromium) ;;
    peers)
      packages+=(python3 sox ffmpeg praat speech-tools tcl-snack asterisk-core-sounds-en-wav)
      ;;
    bench) packages+=(libbenchmark-dev libfftw3-dev pkg-config libgtest-dev) ;;
    fixtures)
      packages+=(python3 sox libsox-fmt-mp3 ffmpeg flac praat speech-tools tcl-snack sndfile-programs)
      ;;
    fuzz) packages+=(clang libclang-rt-14-dev llvm python3) ;;
    *) echo "setup.sh: unknown purpose: $purpose" >&2; exit 2 ;;
  esac
done

missing=()
for package in "${packages[@]}"; do
  status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
  [ "$status" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  if ! command -v sudo >/dev/null; then
    echo "These packages are missing: ${missing[*]}" >&2
    echo "Install them as root (apt-get install ${missing[*]}) and start again." >&2
    exit 1
  fi
  as_root=(sudo)
fi
echo "Installing: ${missing[*]}" >&2
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -q >&2
"${as_root[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}" >&2
