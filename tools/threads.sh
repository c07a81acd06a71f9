#!/usr/bin/env bash
# Every test under the thread sanitizer: tools/threads.sh [PATTERN]; PATTERN chooses tests as ctest -R
# does. Reports from within Qt, which is not built for it, are left out by tools/qt.tsan.
set -euo pipefail

cd "$(dirname "$0")/.."
[ -f build/tsan/build.ninja ] || cmake --preset tsan >/dev/null
cmake --build --preset tsan
export TSAN_OPTIONS="suppressions=$PWD/tools/qt.tsan ignore_noninstrumented_modules=1"
ctest --preset tsan -R "${1:-.}"
