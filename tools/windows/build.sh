#!/usr/bin/env bash
# Builds DoctorZELVO for 64-bit Windows on this machine.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

usage() {
  cat <<'TEXT'
usage: tools/windows/build.sh [--terminal] [--test] [--pictures DIR] [--jobs N]

Builds the program into build-windows, and leaves the installer out/windows/DoctorZELVO-setup.exe and what it brings as
DoctorZELVO.zip beside it.

--terminal builds the console programs zelvo.exe and zelvo-pharmacy.exe and the component's DLL without its windows, into
build-windows-terminal/bin.

--test tries under wine what was built: with --terminal by the rooms' tests that need no screen, every console scenario and
the automation object; else by the automation object with its windows, and by the installer, put in, moved and taken away,
with whole orders by keys in what it brought; --pictures DIR keeps pictures of those windows there.

Installs what is missing (Debian 12); the libraries are made once, from Debian's sources (tools/windows/libraries.sh): half an
hour for the toolkit of the windows on two processors. Exits 3 where the sources can't be fetched, or a
Debian package is missing and this user can't install it.
TEXT
}

terminal=
tests=
jobs=$(nproc)
while [ $# -gt 0 ]; do
  case "$1" in
    --help|-h) usage; exit 0 ;;
    --terminal) terminal=yes; shift ;;
    --test) tests=yes; shift ;;
    --pictures) ZELVO_PICTURES=$(realpath -m "$2"); export ZELVO_PICTURES; mkdir -p "$ZELVO_PICTURES"; shift 2 ;;
    --jobs) jobs=$2; shift 2 ;;
    *) usage >&2; exit 2 ;;
  esac
done

[ -z "${ZELVO_PICTURES-}" ] || { [ "$tests" ] && [ ! "$terminal" ]; } || { usage >&2; exit 2; }

# shellcheck source=../setup.sh
. tools/setup.sh
need "${build_packages[@]}" "${windows_packages[@]}"
[ ! "$tests" ] || need "${windows_test_packages[@]}"
[ -z "${ZELVO_PICTURES-}" ] || need imagemagick
libraries=(sqlite curl httplib)
if [ ! "$terminal" ]; then
  need "${windows_setup_packages[@]}"
  command -v npm >/dev/null || need npm
  libraries+=(gumbo qt)
fi
ZELVO_WINDOWS_LIBRARIES=$(tools/windows/libraries.sh --jobs "$jobs" "${libraries[@]}")
export ZELVO_WINDOWS_LIBRARIES

# All that an installed copy has, and one line a file for the installer and for what takes it away again.
stage() {
  rm -rf "$stage"
  # Programs bear the time at which they were stripped.
  SOURCE_DATE_EPOCH=$(git log -1 --format=%ct) cmake --install "$build" --prefix "$stage" --strip >/dev/null
  third_parties >"$stage/share/doctorzelvo/third-parties.txt"
  (cd "$stage" && find . -type f -printf '%P\n' | LC_ALL=C sort) >"$build/files"
  (cd "$stage" && find . -mindepth 1 -depth -type d -printf '%P\n') >"$build/folders"
}

# What is linked in, and its makers' terms.
third_parties() {
  local package
  cat <<'TEXT'
The programs and DoctorZELVO.dll have these libraries linked into them. Qt is used by the terms of the GNU Lesser General Public
License, version 3, which stands at the end with the General Public License that it builds on. Whoever has the sources of
DoctorZELVO can link it with a Qt of his own: tools/windows/libraries.sh makes Qt from the sources that Debian publishes, and
tools/windows/build.sh links the programs and makes the installer anew.

TEXT
  for package in libqt6core6 libsqlite3-0 libcurl4 zlib1g libgumbo1 libcpp-httplib-dev gcc-mingw-w64-base mingw-w64-common; do
    [ -f "/usr/share/doc/$package/copyright" ] || continue
    printf '==== %s %s\n\n' "$package" "$(dpkg-query -W -f='${Version}' "$package")"
    cat "/usr/share/doc/$package/copyright"
    printf '\n'
  done
  for package in LGPL-3 GPL-3; do
    printf '==== %s\n\n' "$package"
    cat "/usr/share/common-licenses/$package"
    printf '\n'
  done
}

file_list() {
  local path
  echo '!macro InstallFiles'
  while read -r path; do
    printf '  SetOutPath "$INSTDIR\\%s"\n  File "%s"\n' "$(dirname "$path" | tr / '\\')" "$stage/$path"
  done <"$build/files"
  echo '!macroend'
  echo '!macro RemoveFiles'
  while read -r path; do printf '  Delete "$INSTDIR\\%s"\n' "${path//\//\\}"; done <"$build/files"
  while read -r path; do printf '  RMDir "$INSTDIR\\%s"\n' "${path//\//\\}"; done <"$build/folders"
  echo '!macroend'
}

# Of all that goes into the installer and the zip.
sum() {
  {
    sha256sum "$build/files.nsh" "$build/zelvo.ico" packaging/windows/setup.nsi tools/windows/build.sh
    (cd "$stage" && xargs -d '\n' sha256sum <"$build/files")
  } | sha256sum
}

make_setup() {
  local version
  version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$build/CMakeCache.txt")
  stage
  file_list >"$build/files.nsh"
  if [ -f "$out/DoctorZELVO-setup.exe" ] && [ -f "$out/DoctorZELVO.zip" ] && [ "$(cat "$build/packed" 2>/dev/null)" = "$(sum)" ]; then
    return
  fi
  rm -rf "$out" "$build/packed"
  mkdir -p "$out"
  (cd "$build" && cmake -E tar cf "$out/DoctorZELVO.zip" --format=zip DoctorZELVO)
  makensis -V2 -INPUTCHARSET UTF8 -DVERSION="$version" -DOUTPUT="$out/DoctorZELVO-setup.exe" -DICON="$build/zelvo.ico" \
    -DSIZE="$(du -sk "$stage" | cut -f1)" -DFILES="$build/files.nsh" packaging/windows/setup.nsi
  sum >"$build/packed"
  ls -l "$out"
}

build=$PWD/build-windows
preset=windows
if [ "$terminal" ]; then
  build=$PWD/build-windows-terminal
  preset=windows-terminal
fi
stage=$build/DoctorZELVO
out=$PWD/out/windows
# What CMake has found of older libraries is forgotten with them.
fresh=()
[ "$(cat "$build/libraries" 2>/dev/null)" = "$ZELVO_WINDOWS_LIBRARIES" ] || fresh=(--fresh)
cmake --preset "$preset" "${fresh[@]}" -DZELVO_TESTS="$([ "$tests" ] && echo ON || echo OFF)" >/dev/null
echo "$ZELVO_WINDOWS_LIBRARIES" >"$build/libraries"
ninja -C "$build" -j "$jobs" --quiet
[ "$terminal" ] || make_setup
[ "$tests" ] || exit 0

# A Windows of the tests' own; made before they start, for one that several find missing is made several times.
# Nothing of it runs on when they have ended, well or not.
export WINEPREFIX=$build/wine WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml= LC_ALL=C.UTF-8
trap 'wineserver -k 2>/dev/null || true; timeout 60 wineserver -w || true' EXIT
[ ! "$terminal" ] || [ -f "$WINEPREFIX/system.reg" ] || wine wineboot --init >/dev/null 2>&1
ctest --test-dir "$build" -j "$jobs" --output-on-failure
