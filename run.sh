#!/usr/bin/env bash
# Builds Cantorix and opens the sample recording, or FILE, in it: ./run.sh [FILE...]
# Installs what is missing (Debian packages) and builds the release programs first. Without a
# display it measures the recordings instead, prints pitch and intensity, and keeps the whole tables
# and pictures in out/.
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
for file in "$@"; do
  [ -r "$file" ] || { echo "run.sh: $file: no such file, or not readable" >&2; exit 1; }
done

"$here/tools/setup.sh" build desktop
(
  cd "$here"
  [ -f build/release/build.ninja ] || cmake --preset release >/dev/null
  cmake --build --preset release --target cantorix cantorix-batch | tail -n 1
)
desktop=$here/build/release/src/desktop/cantorix
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  [ $# -gt 0 ] || set -- "$here/samples/vowels.qrv"
  mapfile -t files < <(realpath -- "$@")
  # The folder of the first start keeps the configuration and the temporary files.
  home=${XDG_DATA_HOME:-$HOME/.local/share}/cantorix
  mkdir -p "$home"
  ln -sfn "$here/docs/manual" "$home/Manual"
  cd "$home"
  exec "$desktop" "${files[@]}"
fi

batch=$here/build/release/src/batch/cantorix-batch
out=$here/out
mkdir -p "$out"

# measure FILE: prints every tenth row, keeps the whole tables.
measure() {
  local file=$1 name verb picture
  name=$(basename "${file%.*}")
  echo
  "$batch" info "$file"
  for verb in pitch intensity; do
    "$batch" "$verb" "$file" -o "$out/$name.$verb.tsv"
    echo
    awk 'NR % 10 == 1' "$out/$name.$verb.tsv"
  done
  for picture in main pitch spectrum spectrogram; do
    "$desktop" --picture "$picture" "$out/$name.$picture.png" "$file"
  done
  echo
  echo "Whole tables: $out/$name.pitch.tsv, $out/$name.intensity.tsv"
  echo "Pictures: $out/$name.{main,pitch,spectrum,spectrogram}.png"
}

measure "$here/samples/vowels.qrv"
for file in "$@"; do measure "$file"; done
