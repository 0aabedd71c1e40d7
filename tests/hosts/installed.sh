#!/usr/bin/env bash
# Installs the build into a scratch folder, builds two charts of their own against it and lets them call where no
# window can open: installed.sh BUILD_DIR SOURCE_DIR CC CXX [COMPILER_FLAGS].
set -euo pipefail
build=$1 source=$2 cc=$3 cxx=$4 flags=${5-}
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

fail() {
  echo "installed.sh: $1" >&2
  exit 1
}

# What was installed can be moved.
cmake --install "$build" --prefix "$scratch/first" >/dev/null
mv "$scratch/first" "$scratch/moved"
prefix=$scratch/moved
config=$(find "$prefix" -name DoctorZELVOConfig.cmake)
package=$(find "$prefix" -name doctorzelvo.pc)
[ -n "$config" ] && [ -n "$package" ] || fail "no package was installed"
export PKG_CONFIG_PATH=${package%/*}

# The toolkit's package must not be asked for, and the chart's C++ library need not keep its objects as the component's does.
cmake -G Ninja -S "$source/tests/hosts/find-package" -B "$scratch/chart" -DCMAKE_PREFIX_PATH="$prefix" \
  -DCMAKE_CXX_COMPILER="$cxx" -DCMAKE_CXX_FLAGS="$flags -D_GLIBCXX_USE_CXX11_ABI=0" -DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON --no-warn-unused-cli >/dev/null
cmake --build "$scratch/chart" >/dev/null
library=$(pkg-config --variable=libdir doctorzelvo)
# shellcheck disable=SC2086,SC2046
"$cc" -std=c99 -Wall -Wextra -Wpedantic -Werror $flags "$source/demo/chart/caller.c" -o "$scratch/caller" \
  $(pkg-config --cflags --libs doctorzelvo) -Wl,-rpath,"$library"

# without CASE EXPECTED ENVIRONMENT... : every chart says why no window opens, and ends by itself.
calls=("$scratch/chart/chart sqlite:/nowhere doctor1" "$scratch/caller sqlite:/nowhere doctor1"
       "$prefix/bin/zelvo doctor --server sqlite:/nowhere --account doctor1")
without() {
  local name=$1 expected=$2 call words status said
  shift 2
  for call in "${calls[@]}"; do
    read -r -a words <<<"$call"
    status=0
    said=$(env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM "$@" "${words[@]}" 2>&1 >/dev/null) || status=$?
    [ "$status" -eq 1 ] || fail "$name: ${words[0]##*/} ended with $status, not 1: $said"
    [[ $said = *"$expected"* ]] || fail "$name: ${words[0]##*/} said: $said"
  done
}
echo '<?xml version="1.0"?><fontconfig></fontconfig>' >"$scratch/no-fonts.conf"
without 'no display' 'no display can be reached'
without 'a display that is gone' 'no display can be reached' DISPLAY=:987 WAYLAND_DISPLAY=gone
without 'a platform that is unknown' 'no display of the kind nothing' QT_QPA_PLATFORM=nothing
without 'no Korean font' 'No Korean font' QT_QPA_PLATFORM=offscreen FONTCONFIG_FILE="$scratch/no-fonts.conf"

calls=("$prefix/bin/zelvo-chart")
without 'a chart with windows of its own' 'no window can be opened: could not connect to display'
for program in zelvo zelvo-chart zelvo-demo zelvo-pharmacy; do
  said=$("$prefix/bin/$program" --version)
  [ "$said" = "$program $(pkg-config --modversion doctorzelvo)" ] || fail "$program says of its version: $said"
  page=$(man -l "$prefix/share/man/man1/$program.1.gz" 2>/dev/null || zcat "$prefix/share/man/man1/$program.1.gz")
  [[ $page = *NAME*"$program"*SYNOPSIS*DESCRIPTION* ]] || fail "$program has no man page"
done
bash -c ". '$prefix/share/bash-completion/completions/zelvo'; COMP_WORDS=(zelvo nurse --hospital-n) COMP_CWORD=2; _zelvo
         [ \"\${COMPREPLY[*]}\" = --hospital-name ]" || fail "the words of zelvo are not completed"
"$prefix/bin/zelvo-pharmacy" --db "$scratch/pharmacy.db" init >/dev/null
