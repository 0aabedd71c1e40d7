#!/usr/bin/env bash
# Makes the libraries that the program needs on Windows, from Debian's own source packages, once into the user's cache
# folder; prints the folders they stand in, one list for CMake.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)

usage() {
  cat <<'TEXT'
usage: tools/windows/libraries.sh [--jobs N] [--made] [LIBRARY...]

Builds sqlite, curl, httplib, gumbo and qt, or those that are named, for Windows into
${XDG_CACHE_HOME:-~/.cache}/doctorzelvo-windows, each once for its version and the way it is built here, and
prints their folders with ";" between them. qt takes half an hour of two processors, the others a minute. Installs what
is missing (Debian 12); what it says goes to standard error. Exits 3 where no sources can be fetched, or a Debian
package is missing and this user can't install it.

--made makes nothing, and exits 1 where one of them has not been made yet.
TEXT
}

jobs=$(nproc)
made=
libraries=()
while [ $# -gt 0 ]; do
  case "$1" in
    --help|-h) usage; exit 0 ;;
    --jobs) jobs=$2; shift 2 ;;
    --made) made=yes; shift ;;
    sqlite|curl|httplib|gumbo|qt) libraries+=("$1"); shift ;;
    *) usage >&2; exit 2 ;;
  esac
done
[ ${#libraries[@]} -gt 0 ] || libraries=(sqlite curl httplib gumbo qt)

# shellcheck source=../setup.sh
. "$root/tools/setup.sh"
need "${build_packages[@]}" "${windows_packages[@]}"
case " ${libraries[*]} " in *" gumbo "*) command -v npm >/dev/null || need npm ;; esac

cache=${XDG_CACHE_HOME:-$HOME/.cache}/doctorzelvo-windows
triplet=x86_64-w64-mingw32
compiler=$triplet-gcc-posix
mkdir -p "$cache"
# One run at a time writes there.
if [ ! "$made" ]; then
  exec 9>"$cache/lock"
  flock --nonblock 9 || { echo 'Waiting for another run that makes libraries' >&2; flock 9; }
fi

# apt with folders of its own: the machine's sources, asked for source packages. The machine's lists stay as they are.
own_apt() {
  apt-get -o Dir::Etc::SourceList=/dev/null -o Dir::Etc::SourceParts="$cache/apt/sources" -o Dir::State::Lists="$cache/apt/lists" \
    -o Dir::Cache="$cache/apt/cache" -o APT::Sandbox::User="$(id -un)" -qq "$@"
}

# The index of the source packages of this Debian, fetched at the first package that is wanted from it.
fetch_index() {
  local release file
  release=$(. /etc/os-release && echo "$VERSION_CODENAME")
  mkdir -p "$cache/apt/sources" "$cache/apt/lists/partial" "$cache/apt/cache/archives/partial"
  for file in /etc/apt/sources.list.d/*.sources; do
    [ -f "$file" ] || continue
    awk -v RS= -v ORS='\n\n' -v release="$release" '$0 ~ "Suites:[^\n]*" release' "$file" |
      sed 's/^Types:.*/Types: deb-src/' >"$cache/apt/sources/${file##*/}"
  done
  cat /etc/apt/sources.list /etc/apt/sources.list.d/*.list 2>/dev/null | grep -E "^deb .* $release" |
    sed 's/^deb /deb-src /' >"$cache/apt/sources/machine.list" || true
  own_apt update >&2
}

# Unpacks the source of a package that is installed here, in its version or, where the archive has moved on, in the newest.
fetch_source() {
  local package=$1 version=$2
  [ "${index_fetched-}" ] || fetch_index
  index_fetched=yes
  rm -rf "$work/source" "$work/download"
  mkdir -p "$work/download"
  (cd "$work/download" && { own_apt source --download-only "$package=$version" || own_apt source --download-only "$package"; } &&
    dpkg-source --no-check -x ./*.dsc "$work/source") >&2 || return 1
  rm -rf "$work/download"
}

# The same from the registry of JavaScript packages, for a package whose sources Debian's archive no longer has: PACKAGE FOLDER
# SHA512. Other contents than those end the run.
fetch_from_registry() {
  rm -rf "$work/source" "$work/download"
  mkdir -p "$work/download"
  (cd "$work/download" && npm pack --silent "$1") >&2 || return 1
  (cd "$work/download" && sha512sum --check --quiet - <<<"$3  $(echo *.tgz)") >&2 || exit 1
  (cd "$work/download" && tar xzf ./*.tgz && mv "package/$2" "$work/source") >&2 || return 1
  rm -rf "$work/download"
}

# Configures with CMake, builds and installs into the library's folder.
with_cmake() {
  local source=$1
  shift
  cmake -S "$source" -B "$work/build" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$root/cmake/windows.cmake" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_INSTALL_PREFIX="$prefix" -DBUILD_SHARED_LIBS=OFF "$@"
  ninja -C "$work/build" -j "$jobs" --quiet install
}

# The amalgamation is made with this machine's own tools, then compiled as one file, with the options of Debian's build
# that the program meets.
build_sqlite() {
  mkdir -p "$work/build" "$prefix/include" "$prefix/lib"
  cd "$work/build"
  ../source/configure --disable-tcl --disable-readline >/dev/null
  make --silent sqlite3.c
  $compiler -O2 -DNDEBUG -DSQLITE_THREADSAFE=1 -DSQLITE_ENABLE_COLUMN_METADATA -DSQLITE_MAX_VARIABLE_NUMBER=250000 \
    -c sqlite3.c -o sqlite3.o
  $triplet-gcc-ar-posix rcs "$prefix/lib/libsqlite3.a" sqlite3.o
  cp sqlite3.h sqlite3ext.h "$prefix/include"
}

# Certificates are checked by Windows itself, against those that it trusts.
build_curl() {
  with_cmake "$work/source" -DBUILD_CURL_EXE=OFF -DBUILD_TESTING=OFF -DHTTP_ONLY=ON -DCURL_USE_SCHANNEL=ON -DCURL_ZLIB=ON \
    -DCURL_USE_LIBSSH2=OFF -DCURL_USE_LIBPSL=OFF -DUSE_LIBIDN2=OFF -DENABLE_MANUAL=OFF -DENABLE_UNIX_SOCKETS=OFF
}

# The whole of it is a header here.
build_httplib() {
  mkdir -p "$prefix/include" "$prefix/lib/pkgconfig"
  cp "$work/source/httplib.h" "$prefix/include"
  printf 'prefix=%s\nName: cpp-httplib\nDescription: HTTP server\nVersion: 0.11\nLibs: -lws2_32\nCflags: -I${prefix}/include\n' \
    "$prefix" >"$prefix/lib/pkgconfig/cpp-httplib.pc"
}

# The page parser by its C sources, which the registry's package carries in the form that Debian's package has.
build_gumbo() {
  local object objects=() file
  mkdir -p "$prefix/include" "$prefix/lib/pkgconfig" "$work/build"
  cd "$work/source"
  for file in *.c; do
    object="$work/build/${file%.c}.o"
    $compiler -std=gnu99 -O2 -DNDEBUG -c "$file" -o "$object"
    objects+=("$object")
  done
  $triplet-gcc-ar-posix rcs "$prefix/lib/libgumbo.a" "${objects[@]}"
  cp gumbo.h tag_enum.h "$prefix/include"
  printf 'prefix=%s\nName: gumbo\nDescription: HTML parser\nVersion: 0.10.1\nLibs: -L${prefix}/lib -lgumbo\nCflags: -I${prefix}/include\n' \
    "$prefix" >"$prefix/lib/pkgconfig/gumbo.pc"
}

# What the windows use of the toolkit, linked in whole; its own tools are those of this machine. Debian's source has no
# header of pen tablets.
build_qt() {
  with_cmake "$work/source" -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake \
    -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DQT_BUILD_TOOLS_BY_DEFAULT=OFF \
    -DFEATURE_sql=OFF -DFEATURE_network=OFF -DFEATURE_xml=OFF -DFEATURE_dbus=OFF -DFEATURE_opengl=OFF -DFEATURE_icu=OFF \
    -DFEATURE_testlib=OFF -DFEATURE_concurrent=OFF -DFEATURE_tabletevent=OFF -DFEATURE_glib=OFF -DFEATURE_vulkan=OFF \
    -DFEATURE_androiddeployqt=OFF -DINPUT_opengl=no \
    -DFEATURE_system_zlib=OFF -DFEATURE_system_png=OFF -DFEATURE_system_jpeg=OFF -DFEATURE_system_freetype=OFF \
    -DFEATURE_system_harfbuzz=OFF -DFEATURE_system_pcre2=OFF -DFEATURE_system_doubleconversion=OFF
  # It would have every program that it is linked into export a place for debuggers.
  $triplet-objcopy --remove-section .drectve "$prefix/lib/libQt6Core.a"
}

# library, its source package, the package of this machine whose version it follows
package_of() {
  case "$1" in
    sqlite) echo sqlite3 libsqlite3-dev ;;
    curl) echo curl libcurl4-openssl-dev ;;
    httplib) echo cpp-httplib libcpp-httplib-dev ;;
    gumbo) echo gumbo-parser libgumbo-dev ;;
    qt) echo qt6-base qt6-base-dev ;;
  esac
}

gumbo_sum=19ac347294b98dae9de0e93d1522b61123f430e1d0f25b51602c5618b3255f0bc6459016919dd2a9be454d3d0c6e3c8691a9379130780bb80c583362a0a3f484

# Builds a library unless it stands there, made from the same version in the same way by the same compiler. A build that
# was broken off goes on where it was.
folders=()
for library in "${libraries[@]}"; do
  read -r source_package installed <<<"$(package_of "$library")"
  version=$(dpkg-query -W -f='${source:Version}' "$installed")
  key=$({ declare -f "build_$library" with_cmake; cat "$root/cmake/windows.cmake"; $compiler -dumpfullversion; } | sha256sum | cut -c1-12)
  prefix="$cache/$library-${version//[^0-9A-Za-z.]/_}-$key"
  folders+=("$prefix")
  [ -f "$prefix/whole" ] && continue
  [ ! "$made" ] || exit 1
  work="$cache/work/${prefix##*/}"
  echo "Building $library $version for Windows" >&2
  mkdir -p "$work"
  if [ ! -f "$work/fetched" ]; then
    fetched=yes
    case "$library" in
      gumbo) fetch_from_registry gumbo-parser@0.3.0 deps/gumbo-parser/src "$gumbo_sum" || fetched= ;;
      *) fetch_source "$source_package" "$version" || fetched= ;;
    esac
    [ "$fetched" ] || { echo "The sources of $library can't be fetched." >&2; exit 3; }
    touch "$work/fetched"
  fi
  rm -rf "$prefix"
  (set -e; "build_$library") >&2
  touch "$prefix/whole"
  rm -rf "$work"
done
(IFS=';'; echo "${folders[*]}")
