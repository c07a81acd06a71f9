#!/usr/bin/env bash
# Builds Cantorix and measures a recording: ./run.sh [FILE]
# Installs what is missing (Debian packages), builds the release programs, measures the sample
# recording and FILE, and prints pitch and intensity. The whole tables go to out/.
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
for file in "$@"; do
  [ -r "$file" ] || { echo "run.sh: $file: no such file, or not readable" >&2; exit 1; }
done

"$here/tools/setup.sh" build
(
  cd "$here"
  [ -f build/release/build.ninja ] || cmake --preset release >/dev/null
  cmake --build --preset release --target cantorix-batch | tail -n 1
)
batch=$here/build/release/src/batch/cantorix-batch
out=$here/out
mkdir -p "$out"

# measure FILE: prints every tenth row, keeps the whole tables.
measure() {
  local file=$1 name verb
  name=$(basename "${file%.*}")
  echo
  "$batch" info "$file"
  for verb in pitch intensity; do
    "$batch" "$verb" "$file" -o "$out/$name.$verb.tsv"
    echo
    awk 'NR % 10 == 1' "$out/$name.$verb.tsv"
  done
  echo
  echo "Whole tables: $out/$name.pitch.tsv, $out/$name.intensity.tsv"
}

measure "$here/samples/vowels.qrv"
for file in "$@"; do measure "$file"; done
