#!/usr/bin/env bash
# Builds the Python module under the address and undefined behaviour sanitizers and gives it to the
# tests that pass it anything: tools/sanitized_python.sh [EXAMPLES]
# EXAMPLES of each property, 2000 unless given. Leaks are not looked at: the interpreter keeps much.
set -euo pipefail

cd "$(dirname "$0")/.."
tools/setup.sh build python
cmake --preset python -B build/python-asan -DCMAKE_CXX_FLAGS="-O1 -g1" \
  -DCANTORIX_SANITIZERS=address,undefined >/dev/null
cmake --build build/python-asan --target cantorix_python
export ASAN_OPTIONS=detect_leaks=0:allocator_may_return_null=1:max_allocation_size_mb=4096
export LD_PRELOAD="$(g++ -print-file-name=libasan.so) $(g++ -print-file-name=libubsan.so)"
export PYTHONPATH=$PWD/build/python-asan/python PYTHONDONTWRITEBYTECODE=1
export CANTORIX_EXAMPLES=${1:-2000}
exec /usr/bin/python3 -m pytest -q -p no:cacheprovider \
  python/tests/test_anything.py python/tests/test_refusals.py
