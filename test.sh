#!/usr/bin/env bash
# Runs every test under the address and undefined behaviour sanitizers: ./test.sh
# Installs what is missing (Debian packages) and builds the dev preset first, and the Python module,
# which is tested without the sanitizers.
set -euo pipefail

cd "$(dirname "$0")"
tools/setup.sh build desktop tests python
[ -f build/dev/build.ninja ] || cmake --preset dev >/dev/null
cmake --build --preset dev
[ -f build/python/build.ninja ] || cmake --preset python >/dev/null
cmake --build --preset python
# One more than there are processors: the tests of sound begin first, and wait.
ctest --preset dev -j "$(($(nproc) + 1))"
