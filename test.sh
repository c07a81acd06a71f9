#!/usr/bin/env bash
# Runs every test under the address and undefined behaviour sanitizers: ./test.sh
# Installs what is missing (Debian packages) and builds the dev preset first.
set -euo pipefail

cd "$(dirname "$0")"
tools/setup.sh build desktop tests
[ -f build/dev/build.ninja ] || cmake --preset dev >/dev/null
cmake --build --preset dev
ctest --preset dev -j "$(nproc)"
