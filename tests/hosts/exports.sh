#!/usr/bin/env bash
# What the library shows is its public class, the functions beside it and the C functions: exports.sh LIBRARY.
set -euo pipefail
nm=$(nm -D --defined-only --extern-only --demangle "$1")
wanted='^(doctorzelvo::clsZELVOInterface::(clsZELVOInterface\(\)|~clsZELVOInterface\(\)|ZELVOInterface\(.*\)|ZELVOInterface_Nurse\(.*\)|errorText(\[abi:cxx11\])?\(\) const)|doctorzelvo::runInTerminal\(.*\)|doctorzelvo::shutdown\(\)|doctorzelvo_(interface|interface_nurse|shutdown))@@DOCTORZELVO_1$'
names=$(sed -E 's/^[0-9a-f]* [A-Za-z] //' <<<"$nm" | grep -vx DOCTORZELVO_1 | sort -u)
if others=$(grep -vE "$wanted" <<<"$names"); then
  printf 'The library shows what is its own affair:\n%s\n' "$others" >&2
  exit 1
fi
[ "$(wc -l <<<"$names")" -eq 10 ] || { printf 'Not all is shown:\n%s\n' "$names" >&2; exit 1; }
