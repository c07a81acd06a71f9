#!/usr/bin/env bash
# Runs the tests of the Python module and checks its types.
# Usage: run.sh FOLDER_WITH_THE_BUILT_PACKAGE [BATCH_PROGRAM]
set -euo pipefail
built=$1
root=$(cd "$(dirname "$0")/../.." && pwd)
if ! ls "$built"/cantorix/_engine*.so >/dev/null 2>&1; then
  echo "no module in $built: cmake --preset python && cmake --build --preset python"
  exit 77
fi
cd "$root"
export PYTHONPATH=$built CANTORIX_BATCH=${2:-} PYTHONDONTWRITEBYTECODE=1
/usr/bin/python3 -m pytest -q -p no:cacheprovider python/tests
cache=$(mktemp -d)
trap 'rm -rf "$cache"' EXIT
cd python
MYPYPATH=. mypy --config-file ../pyproject.toml --cache-dir "$cache" cantorix tests
