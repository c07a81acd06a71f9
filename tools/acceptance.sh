#!/usr/bin/env bash
# Tries the windows of the desktop program (release preset) with keys and clicks, on displays of
# 1920x1080 and 1280x800: tools/acceptance.sh [OUT [POINT...]]
# Prints what was seen of each point and leaves pictures in OUT; fails when a point did not hold.
# tools/acceptance.sh OUT hour does the work of an hour of a student instead, with a picture of each
# step.
# CANTORIX_PALETTE=dark in the environment: on a dark desktop.
set -euo pipefail

here=$(cd "$(dirname "$0")/.." && pwd)
"$here/tools/setup.sh" acceptance
[ -x "$here/build/release/src/desktop/cantorix" ] ||
  { echo "acceptance: build the release preset first (target cantorix)" >&2; exit 2; }
out=$(realpath -m "${1:-$here/out/acceptance}")
[ $# -gt 0 ] && shift
script=points.py
[ "${1:-}" = hour ] && { script=hour.py; shift; }
failed=0
for size in 1920x1080 1280x800; do
  env -u DBUS_SESSION_BUS_ADDRESS dbus-run-session -- \
    /usr/bin/python3 "$here/tools/acceptance/$script" "$out/$size" "$size" "$@" \
    2> >(grep -v '^dbus-daemon' >&2) || failed=1
done
exit "$failed"
