#!/usr/bin/env bash
# Looks whether the programs speak to a network: tools/network.sh [FOLDER_OF_BUILD]
# Under strace, on a virtual display: the batch program measures and converts; the desktop starts,
# opens a recording, plays, saves and asks for the help. Fails on a socket that is not one of this
# machine (AF_UNIX), on a library of a network among those linked, and on a call for one in the
# programs themselves; tells which sockets of the machine were connected to.
set -euo pipefail

here=$(cd "$(dirname "$0")/.." && pwd)
build=$(cd "${1:-$here/build/release}" && pwd)
"$here/tools/setup.sh" reliability
batch=$build/src/batch/cantorix-batch desktop=$build/src/desktop/cantorix
. "$here/tools/own_display.sh"

for program in "$batch" "$desktop"; do
  ldd "$program" | grep -E 'libQt6Network|libcurl|libssl|libgnutls|libsoup' && { echo "network: $program links that"; exit 1; }
  nm -D --undefined-only "$program" |
    grep -wE 'socket|connect|sendto|getaddrinfo|gethostbyname' && { echo "network: $program calls that"; exit 1; }
done

cp "$here/samples/vowels.qrv" "$work/talk.qrv"
export TMPDIR=$work
show_display 1280x800

trace() { strace -f -qq -e trace=%network -o "$work/$1" "${@:2}"; }
cd "$work"
trace batch.1 "$batch" measure talk.qrv --from 500 --to 900 >/dev/null
trace batch.2 "$batch" convert talk.qrv talk.wav
trace desktop "$desktop" -style fusion talk.qrv 2>/dev/null &
started+=($!)
until xdotool search --onlyvisible --name 'talk.qrv' >/dev/null 2>&1; do sleep 0.2; done
window=$(xdotool search --onlyvisible --name 'talk.qrv' | head -n 1)
sleep 2
for key in ctrl+a ctrl+c Home ctrl+v ctrl+s ctrl+l ctrl+g ctrl+y alt+h Return Escape; do
  xdotool windowfocus "$window" key "$key"
  sleep 1
done
cmp -s talk.qrv "$here/samples/vowels.qrv" && { echo "network: nothing was saved"; exit 1; }

others=$(grep -hE 'socket\(AF_|sa_family=AF_' batch.* desktop | grep -vE 'AF_UNIX|AF_UNSPEC' || true)
echo "network: sockets connected to:"
grep -hoE 'connect\([0-9]+, \{sa_family=AF_UNIX, sun_path=@?"[^"]*"' batch.* desktop |
  sed -E "s/.*sun_path=//; s#$work#WORK#" | sort | uniq -c
[ -s desktop ] || { echo "network: nothing was traced"; exit 1; }
[ -z "$others" ] || { echo "network: FAILED"; echo "$others"; exit 1; }
echo "network: none but these"
