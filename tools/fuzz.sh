#!/usr/bin/env bash
# Hostile inputs, made by the million.
# usage: tools/fuzz.sh MINUTES [TARGET]...    all targets, or these, for so many minutes in all
#        tools/fuzz.sh coverage [TARGET]...   the lines of the own parsers that no input reaches
#        tools/fuzz.sh minimise [TARGET]...   keeps of fuzz/corpus what reaches more than the rest
# What a run finds out stays in build/fuzz/corpus and goes on from there. An input that breaks a
# target is kept in build/fuzz/findings, and the exit code is 1.
set -euo pipefail
cd "$(dirname "$0")/.."

readers="aiff ascii au esps native nsp sphere today wav"
[ $# -ge 1 ] || { sed -n '3,5s/^# \{0,1\}//p' "$0"; exit 2; }
what=$1
shift
tools/setup.sh build fuzz
work=build/fuzz/corpus
# In memory, where a sync costs nothing; the fuzzer leaves what it made there behind.
[ -w /dev/shm ] && shared=/dev/shm || shared=${TMPDIR:-/tmp}
TMPDIR=$(mktemp -d -p "$shared" cantorix-fuzzing-XXXXXX)
export TMPDIR
trap 'rm -rf "$TMPDIR"' EXIT

targets() { sed -n 's/^.*\bfuzz_\([a-z_]*\): phony$/\1/p' | sort -u; }

# Folders of inputs for a target; the first one takes what is new.
inputs() {
  mkdir -p "$work/$1"
  echo "$work/$1 fuzz/corpus/$1"
  [ "$1" != label_any ] || printf ' fuzz/corpus/%s' audacity elan emu label_lines textgrid
  [ "$1" != open ] || { printf ' fuzz/corpus/%s' $readers; echo " tests/document/recordings"; }
}

# The option for the words of a target's formats, where there are any.
dictionary() {
  local words=build/fuzz/$1.dict name=$1
  case $1 in
    open) name="aiff au esps native nsp sphere wav" ;;
    undo) name=native ;;
    audacity) name=label_lines ;;
    label_any) name="elan emu label_lines textgrid" ;;
  esac
  for name in $name; do cat "fuzz/dictionaries/$name.dict" 2>/dev/null || true; done >"$words"
  [ ! -s "$words" ] || echo "-dict=$words"
}

# An input that took too long may have waited for the processor: alone it has ten seconds of that.
only_waited() {
  [[ $2 == */"$1"-timeout-* ]] &&
    (ulimit -t 10 && "build/fuzz/fuzz/fuzz_$1" -timeout=600 "$2") >/dev/null 2>&1
}

# One target for some seconds; a row of what came of it.
run() {
  local log=build/fuzz/$1.log program=build/fuzz/fuzz/fuzz_$1 verdict="no finding" artifact=""
  local begins=$SECONDS runs=0 spent
  mkdir -p build/fuzz/findings
  # A measurement may take a second and 512 MB, with the sanitizers ten times as much.
  while spent=$((SECONDS - begins)) && [ "$verdict" != FINDING ] && [ "$spent" -lt "$2" ]; do
    "$program" $(inputs "$1") $(dictionary "$1") -max_total_time=$(($2 - spent)) -print_final_stats=1 \
      -timeout=10 -malloc_limit_mb=1024 -rss_limit_mb=4096 -close_fd_mask=3 -use_value_profile=1 \
      -artifact_prefix="build/fuzz/findings/$1-" >"$log" 2>&1 || verdict="FINDING"
    runs=$((runs + 10#0$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")))
    artifact=$(sed -n 's/^.*Test unit written to //p' "$log" | tail -1)
    ! only_waited "$1" "$artifact" || { rm "$artifact"; verdict="no finding"; }
  done
  printf '%-14s %12s runs %8s a second  %s\n' "$1" "$runs" $((runs / (SECONDS - begins + 1))) "$verdict"
  [ "$verdict" != FINDING ] && return
  [ -z "$artifact" ] || "$program" "$artifact" 2>&1 | grep -E 'ERROR|SUMMARY|    #[0-9] ' | head -12 || true
  return 1
}

build() {
  [ -f "$1/build.ninja" ] || "${@:2}" >&2
  chosen=("${names[@]}")
  [ ${#chosen[@]} -gt 0 ] || mapfile -t chosen < <(ninja -C "$1" -t targets all | targets)
  ninja -C "$1" -j "${JOBS:-$(nproc)}" "${chosen[@]/#/fuzz_}" >&2
}

names=("$@")
case $what in
  coverage)
    out=build/coverage
    build $out cmake -S . -B $out -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DCANTORIX_FUZZ=ON \
      -DCANTORIX_TESTS=OFF -DCANTORIX_DESKTOP=OFF \
      -DCMAKE_CXX_FLAGS="-O1 -fprofile-instr-generate -fcoverage-mapping"
    rm -f $out/*.profraw
    objects=()
    for name in "${chosen[@]}"; do
      LLVM_PROFILE_FILE=$out/$name.profraw $out/fuzz/fuzz_$name -runs=0 -close_fd_mask=3 \
        $(inputs "$name") >/dev/null 2>&1
      objects+=(-object "$out/fuzz/fuzz_$name")
    done
    llvm-profdata merge -sparse $out/*.profraw -o $out/all.profdata
    llvm-cov export -format=lcov -instr-profile=$out/all.profdata "${objects[@]}" >$out/all.lcov
    python3 tools/unreached.py $out/all.lcov
    ;;
  minimise)
    build build/fuzz cmake --preset fuzz -DCANTORIX_DESKTOP=OFF
    for name in "${chosen[@]}"; do
      fresh=build/fuzz/minimised/$name
      rm -rf "$fresh"
      mkdir -p "$fresh"
      build/fuzz/fuzz/fuzz_$name -merge=1 -max_len=2048 -close_fd_mask=3 "$fresh" \
        $(inputs "$name") >/dev/null 2>&1
      echo "$name: $(ls "$fresh" | wc -l) inputs, $(cat "$fresh"/* | wc -c) bytes in $fresh"
    done
    ;;
  *)
    [[ $what =~ ^[1-9][0-9]*$ ]] || { echo "fuzz: how many minutes? not $what" >&2; exit 2; }
    build build/fuzz cmake --preset fuzz -DCANTORIX_DESKTOP=OFF
    status=0
    for name in "${chosen[@]}"; do run "$name" $((what * 60 / ${#chosen[@]})) || status=1; done
    exit $status
    ;;
esac
