#!/usr/bin/env bash
# Fails when a source file is too long: over 400 lines it has to say "long because" in its head
# comment, over 600 it has to be split. A file that is one table says "one long table" there and may
# have any length.
# Usage: tools/check_sizes.sh [ROOT]
set -euo pipefail
root=${1:-$(cd "$(dirname "$0")/.." && pwd)}
cd "$root"

offences=0
while IFS= read -r file; do
  lines=$(wc -l <"$file")
  [ "$lines" -gt 400 ] || continue
  # The head comment: the comment lines before the first line of anything else.
  head=$(awk '!/^\/\// { exit } { print }' "$file")
  case "$head" in *"one long table"*) continue ;; esac
  if [ "$lines" -gt 600 ]; then
    echo "$file: $lines lines; split it by topic"
  else
    case "$head" in *"long because"*) continue ;; esac
    echo "$file: $lines lines; split it, or say \"long because ...\" in its head comment"
  fi
  offences=$((offences + 1))
done < <(for folder in src python tests tools fuzz bench; do
  [ ! -d "$folder" ] || find "$folder" -type f \( -name '*.h' -o -name '*.cpp' \)
done | sort)
[ "$offences" -eq 0 ]
