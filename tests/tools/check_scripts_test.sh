#!/usr/bin/env bash
# Puts one file at a time into an otherwise empty tree and looks whether the checks of the tools
# folder refuse it. Usage: check_scripts_test.sh TOOLS_FOLDER
set -u
tools=$1
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
failures=0

# expect CHECK ok|refused FILE TEXT: the verdict on a tree that holds only FILE with TEXT.
expect() {
  local check=$1 wanted=$2 file=$3 text=$4 verdict=refused output
  rm -rf "${tree:?}"/*
  mkdir -p "$tree/$(dirname "$file")"
  printf '%s\n' "$text" >"$tree/$file"
  output=$("$tools/check_$check.sh" "$tree" 2>&1) && verdict=ok
  # A refusal names the file: anything else is a script that fell over.
  if [ "$verdict" = refused ] && [[ $output != "$file:"* ]]; then verdict="broken ($output)"; fi
  if [ "$verdict" != "$wanted" ]; then
    echo "$check: $file with <${text:0:60}>: $verdict, wanted $wanted"
    failures=$((failures + 1))
  fi
}

while IFS='|' read -r wanted file text; do
  expect includes "$wanted" "$file" "$text"
done <<'ROWS'
ok|src/analysis/fft.cpp|#include "settings/settings.h"
ok|src/analysis/fft.cpp|#include "analysis/fft.h"
refused|src/analysis/fft.cpp|#include "document/channel.h"
refused|src/platform/file.cpp|#include "settings/settings.h"
refused|src/document/wav.cpp|#include "audio/recorder.h"
refused|src/audio/recorder.cpp|#include "document/channel.h"
ok|src/mainview/view.cpp|#include "audio/recorder.h"
refused|src/mainview/view.cpp|#include "analysisview/axes.h"
refused|src/batch/main.cpp|#include "desktop/frame.h"
refused|src/desktop/frame.cpp|#include "batch/options.h"
refused|src/document/wav.cpp|#include "wav.h"
refused|src/document/wav.cpp|#include "synth/vowel.h"
refused|src/extras/x.cpp|int x;
ok|src/desktop/frame.cpp|#include <QMainWindow>
ok|tests/desktop/frame_test.cpp|#include <QTest>
refused|src/app/start.cpp|#include <QString>
refused|tests/app/start_test.cpp|# include <QtCore/QString>
ok|src/audio/adapter.cpp|#include <portaudio.h>
refused|src/desktop/adapter.cpp|#include <portaudio.h>
ok|src/document/foreign.cpp|#include <sndfile.h>
refused|src/batch/info.cpp|#include <sndfile.h>
ok|src/analysis/fft.cpp|// #include "document/channel.h"
ROWS

# The library behind the adapter has one door only.
rm -rf "${tree:?}"/*
mkdir -p "$tree/src/audio"
echo '#include <portaudio.h>' | tee "$tree/src/audio/a.cpp" >"$tree/src/audio/b.cpp"
if "$tools/check_includes.sh" "$tree" >/dev/null; then
  echo "includes: two files with PortAudio: ok, wanted refused"
  failures=$((failures + 1))
fi

lines() { yes "$1" | head -n "$2"; }
expect sizes ok src/app/a.cpp "$(lines 'int x;' 400)"
expect sizes refused src/app/a.cpp "$(lines 'int x;' 401)"
expect sizes ok src/app/a.cpp "// a.cpp - long because it is."$'\n'"$(lines 'int x;' 500)"
expect sizes refused src/app/a.cpp "int y;"$'\n'"// long because"$'\n'"$(lines 'int x;' 500)"
expect sizes refused src/app/a.cpp "// a.cpp - long because it is."$'\n'"$(lines 'int x;' 600)"
expect sizes ok src/app/a.cpp "// a.cpp - one long table."$'\n'"$(lines '{1, 2},' 900)"

[ "$failures" -eq 0 ]
