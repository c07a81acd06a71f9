#!/usr/bin/env bash
# Lets every allocation and every call of the system fail, one by one, in saves, exports, edits,
# undo, opens, imports, a recording and the verbs of the batch program: tools/faults.sh [FILTER]
# FILTER is one of the test program, as 'Of/*batch*'. Built without sanitizers, so that the blocks of
# all libraries count; the sample that runs with every test has them.
set -euo pipefail

cd "$(dirname "$0")/.."
build=build/faults
cmake -S . -B $build -G Ninja -DCMAKE_BUILD_TYPE= -DCMAKE_CXX_FLAGS="-O1 -g1" -DCANTORIX_DESKTOP=OFF >/dev/null
cmake --build $build --target test_faults
CANTORIX_FAULTS=all $build/tests/faults/test_faults --gtest_brief=1 --gtest_filter="${1:-*}"
