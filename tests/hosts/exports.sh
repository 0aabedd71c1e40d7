#!/usr/bin/env bash
# What the library shows is the C functions of its header, and nothing else: exports.sh LIBRARY HEADER.
set -euo pipefail
shown=$(nm -D --defined-only --extern-only "$1" | sed -E 's/^[0-9a-f]* [A-Za-z] //' | grep -vx DOCTORZELVO_1 | sort)
told=$(sed -nE 's/^DOCTORZELVO_C_API int (\w+)\(.*/\1@@DOCTORZELVO_1/p' "$2" | sort)
diff <(printf '%s\n' "$told") <(printf '%s\n' "$shown") || { echo 'Told by the header (<), shown by the library (>).' >&2; exit 1; }
