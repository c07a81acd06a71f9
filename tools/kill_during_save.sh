#!/bin/bash
# Kills a saving program N times (200 unless told) at a random moment and counts the damaged files.
# Usage: tools/kill_during_save.sh [N] [BUILD_FOLDER]; build the target save_trial first.
# Ends with 0 when every file was whole.
set -u
trials=${1:-200}
build=${2:-build/dev}
trial=$build/tests/document/save_trial
[ -x "$trial" ] || { echo "$trial is missing: build the target save_trial" >&2; exit 2; }

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export TMPDIR=$folder
file=$folder/saved/talk.qrv
mkdir "$folder/saved"

# The first save makes the file that all later ones replace.
"$trial" save "$file" & saver=$!
until [ -e "$file" ]; do sleep 0.05; done
kill -9 $saver; wait $saver 2>/dev/null

damaged=0
replaced=0
before=$(stat -c %i "$file")
for ((i = 0; i < trials; ++i)); do
  "$trial" save "$file" & saver=$!
  sleep "0.$(printf %03d $((RANDOM % 400 + 20)))"
  kill -9 $saver 2>/dev/null; wait $saver 2>/dev/null
  "$trial" check "$file" || { damaged=$((damaged + 1)); echo "trial $i: damaged"; }
  after=$(stat -c %i "$file")
  [ "$after" = "$before" ] || replaced=$((replaced + 1))
  before=$after
done
left=$(find "$folder/saved" -name '.cantorix-save-*' | wc -l)
echo "$trials kills, $damaged damaged, file replaced in $replaced, $left hidden files left"
[ "$damaged" = 0 ] && [ "$left" -le 1 ]
