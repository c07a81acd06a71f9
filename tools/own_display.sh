# own_display.sh - for scripts that use the programs on a virtual display (sourced by them): a folder
# of their own, $work, with a home and a place for sockets. What they note in `started` ends with
# them, and the folder goes.
work=$(mktemp -d)
started=()
finish() {
  for id in "${started[@]}"; do kill "$id" 2>/dev/null || true; done
  wait 2>/dev/null || true
  rm -rf "$work"
}
trap finish EXIT

mkdir -p "$work/home" "$work/run"
chmod 700 "$work/run"

# show_display WIDTHxHEIGHT: starts it; programs find display, home and sockets in the environment.
show_display() {
  exec 3>"$work/display"
  Xvfb -displayfd 3 -screen 0 "$1x24" 2>/dev/null &
  started+=($!)
  until [ -s "$work/display" ]; do sleep 0.1; done
  export DISPLAY=:$(cat "$work/display") HOME=$work/home XDG_CONFIG_HOME=$work/home XDG_RUNTIME_DIR=$work/run
}
