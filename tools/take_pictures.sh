#!/usr/bin/env bash
# Takes the pictures of docs/pictures: tools/take_pictures.sh [OUT]
# Drives the desktop program (release preset) on a virtual display as a user would. Installs
# what it needs for that.
set -euo pipefail

here=$(cd "$(dirname "$0")/.." && pwd)
"$here/tools/setup.sh" pictures
program=$here/build/release/src/desktop/cantorix
out=$(realpath -m "${1:-$here/docs/pictures}")
. "$here/tools/own_display.sh"

mkdir -p "$out"
cp "$here/samples/vowels.qrv" "$work"
cp /usr/share/sounds/alsa/Front_Center.wav "$work"
show_display 1600x1000
openbox 2>/dev/null &
started+=($!)
sleep 1

# start FILE: starts the program on a recording; begin FILE: with its pitch.
start() {
  (cd "$work" && exec "$program" -style fusion "$1" 2>/dev/null) &
  running=$!
  started+=("$running")
  sleep 3
}
begin() { start "$1"; keys ctrl+l; }
# Ended like this it would ask at the next start.
end() { kill "$running"; wait "$running" 2>/dev/null || true; rm -rf "$work/tmp"; }
keys() { for key in "$@"; do xdotool key "$key"; sleep 0.5; done; sleep 0.5; }
drag() { xdotool mousemove "$1" "$3" mousedown 1; sleep 0.2; xdotool mousemove $((($1 + $2) / 2)) "$3"; sleep 0.2; xdotool mousemove "$2" "$3" mouseup 1; sleep 0.5; }
# A window alone, by its title.
shoot_window() { import -window "$(xdotool search --onlyvisible --name "^$1\$" | tail -1)" "PNG8:$out/$2.png"; }
click() { xdotool mousemove "$1" "$2" click 1; sleep 0.6; }
shoot() { import -window root -colors 255 "PNG8:$out/$1.png"; }

# The steps of the manual's first hour.
start vowels.qrv
drag 72 248 400
shoot hour-open
keys Escape ctrl+l ctrl+g
sleep 1
xdotool mousemove 640 700
sleep 1
shoot hour-look
click 157 250
keys ctrl+f
sleep 1
shoot hour-measure
keys ctrl+shift+w ctrl+Tab ctrl+shift+w
keys alt+t Up Up Up Up Up Return alt+4 Return
keys alt+t Return ctrl+Down ctrl+Down
click 157 400
xdotool type low
keys Return
click 583 400
xdotool type falls
sleep 1
shoot hour-label
keys Return alt+t Return alt+l Return
drag 72 248 400
keys ctrl+d
click 157 400
click 157 400
keys ctrl+m alt+l Up Return
sleep 1
shoot hour-log
end

begin vowels.qrv
click 700 300
keys alt+l Return ctrl+m
drag 600 760 300
keys ctrl+d
shoot main-view
keys ctrl+i
sleep 1
shoot_window Statistics statistics
keys Escape
keys alt+l Down Down Down Down Down Return
shoot log
keys alt+t Up Up Up Up Up Return
shoot tiers
keys Escape alt+t Return
click 900 128
shoot label-entry
keys Escape alt+o Down Down Down Down Down Return
shoot pitch-options
end

begin Front_Center.wav
click 1101 300
click 1101 300
keys ctrl+f ctrl+g
sleep 1
shoot hint
# What the hint offers, for both windows.
click 949 523
sleep 2
shoot spectrogram
keys F6
shoot spectrum
keys alt+a Up Return
shoot pitch
keys alt+w Down Down Return
shoot tiled
end

# A recording of no known kind: the question, then the dialog.
tail -c +12001 "$work/vowels.qrv" >"$work/unknown.raw"
begin unknown.raw
keys Return Tab ctrl+a
xdotool type 11025
keys alt+l
shoot_window "Generic File Selection" generic-file
end

# A sound server without a card, whose output is its input.
export PULSE_SERVER=unix:$work/run/pulse.sock PULSE_SINK=loop PULSE_SOURCE=loop.monitor
pulseaudio -n --daemonize=no --use-pid-file=no --exit-idle-time=-1 --log-level=error \
  -L "module-native-protocol-unix socket=$work/run/pulse.sock auth-anonymous=1" \
  -L "module-null-sink sink_name=loop rate=44100 format=s16le channels=1 channel_map=mono norewinds=1" \
  2>/dev/null &
started+=($!)
until pactl info >/dev/null 2>&1; do sleep 0.1; done
begin vowels.qrv
keys ctrl+g alt+a Up Return alt+w Down Down Return ctrl+y
sleep 0.3
import -window root -resize 1000x -colors 255 "PNG8:$out/play-cursor.png"
sleep 5
keys alt+o Down Return
(for turn in 1 2 3 4 5 6; do paplay "$work/Front_Center.wav"; done) &
started+=($!)
sleep 2
shoot_window Record/Play record-play
keys Tab Tab Tab space
click 300 630
keys ctrl+r
sleep 4
import -window root -crop 1600x384+0+616 +repage -resize 1000x -dither None -colors 64 \
  "PNG8:$out/scope.png"
end
rm -f "$work"/tmp/Recording-*

export QT_SCALE_FACTOR=2
begin vowels.qrv
shoot scale-2
end
unset QT_SCALE_FACTOR

# The colours of a dark desktop.
cp "$here/tools/dark_desktop.kdeglobals" "$work/home/kdeglobals"
export XDG_CURRENT_DESKTOP=KDE KDE_SESSION_VERSION=5 KDE_FULL_SESSION=true
begin vowels.qrv
keys alt+l Return
drag 600 760 300
keys ctrl+d ctrl+h
shoot dark
end

"$program" --picture main "$out/dark-main-view.png" --dark --size 1200x700 "$work/vowels.qrv"
"$program" --picture spectrogram "$out/dark-spectrogram.png" --dark --size 1200x500 "$work/vowels.qrv"
