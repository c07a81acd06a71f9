#!/usr/bin/env bash
# What every change has to pass. Usage: tools/check.sh [--sources] [--skip PART]... [PART]...
# Parts, in this order; without names, all of them but tidy-all; --sources means those that run
# neither a build nor a test, with tidy-all:
#   format    clang-format would change nothing
#   includes  no include against the direction of the folders
#   sizes     no file is too long
#   build     the dev preset builds without a warning
#   tidy  clang-tidy over the sources that differ from BASE (default: the main branch)
#   tidy-all  clang-tidy over all sources
#   tests     every test passes under the sanitizers
set -euo pipefail
cd "$(dirname "$0")/.."

# The dev preset compiles several sources at once; this one names each with its options.
tidied=build/tidy
jobs=${JOBS:-$(nproc)}

sources() { git ls-files --cached --others --exclude-standard -- '*.cpp' '*.h'; }

check_format() { sources | xargs -r -d '\n' clang-format --dry-run -Werror; }
check_includes() { tools/check_includes.sh; }
check_sizes() { tools/check_sizes.sh; }
check_build() {
  [ -f build/dev/build.ninja ] || cmake --preset dev
  cmake --build --preset dev -j "$jobs"
}
check_tests() { check_build && ctest --preset dev -j "$jobs"; }

configure() { cmake --preset tidy >&2; }
# Those of the sources on standard input that the dev preset compiles.
compiled() {
  local file
  while IFS= read -r file; do
    if grep -qF "\"file\": \"$PWD/$file\"" "$tidied/compile_commands.json"; then echo "$file"; fi
  done
}
# Findings are on standard output; of standard error only the count of hidden ones is dropped.
tidy() {
  xargs -r -d '\n' -n 1 -P "$jobs" \
    clang-tidy -p "$tidied" --quiet --extra-arg=-Wno-unknown-warning-option \
    2> >(grep -v ' warnings\? generated\.$' >&2)
}

# Sources that changed, and those that include a header that changed.
changed() {
  local base file
  base=${BASE:-$(git rev-parse --verify --quiet origin/main || git rev-parse --verify main)} &&
    base=$(git merge-base HEAD "$base") || return 1
  { git diff --name-only --diff-filter=d "$base"; git ls-files --others --exclude-standard; } |
    while IFS= read -r file; do
      case "$file" in
        *.cpp) echo "$file" ;;
        src/*.h) git grep -lF "#include \"${file#src/}\"" -- '*.cpp' || true ;;
        *.h) git grep -lF "${file##*/}\"" -- '*.cpp' || true ;;
      esac
    done | sort -u
}
check_tidy() { configure && changed | compiled | tidy; }
check_tidy_all() { configure && sources | compiled | tidy; }

usage() {
  sed -n '2,11s/^# \{0,1\}//p' "$0"
  exit 2
}

known=" format includes sizes build tidy tidy-all tests "
skip=" "
parts=()
while [ $# -gt 0 ]; do
  case "$1" in
    --sources) parts+=(format includes sizes tidy-all) ;;
    --skip) shift; [ $# -gt 0 ] || usage; skip+="$1 " ;;
    *) case "$known" in *" $1 "*) parts+=("$1") ;; *) usage ;; esac ;;
  esac
  shift
done
[ ${#parts[@]} -gt 0 ] || parts=(format includes sizes build tidy tests)

failed=()
for part in "${parts[@]}"; do
  case "$skip" in *" $part "*) continue ;; esac
  echo "== $part"
  "check_${part//-/_}" || failed+=("$part")
done
if [ ${#failed[@]} -gt 0 ]; then
  echo "Failed: ${failed[*]}" >&2
  exit 1
fi
echo "All checks passed."
