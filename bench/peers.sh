#!/usr/bin/env bash
# Times whole runs of the programs beside those of other programs for the same work, in turns.
# usage: bench/peers.sh [--rounds N] [--minutes N] [ROW...]
# Needs Debian; installs the other programs, builds the release preset, and prints a table.
set -euo pipefail

cd "$(dirname "$0")/.."
tools/setup.sh build desktop peers
[ -f build/release/build.ninja ] || cmake --preset release >/dev/null
cmake --build --preset release --target cantorix-batch cantorix
exec python3 bench/peers.py "$@"
