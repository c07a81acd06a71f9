#!/usr/bin/env bash
# Uses the desktop program at random: tools/soak.sh [MINUTES [SEED]]
# Keys, clicks, drags and commands go to the dev build (with its sanitizers) on a virtual display, or
# to the program that CANTORIX_SOAK_PROGRAM names. Fails on a report of a sanitizer, on a crash and
# when no window is left; prints the seed, and on a failure what was done last. At the end it tells
# memory (MB) and descriptors of each minute and start, for whoever looks for growth: that of the
# program in one start counts, and the sanitizers keep what is freed. The same seed does the same things, as fast as the machine is.
# As root the program runs as nobody, so that no dialog can harm a file of the machine.
set -euo pipefail

here=$(cd "$(dirname "$0")/.." && pwd)
minutes=${1:-10}
seed=${2:-$RANDOM}
RANDOM=$seed
program=${CANTORIX_SOAK_PROGRAM:-$here/build/dev/src/desktop/cantorix}
"$here/tools/setup.sh" pictures
[ -x "$program" ] || { echo "soak: build the dev preset first (target cantorix)" >&2; exit 2; }

work=$(mktemp -d)
started=()
finish() {
  for id in "${started[@]}"; do kill "$id" 2>/dev/null || true; done
  wait 2>/dev/null || true
  rm -rf "$work"
}
trap finish EXIT

mkdir -p "$work/home/openbox" "$work/run"
chmod 700 "$work/run"
cp "$here/samples/vowels.qrv" "$work/talk.qrv"
cp /usr/share/sounds/alsa/Front_Center.wav "$work/front.wav" 2>/dev/null || cp "$work/talk.qrv" "$work/front.wav"
# The main window has no frame, so that no click of chance can hide it; no key belongs to openbox.
cat >"$work/home/openbox/rc.xml" <<'XML'
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <keyboard/><mouse><context name="Client"><mousebind button="Left" action="Press">
    <action name="Focus"/><action name="Raise"/></mousebind></context></mouse>
  <applications><application type="normal"><decor>no</decor><maximized>yes</maximized></application></applications>
</openbox_config>
XML
as_user=()
if [ "$(id -u)" -eq 0 ]; then
  chown -R 65534:65534 "$work"
  chmod 711 "$work"
  as_user=(setpriv --reuid=65534 --regid=65534 --clear-groups)
fi

exec 3>"$work/display"
Xvfb -displayfd 3 -screen 0 1280x800x24 2>/dev/null &
started+=($!)
until [ -s "$work/display" ]; do sleep 0.1; done
export DISPLAY=:$(cat "$work/display") HOME=$work/home XDG_CONFIG_HOME=$work/home XDG_RUNTIME_DIR=$work/run
export ASAN_OPTIONS=detect_leaks=0:exitcode=86 UBSAN_OPTIONS=print_stacktrace=1
openbox 2>/dev/null &
started+=($!)
# What is played comes back to be recorded.
export PULSE_SERVER=unix:$work/run/pulse.sock PULSE_SINK=loop PULSE_SOURCE=loop.monitor
(cd "$work" && exec "${as_user[@]}" pulseaudio -n --daemonize=no --use-pid-file=no \
  --exit-idle-time=-1 --log-target=stderr --log-level=error \
  -L "module-native-protocol-unix socket=$work/run/pulse.sock auth-anonymous=1" \
  -L "module-null-sink sink_name=loop rate=16000 format=s16le channels=1 channel_map=mono" \
  2>/dev/null) &
started+=($!)
sleep 1

begin() {
  (cd "$work" && exec "${as_user[@]}" "$program" -style fusion talk.qrv front.wav 2>>"$work/errors") &
  running=$!
  started+=("$running")
  begun=$((begun + 1))
  for _ in {1..100}; do
    xdotool search --onlyvisible --class cantorix >/dev/null 2>&1 && return
    kill -0 "$running" 2>/dev/null || return 0
    sleep 0.2
  done
}

fail() {
  echo "soak: FAILED after $done_so_far actions, seed $seed: $1"
  echo "soak: the last actions were:"
  tail -n 15 "$work/actions"
  [ -s "$work/errors" ] && tail -n 80 "$work/errors"
  exit 1
}

pick() { local -n list=$1; picked=${list[RANDOM % ${#list[@]}]}; }
accelerators=(ctrl+z ctrl+x ctrl+c ctrl+v ctrl+a ctrl+b ctrl+e ctrl+q ctrl+w ctrl+f ctrl+g ctrl+h ctrl+l
  ctrl+d ctrl+m ctrl+n F5 ctrl+shift+m ctrl+shift+f ctrl+shift+a ctrl+shift+e ctrl+shift+c ctrl+shift+r
  ctrl+shift+w ctrl+s ctrl+o ctrl+p ctrl+r ctrl+y ctrl+u F6 shift+F6 ctrl+Tab)
keys=(Left Right Up Down Page_Up Page_Down Home End Return space Tab shift+Tab Delete BackSpace
  1 2 5 0 minus period a x Escape Escape Escape)
menus=(alt+f alt+e alt+v alt+z alt+g alt+r alt+a alt+t alt+l alt+o alt+w)

# One thing that a user may do, as arguments of xdotool.
act() {
  local x=$((RANDOM % 1280)) y=$((RANDOM % 800)) steps=() i
  case $((RANDOM % 12)) in
    0 | 1) pick accelerators; action+=(key "$picked") ;;
    2 | 3) pick keys; action+=(key "$picked") ;;
    4 | 5)
      pick menus
      action+=(key "$picked")
      for ((i = RANDOM % 12; i > 0; --i)); do steps+=(Down); done
      action+=(key "${steps[@]}" Return)
      ;;
    6 | 7) action+=(mousemove $x $y click 1) ;;
    8) action+=(mousemove $x $y click $((1 + RANDOM % 3))) ;;
    9 | 10) action+=(mousemove $x $y mousedown 1 mousemove $((RANDOM % 1280)) $y mousemove $((RANDOM % 1280)) $((y + RANDOM % 40)) mouseup 1) ;;
    11) action+=(mousemove $x $y keydown "$([ $((RANDOM % 2)) = 0 ] && echo ctrl || echo shift)" click $((4 + RANDOM % 2)) keyup ctrl keyup shift) ;;
  esac
  done_so_far=$((done_so_far + 1))
}

# A line for each minute: minute, start, megabytes in memory, open descriptors.
sample() {
  local minute=$((minutes - (ends - SECONDS + 59) / 60)) now
  [ "$minute" != "$sampled" ] || return 0
  sampled=$minute
  now=$(awk '/^VmRSS/ {print int($2 / 1024)}' "/proc/$running/status" 2>/dev/null) || return 0
  echo "$minute $begun $now $(ls "/proc/$running/fd" 2>/dev/null | wc -l)" >>"$work/samples"
}

echo "soak: seed $seed, $minutes minutes"
begun=0 done_so_far=0 silent=0 sampled=-1
: >"$work/actions" >"$work/errors" >"$work/samples"
begin
ends=$((SECONDS + minutes * 60))
while [ "$SECONDS" -lt "$ends" ]; do
  sample
  action=()
  for _ in 1 2 3 4 5 6; do act; done
  # Whatever dialog stands there goes now and then, so that the windows get their share.
  [ $((RANDOM % 4)) = 0 ] && action+=(key Escape key Escape)
  echo "${action[*]}" >>"$work/actions"
  xdotool "${action[@]}" >/dev/null 2>&1 || true
  if ! kill -0 "$running" 2>/dev/null; then
    code=0
    wait "$running" || code=$?
    # Exit is a command, too.
    [ "$code" = 0 ] || fail "the program ended with code $code"
    begin
  fi
  grep -qE 'ERROR: AddressSanitizer|runtime error:' "$work/errors" && fail "a sanitizer's report"
  if [ -z "$(xdotool search --onlyvisible --class cantorix 2>/dev/null)" ]; then
    silent=$((silent + 1))
    [ "$silent" -lt 40 ] || fail "no window is left"
  else
    silent=0
  fi
done
echo "soak: minute, start, MB, descriptors:"
cat "$work/samples"
echo "soak: $done_so_far actions in $minutes minutes, $begun starts, no report (seed $seed)"
