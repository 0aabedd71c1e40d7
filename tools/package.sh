#!/usr/bin/env bash
# Makes the Debian packages and the notes of a release.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

usage() {
  cat <<'HELP'
usage: tools/package.sh [--twice] [--help]

Installs what is missing (Debian 12), builds a release into build-package/ and puts into build-package/packages/
libdoctorzelvo1, libdoctorzelvo-dev, doctorzelvo-demo, the debug symbols of both (-dbgsym), and NOTES.md: what the release
changes, what the library takes with its debug information and without, and the hash of the library and of each package.
lintian looks at all of them, and an error that it finds ends this.
  --twice    builds the commit once more, from a folder of its own, and compares the library and the packages
               byte for byte
HELP
}

twice=
while [ $# -gt 0 ]; do
  case "$1" in
    --help|-h) usage; exit 0 ;;
    --twice) twice=yes; shift ;;
    *) usage >&2; exit 2 ;;
  esac
done
if [ -n "$twice" ] && [ -n "$(git status --porcelain)" ]; then
  echo "tools/package.sh: --twice builds what is committed, and something is not" >&2
  exit 1
fi

# shellcheck source=setup.sh
. tools/setup.sh
need "${build_packages[@]}" "${package_packages[@]}"
umask 022
# The day of the commit is the day of all that is made.
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH
# Neither flags of this shell nor the relative paths that ccache would make of ours.
unset CFLAGS CXXFLAGS LDFLAGS CCACHE_BASEDIR CCACHE_NOHASHDIR

# build FOLDER: the release of the tree that stands here.
build() {
  cmake -S . -B "$1" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZELVO_TESTS=OFF -DCMAKE_INSTALL_PREFIX=/usr \
    -DCMAKE_SKIP_INSTALL_RPATH=ON "-DCMAKE_CXX_FLAGS=-fstack-protector-strong -D_FORTIFY_SOURCE=2" \
    "-DCMAKE_SHARED_LINKER_FLAGS=-Wl,-z,relro,-z,now" "-DCMAKE_EXE_LINKER_FLAGS=-pie -Wl,-z,relro,-z,now" >/dev/null
  ninja -C "$1" -j "$(nproc)" --quiet DoctorZELVO zelvo zelvo-chart zelvo-pharmacy
}
library() { readlink -f "$1/lib/libDoctorZELVO.so"; }
installed_library() {
  dpkg-deb --fsys-tarfile build-package/packages/libdoctorzelvo1_*.deb | tar -xO --wildcards './usr/lib/*/libDoctorZELVO.so.*.*'
}
# finished FILE: the package as apt and lintian know one. It calls ldconfig by its trigger alone, debug symbols stand under
# the name of their package and with its papers, and its sums name what is in it, not where it was made.
finished() {
  local tree name
  tree=$(mktemp -d)
  dpkg-deb -R "$1" "$tree/package"
  name=$(dpkg-deb -f "$1" Package)
  rm "$1"
  if [ -f "$tree/package/DEBIAN/triggers" ]; then rm -f "$tree"/package/DEBIAN/postinst "$tree"/package/DEBIAN/postrm; fi
  if [ "${name%-dbgsym}" != "$name" ]; then
    find "$tree/package/usr/lib/debug" -type f -exec chmod 644 {} +
    mkdir -p "$tree/package/usr/share/doc"
    ln -s "${name%-dbgsym}" "$tree/package/usr/share/doc/$name"
    sed -i '/^Package-Type:/d' "$tree/package/DEBIAN/control"
  fi
  (cd "$tree/package" && find usr -type f -print0 | sort -z | xargs -0 md5sum >DEBIAN/md5sums)
  chmod 644 "$tree/package/DEBIAN/md5sums"
  dpkg-deb --root-owner-group -Zxz --threads-max="$(nproc)" -b "$tree/package" "${1%.*}.deb" >/dev/null
  rm -rf "$tree"
}
# pack FOLDER: the packages of what was built there.
pack() {
  local package
  rm -rf "$1/packages"
  cpack --config "$1/CPackConfig.cmake" -B "$1/packages" >"$1/cpack.log" || { cat "$1/cpack.log"; return 1; }
  rm -rf "$1/packages/_CPack_Packages"
  for package in "$1"/packages/*.deb "$1"/packages/*.ddeb; do finished "$package"; done
}
bytes() { wc -c | sed -E ':next; s/([0-9])([0-9]{3})($|,)/\1,\2\3/; t next'; }
hash_of() { sha256sum "$1" | cut -d' ' -f1; }

build build-package
pack build-package
packages=(build-package/packages/*.deb)
lintian --fail-on error --allow-root --suppress-tags initial-upload-closes-no-bugs "${packages[@]}"

if [ -n "$twice" ]; then
  scratch=$(mktemp -d)
  trap 'rm -rf "$scratch"' EXIT
  git archive HEAD | tar -x -C "$scratch"
  # A shell of its own, which ends at its first failure.
  (cd "$scratch"; export CCACHE_DISABLE=1; build elsewhere; pack elsewhere)
  cmp "$(library build-package)" "$(library "$scratch/elsewhere")"
  for package in "${packages[@]}"; do cmp "$package" "$scratch/elsewhere/packages/${package##*/}"; done
  echo "The library and all packages are the same, byte for byte, from another folder."
fi

{
  # The newest release of the changes.
  awk '/^## / { if (++releases == 2) exit } releases' CHANGELOG.md
  echo "### What the library takes"
  echo
  echo "| | bytes |"
  echo "|---|---|"
  echo "| with its debug information, as it is built | $(bytes <"$(library build-package)") |"
  echo "| as it is installed; its debug information is in \`libdoctorzelvo1-dbgsym\` | $(installed_library | bytes) |"
  echo "| packed, with all that \`libdoctorzelvo1\` brings | $(bytes <"$(echo build-package/packages/libdoctorzelvo1_*.deb)") |"
  echo "| the debug information, packed | $(bytes <"$(echo build-package/packages/libdoctorzelvo1-dbgsym_*.deb)") |"
  echo
  echo "### SHA-256"
  echo
  echo "Of commit $(git rev-parse --short=12 HEAD)$([ -z "$(git status --porcelain)" ] || echo " with changes"), built on Debian 12 by $(c++ --version | head -1)."
  echo
  echo '```'
  echo "$(hash_of "$(library build-package)")  libDoctorZELVO.so, with its debug information"
  echo "$(installed_library | sha256sum | cut -d' ' -f1)  libDoctorZELVO.so, as it is installed"
  for package in "${packages[@]}"; do echo "$(hash_of "$package")  ${package##*/}"; done
  echo '```'
} >build-package/packages/NOTES.md
ls -l build-package/packages
sed -n '/^| /p' build-package/packages/NOTES.md
