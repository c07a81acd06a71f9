#!/usr/bin/env bash
# Makes the label files that the tests compare with, with the programs whose formats they are:
# tools/make_label_fixtures.sh [OUT]. Installs those. Look at what changed before you commit it.
set -euo pipefail

here=$(cd "$(dirname "$0")/.." && pwd)
"$here/tools/setup.sh" fixtures
out=$(realpath -m "${1:-$here/tests/labelfile/files}")
script=$(mktemp --suffix=.praat)
trap 'rm -f "$script"' EXIT
mkdir -p "$out"
cat >"$script" <<PRAAT
Text writing preferences: "UTF-8"
Create TextGrid: 0, 5.5, "words tones", "tones"
Insert boundary: 1, 0.25
Insert boundary: 1, 1.0000005
Insert boundary: 1, 2.75
Set interval text: 1, 2, "say ""hi"""
Set interval text: 1, 3, "été"
Set interval text: 1, 4, "two" + newline\$ + "lines"
Insert point: 2, 0.5, "H*"
Insert point: 2, 3.123456789, "L-"
Insert point: 2, 5.5, "%"
Save as text file: "$out/long_utf8.TextGrid"
Save as short text file: "$out/short_utf8.TextGrid"
Save as chronological text file: "$out/chronological.TextGrid"
Save as binary file: "$out/binary.TextGrid"
Text writing preferences: "UTF-16"
Save as text file: "$out/long_utf16.TextGrid"
Save as short text file: "$out/short_utf16.TextGrid"
Text writing preferences: "try ISO Latin-1, then UTF-16"
Save as text file: "$out/long_latin1.TextGrid"
PRAAT
praat --run "$script"
