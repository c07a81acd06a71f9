#!/usr/bin/env bash
# Uses the desktop program like a user in a hurry: tools/soak.sh [MINUTES [SEED]]
# Round by round it opens recordings (those of alsa-utils, of samples/, and what it saved before),
# measures, labels, cuts, pastes, undoes, plays, records, enters rows, saves, presses keys and clicks
# at random on a virtual display, and closes everything; then it takes memory (without what is mapped
# from files) and descriptors. Fails on a report of a sanitizer, on a crash, when no window is left,
# and on growth (tools/growth.py; from 45 minutes on); prints the seed, and on a failure what was done
# last. The same seed does the same things, as fast as the machine is.
# The program is the dev build with its sanitizers, which keep what is freed and so tell nothing of
# growth, or the one that CANTORIX_SOAK_PROGRAM names. As root it runs as nobody, so that no dialog
# can harm a file of the machine.
set -euo pipefail

here=$(cd "$(dirname "$0")/.." && pwd)
minutes=${1:-10}
seed=${2:-$RANDOM}
RANDOM=$seed
program=${CANTORIX_SOAK_PROGRAM:-$here/build/dev/src/desktop/cantorix}
"$here/tools/setup.sh" pictures
[ -x "$program" ] || { echo "soak: build the dev preset first (target cantorix)" >&2; exit 2; }

. "$here/tools/own_display.sh"

mkdir "$work/home/openbox"
cp "$here/samples/vowels.qrv" "$work/talk.qrv"
cp /usr/share/sounds/alsa/*.wav "$work" 2>/dev/null || true
cp "$here"/tests/document/recordings/{flac-flac-24-bit.flac,mp3-ffmpeg-mp3.mp3,sphere-sox-mu-law.sph} "$work"
# The main window has no frame, so that no click of chance can hide it; of the keys openbox has one,
# which no action presses: it closes a tool.
cat >"$work/home/openbox/rc.xml" <<'XML'
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <keyboard><keybind key="A-F4"><action name="Close"/></keybind></keyboard><mouse><context name="Client"><mousebind button="Left" action="Press">
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

show_display 1280x800
# What is freed goes back to the system, so that a leak is not lost in the allocator's stock.
export MALLOC_ARENA_MAX=1 MALLOC_MMAP_THRESHOLD_=65536 MALLOC_TRIM_THRESHOLD_=65536
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
  (cd "$work" && exec "${as_user[@]}" "$program" -style fusion 2>>"$work/errors") &
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
  1 2 5 0 minus period a o Escape Escape Escape)
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
      # So far down that Exit, the last entry of File, is not met: growth is seen within one start.
      for ((i = RANDOM % $([ "$picked" = alt+f ] && echo 5 || echo 12); i > 0; --i)); do steps+=(Down); done
      action+=(key "${steps[@]}" Return)
      ;;
    6 | 7) action+=(mousemove $x $y click 1) ;;
    8) action+=(mousemove $x $y click $((1 + RANDOM % 3))) ;;
    9 | 10) action+=(mousemove $x $y mousedown 1 mousemove $((RANDOM % 1280)) $y mousemove $((RANDOM % 1280)) $((y + RANDOM % 40)) mouseup 1) ;;
    11) action+=(mousemove $x $y keydown "$([ $((RANDOM % 2)) = 0 ] && echo ctrl || echo shift)" click $((4 + RANDOM % 2)) keyup ctrl keyup shift) ;;
  esac
  done_so_far=$((done_so_far + 1))
}

act_at_random() {
  local i
  for i in 1 2 3 4 5 6; do act; done
  # Whatever dialog stands there goes now and then, so that the windows get their share.
  [ $((RANDOM % 4)) = 0 ] && action+=(key Escape key Escape) || true
}

# Until the program has done next to nothing for a while: it uses ten clock ticks in a second at most.
rest() {
  local before=-1 now i
  for i in {1..100}; do
    now=$(awk '{print $14 + $15}' "/proc/$running/stat" 2>/dev/null) || return 0
    [ $((now - before)) -gt 1 ] || return 0
    before=$now
    sleep 0.1
  done
}

do_it() {
  echo "$*" >>"$work/actions"
  xdotool "$@" >/dev/null 2>&1 || true
  rest
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
}

open_one() {
  local files=("$work"/*.{qrv,wav,flac,mp3,sph})
  pick files
  do_it key ctrl+o
  do_it type --delay 5 "$picked"
  do_it key Return
}
label() { do_it key ctrl+Right ctrl+Right ctrl+t; do_it type "word $((RANDOM % 100))"; do_it key Return; }
select_some() {
  local x=$((100 + RANDOM % 500))
  do_it mousemove $x 250 mousedown 1 mousemove $((x + 80)) 250 mousemove $((x + 300)) 250 mouseup 1
}
save() {
  do_it key ctrl+s
  do_it type --delay 5 "$work/saved $((RANDOM % 5)).qrv"
  do_it key Return
  do_it key alt+y
}
record() {
  do_it key ctrl+n
  do_it key ctrl+r
  sleep 1
  do_it key ctrl+r
}

# One thing that a user does on purpose.
work_on_it() {
  done_so_far=$((done_so_far + 1))
  case $((RANDOM % 16)) in
    0) open_one ;;
    1 | 2) label ;;
    3) select_some && do_it key ctrl+x && do_it key Home ctrl+v && do_it key ctrl+z ;;
    4) do_it key ctrl+a ctrl+c End ctrl+v ;;
    5) do_it key ctrl+l ;;
    6) do_it key ctrl+g ;;
    7) do_it mousemove $((100 + RANDOM % 900)) 250 click 1 key ctrl+f ;;
    8) select_some && do_it key ctrl+i && do_it key ctrl+d ;;
    9) do_it key ctrl+y && sleep 0.5 && do_it key ctrl+y ;;
    10) record ;;
    11) do_it key alt+l Return && do_it key alt+n && do_it key ctrl+d ctrl+m ;;
    12) save ;;
    13) do_it key ctrl+Tab ;;
    14) do_it key F6 ;;
    15) do_it key ctrl+b ctrl+b ctrl+e ;;
  esac
}

shows() { xdotool search --onlyvisible --name "^Cantorix - $1" >/dev/null 2>&1; }

# The program's clipboard outlives every document, and what it gave to the system's, a picture say, is
# kept for others: both hold the same at each sample.
copy_the_same() {
  do_it key ctrl+o
  do_it type --delay 5 "$work/talk.qrv"
  do_it key Return
  do_it key ctrl+a ctrl+c
  do_it key ctrl+j
  do_it key ctrl+a ctrl+c Escape
}

# Tools outlive the documents, and one that listens to the input holds its sound: each sample is taken
# without them.
close_tools() {
  local window
  for window in $(xdotool search --onlyvisible --class cantorix 2>/dev/null); do
    case $(xdotool getwindowname "$window" 2>/dev/null) in
      Cantorix*) ;;
      *)
        do_it windowactivate "$window"
        # A tip is no window to openbox, and the key would reach the one below.
        [ "$(xdotool getactivewindow 2>/dev/null)" != "$window" ] || do_it key alt+F4
        ;;
    esac
  done
}

# Every document goes, unsaved, and the rows of the log.
close_all() {
  # The last are where an icon lies in the corner: alone, beside a docked log, and above one.
  local i places=("1100 600" "300 100" "80 765" "540 785" "80 631")
  do_it key Escape Escape Escape Escape
  do_it key alt+l Return
  do_it key alt+n
  for i in {1..30}; do
    # A title with a document's name in it.
    shows "" || return 0
    # A press on it ends a recording that still runs, but a tool may lie there, or it is an icon in
    # the corner, which opens by two, or goes by Ctrl+F4 wherever it is; F6 leaves a window that has
    # no Close.
    do_it key Escape Escape mousemove ${places[i % ${#places[@]}]} click --repeat 2 --delay 50 1 key Escape alt+f c
    do_it key alt+n
    # The scope has no Close in its menu, and that of a recording that runs is grey.
    do_it key Escape Escape ctrl+F4
    do_it key alt+n
    [ $((i % 3)) != 0 ] || do_it key Escape ctrl+Tab F6
  done
  unclosed=$((unclosed + 1))
  [ -z "${CANTORIX_SOAK_PICTURES:-}" ] || import -window root "$CANTORIX_SOAK_PICTURES/unclosed-$rounds.png"
  # Whatever stands there is given up with the program.
  [ $((unclosed % 3)) != 0 ] || { kill "$running"; wait "$running" || true; begin; }
}

# A line for a round that has ended with nothing open: second, start, kB, open descriptors.
sample() {
  local memory
  ! shows "" || return 0
  memory=$(awk '/^Rss(Anon|Shmem)/ {sum += $2} END {print sum}' "/proc/$running/status" 2>/dev/null) || return 0
  [ -n "$memory" ] || return 0
  echo "$SECONDS $begun $memory $(ls "/proc/$running/fd" 2>/dev/null | wc -l)" >>"$work/samples"
}

echo "soak: seed $seed, $minutes minutes"
begun=0 done_so_far=0 silent=0 rounds=0 unclosed=0
: >"$work/actions" >"$work/errors" >"$work/samples"
begin
ends=$((SECONDS + minutes * 60))
while [ "$SECONDS" -lt "$ends" ]; do
  rm -f "$work"/saved*
  open_one
  for ((turn = 0; turn < 25; ++turn)); do
    work_on_it
    [ $((RANDOM % 4)) = 0 ] || continue
    action=()
    act_at_random
    do_it "${action[@]}"
  done
  close_all
  close_tools
  copy_the_same
  close_all
  sample
  rounds=$((rounds + 1))
done
echo "soak: second, start, kB, descriptors:"
cat "$work/samples"
echo "soak: $done_so_far actions in $rounds rounds and $minutes minutes, $begun starts, $unclosed rounds that did not close (seed $seed)"
code=0
"$here/tools/growth.py" "$work/samples" || code=$?
[ "$code" != 1 ] || fail "the program grows"
