#!/usr/bin/env bash
# Holds the picture of the rooms (src/README.md), the rooms that each one uses (src/CMakeLists.txt) and the includes against
# each other, and looks for a room that doesn't say what lives in it; the version's places too. Exits 1 where they differ.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../src"
case "${1-}" in
  '') ;;
  *) echo "usage: tools/house.sh    holds the rooms' picture, their list and the includes against each other"
     [ "$1" = --help ] && exit 0 || exit 2 ;;
esac

version=$(sed -nE 's/^project\(DoctorZELVO VERSION ([^ ]+).*/\1/p' ../CMakeLists.txt)
if ! grep -q "버전 : $version\"" session/YakGukConnection.h || ! grep -q "<release version=\"$version\"" ../packaging/*.metainfo.xml || [ "$(sed -n 's/^## //p' ../CHANGELOG.md | head -1)" != "$version" ]; then
  echo "tools/house.sh: CMakeLists.txt, the status bar, the metainfo or CHANGELOG.md does not say version $version" >&2
  exit 1
fi
day=$(sed -nE 's/.*<release version="[^"]*" date="([^"]*)".*/\1/p' ../packaging/*.metainfo.xml | head -1)
if ! sed '/^###/q' ../CHANGELOG.md | grep -q "of $(LC_ALL=C date -d "$day" '+%-d %B %Y')"; then
  echo "tools/house.sh: CHANGELOG.md does not say $day of its newest release, as the metainfo does" >&2
  exit 1
fi

{
  # Lines of the picture that begin with a room: "floor N ROOM".
  awk '/^```/ { inside = !inside } inside && /^[a-z]/ { ++floor; for (i = 1; i <= NF; ++i) print "floor", floor, $i }' README.md
  # "room NAME FOLDER" and "uses NAME NAME".
  tr '\n' ' ' <CMakeLists.txt | grep -oE 'zelvo_room\([^)]*\)' | tr '()' '  ' | awk '{
    folder = $2; section = ""
    for (i = 3; i <= NF; ++i) {
      if ($i ~ /^(FOLDER|USES|LINK)$/) section = $i
      else if (section == "FOLDER") folder = $i
      else if (section == "USES") print "uses", $2, $i
    }
    print "room", $2, folder }'
  # "stands ROOM" for each folder with code, "folder NAME" for each one at all, "told NAME" for each with a README of three lines.
  find . -mindepth 2 '(' -name '*.h' -o -name '*.cpp' ')' -printf '%h\n' | sed 's#^\./##' | sort -u | sed 's/^/stands /'
  find . -mindepth 1 -type d -printf 'folder %P\n'
  find . -mindepth 2 -name README.md -exec awk 'FNR > 2 && NF { ++lines[FILENAME] }
    END { for (file in lines) if (lines[file] == 3) { sub(/^\.\//, "", file); sub(/\/README.md$/, "", file); print "told", file } }' {} +
  # "include FILE WHAT" for headers of our own, "system FILE WHAT" for others.
  grep -rHoE --include='*.h' --include='*.cpp' '^ *# *include +("[^"]+"|<[^>]+>)' . |
    sed -E 's#^\./([^:]+): *\# *include +"([^"]+)"#include \1 \2#; s#^\./([^:]+): *\# *include +<([^>]+)>#system \1 \2#'
} | awk '
  function roomOf(path) { sub(/\/[^\/]*$/, "", path); return path }
  function fault(text) { print "tools/house.sh: " text; ++faults }
  function reaches(from, to, depth,    i, n, below) {
    n = split(uses[from], below, " ")
    if (depth > 20) return 0
    for (i = 1; i <= n; ++i) if (below[i] == to || reaches(below[i], to, depth + 1)) return 1
    return 0
  }
  $1 == "floor" { if ($3 in floor) fault($3 " stands twice in the picture"); floor[$3] = $2 }
  $1 == "room" { folder[$2] = $3; named[$3] = $2 }
  $1 == "uses" {
    uses[$2] = uses[$2] " " $3
    if (!($3 in folder)) fault($2 " uses " $3 ", which does not stand above it in src/CMakeLists.txt")
  }
  $1 == "stands" { stands[$2] = 1 }
  $1 == "folder" { folders[$2] = 1 }
  $1 == "told" { told[$2] = 1 }
  $1 == "include" || $1 == "system" { kind[++count] = $1; file[count] = $2; what[count] = $3 }
  END {
    for (room in stands) {
      if (!(room in floor)) fault("src/" room " is missing from the picture in src/README.md")
      if (room != "assembly" && !(room in named)) fault("src/" room " is no zelvo_room of src/CMakeLists.txt")
    }
    for (name in folders) if (!(name in told)) fault("src/" name " has no README.md of three lines under its head")
    for (room in floor) if (!(room in stands)) fault(room " stands in the picture and nowhere else")
    for (name in uses) {
      n = split(uses[name], below, " ")
      for (i = 1; i <= n; ++i)
        if (floor[folder[below[i]]] <= floor[folder[name]]) fault(name " uses " below[i] ", which does not stand beneath it in the picture")
    }
    if (faults) exit 1
    for (i = 1; i <= count; ++i) {
      room = roomOf(file[i])
      if (what[i] ~ /(^|\/)\.\.\//) fault("src/" file[i] " includes " what[i] ": a header is named from src/ on")
      if (kind[i] == "system" && !(roomOf(what[i]) in stands)) {
        if (room !~ /^(platform|assembly)/ && what[i] !~ /^([a-z_]+|time\.h)$/) fault("src/" file[i] " includes <" what[i] ">: logic includes the standard library alone")
        continue
      }
      to = roomOf(what[i])
      if (to == room || !(to in stands) || room == "assembly") continue
      if (!reaches(named[room], named[to], 0)) fault("src/" file[i] " includes " what[i] ", and " room " does not use " to)
    }
    exit faults > 0
  }'
