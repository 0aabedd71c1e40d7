# Sourced by run.sh, test.sh and .ci/run: installs what is missing of a list of Debian packages, and nothing when all is there.
# Usage: need PACKAGE...; 3 where something is missing and this user can't install it.
need() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  echo "Installing: ${missing[*]}" >&2
  local apt=(apt-get)
  if [ "$(id -u)" -ne 0 ]; then
    # Where nobody can type a password, sudo has to do without.
    if ! command -v sudo >/dev/null || { [ ! -t 0 ] && ! sudo -n true 2>/dev/null; }; then
      echo "These packages are missing and need root to install: ${missing[*]}" >&2
      return 3
    fi
    apt=(sudo apt-get)
  fi
  export DEBIAN_FRONTEND=noninteractive
  "${apt[@]}" update -qq >&2
  "${apt[@]}" install -y -qq --no-install-recommends "${missing[@]}" >&2
}

build_packages=(g++ cmake ninja-build ccache pkg-config libsqlite3-dev libcurl4-openssl-dev libcpp-httplib-dev
                unixodbc-dev qt6-base-dev libxcb1-dev libgumbo-dev libidn2-dev)
run_packages=(sqlite3 ca-certificates fonts-nanum qt6-translations-l10n tdsodbc)
# Where the display is a Wayland one that runs no X programs.
wayland_packages=(qt6-wayland)
test_packages=(libgtest-dev libsqliteodbc libssl-dev openssl)
package_packages=(dpkg-dev file gzip lintian)
# A bare system in a folder, a screen for it and hands.
try_packages=(debootstrap imagemagick procps wmctrl xdotool openbox xvfb)
check_packages=(clang-format clang-tidy)
fuzz_packages=(clang libclang-rt-dev)
# A real display for the window tests: a server, a window manager, hands, a Korean input method.
display_packages=(xvfb openbox xdotool dbus dbus-daemon ibus ibus-hangul)

# For Windows: a compiler, what builds its libraries from Debian's sources, and what runs and tests the programs here.
windows_packages=(g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix mingw-w64-tools libz-mingw-w64-dev dpkg-dev make tcl googletest
                  wine wine64 libwine-dev)
windows_test_packages=(sqlite3 xvfb xdotool fonts-nanum)
# What the windows, the icon and the installer take beyond that.
windows_setup_packages=(qt6-base-dev-tools qt6-translations-l10n librsvg2-bin icoutils nsis)

# What was compiled once, in whatever folder, is not compiled again.
export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1 CCACHE_SLOPPINESS=pch_defines,time_macros
