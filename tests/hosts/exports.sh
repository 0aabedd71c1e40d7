#!/usr/bin/env bash
# What the library shows is the C functions of its header, and nothing else: exports.sh LIBRARY HEADER OBJDUMP.
set -euo pipefail
# Marked with an l are the linker's own.
case $1 in
  *.dll) shown=$("$3" -p "$1" | sed -nE '/^\[Ordinal\/Name Pointer\]/,/^$/s/^\t\[ *[0-9]+\] (.*)/\1/p') ;;
  *) shown=$("$3" -T "$1" | awk '/^[0-9a-f]+ / && $2 != "l" && !/\*UND\*/ && $NF != "DOCTORZELVO_1" {
       print ($(NF - 1) == "DOCTORZELVO_1" ? $NF : $0) }') ;;
esac
told=$(sed -nE 's/^DOCTORZELVO_C_API int (\w+)\(.*/\1/p' "$2")
diff <(sort <<<"$told") <(sort <<<"$shown") || { echo 'Told by the header (<), shown by the library (>).' >&2; exit 1; }
