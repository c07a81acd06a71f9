#!/usr/bin/env bash
# Fails when an include goes against the direction of the folders in src/, or brings a library into
# a place where it does not belong. Prints one line per offence: file:line: reason.
# Usage: tools/check_includes.sh [ROOT]
set -euo pipefail
root=${1:-$(cd "$(dirname "$0")/.." && pwd)}
cd "$root"

list_sources() {
  local folder
  for folder in src python tests tools fuzz bench; do
    [ ! -d "$folder" ] || find "$folder" -type f \( -name '*.h' -o -name '*.cpp' \)
  done | sort
}

list_sources | tr '\n' '\0' | xargs -0 -r awk '
  BEGIN {
    # Per folder, the folders that it may include.
    may["platform"] = "platform"
    may["settings"] = may["platform"] " settings"
    may["analysis"] = may["settings"] " analysis"
    may["document"] = may["analysis"] " document"
    may["audio"] = may["analysis"] " audio"
    may["labelfile"] = "platform labelfile"
    may["journal"] = may["document"] " journal"
    may["mainview"] = may["document"] " audio labelfile mainview"
    may["analysisview"] = may["mainview"] " analysisview"
    may["app"] = may["analysisview"] " journal app"
    may["desktop"] = may["app"] " desktop"
    may["measure"] = may["analysisview"] " measure"
    may["batch"] = may["app"] " measure batch"
  }
  function complain(reason) { print FILENAME ":" FNR ": " reason; offences++ }
  function among(word, words) { return index(" " words " ", " " word " ") > 0 }

  FNR == 1 {
    folder = ""
    if (split(FILENAME, path, "/") > 2 && path[1] == "src") folder = path[2]
    if (folder != "" && !(folder in may)) complain("unknown folder src/" folder)
    mayUseQt = FILENAME ~ /^(src|tests|bench)\/desktop\//
  }

  /^[ \t]*#[ \t]*include[ \t]*</ {
    match($0, /<[^>]*>/)
    header = substr($0, RSTART + 1, RLENGTH - 2)
    if (header ~ /^Q/ && !mayUseQt) complain("<" header ">: Qt belongs to src/desktop only")
    if (header ~ /^(portaudio|pa_[a-z_]+)\.h$/) {
      if (folder != "audio") complain("<" header ">: PortAudio belongs to src/audio only")
      else portaudio[FILENAME] = FNR
    }
    if (header ~ /^sndfile\.hh?$/ && folder != "document")
      complain("<" header ">: libsndfile belongs to src/document only")
    # A fuzz target reads back with it what the program has written by itself.
    if (header ~ /^(pugixml\.hpp|nlohmann\/.*)$/ && folder != "labelfile" && FILENAME !~ /^fuzz\//)
      complain("<" header ">: XML and JSON belong to src/labelfile only")
  }

  /^[ \t]*#[ \t]*include[ \t]*"/ && folder in may {
    match($0, /"[^"]*"/)
    header = substr($0, RSTART + 1, RLENGTH - 2)
    if (split(header, part, "/") < 2) complain("\"" header "\": write the folder, too")
    else if (!(part[1] in may)) complain("\"" header "\": no such folder in src/")
    else if (!among(part[1], may[folder])) complain("\"" header "\": src/" folder " may not include src/" part[1])
  }

  END {
    for (file in portaudio) files++
    if (files > 1) {
      for (file in portaudio) print file ":" portaudio[file] ": only one file may include PortAudio"
      offences += files
    }
    exit offences > 0
  }
'
