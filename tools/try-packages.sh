#!/usr/bin/env bash
# Tries the Debian packages on a bare Debian 12 in a folder.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

usage() {
  cat <<'HELP'
usage: tools/try-packages.sh [--root DIR] [--picture FILE] [--packages DIR] [--help]

As root, with the packages that tools/package.sh has made: sets up a bare Debian 12 in a folder (debootstrap; DIR is one that
stands there already, and is kept), installs the demo with apt, looks at its menu entry, metainfo, icon, man pages and debug
symbols, opens the sample chart by its entry in a menu, in English and in Korean, on a screen that nobody sees, builds a chart
of its own against the -dev package, and purges all of it: every file of that system, its rights, and what dpkg knows are then
as they were with the same libraries and without ours.
  --picture FILE    what was to be seen of the sample chart and its order window, in Korean
  --packages DIR    packages that stand elsewhere than in build-package/packages
Exits 3 on a machine where no other root can be set up or entered.
HELP
}

root='' picture='' packages=build-package/packages
while [ $# -gt 0 ]; do
  case "$1" in
    --help|-h) usage; exit 0 ;;
    --root|--picture|--packages) [ $# -ge 2 ] || { usage >&2; exit 2; }; declare "${1#--}=$2"; shift 2 ;;
    *) usage >&2; exit 2 ;;
  esac
done
fail() {
  echo "tools/try-packages.sh: $1" >&2
  exit 1
}
# impossible WHAT: it is this machine that does not let us, not the packages.
impossible() {
  echo "tools/try-packages.sh: not tried: $1" >&2
  exit 3
}
[ "$(id -u)" -eq 0 ] || impossible "only root can set up another root"
compgen -G "$packages/*.deb" >/dev/null || fail "no packages: tools/package.sh makes them"
# shellcheck source=setup.sh
. tools/setup.sh
need "${try_packages[@]}"

kept=$root
# Its users enter it, too.
[ -n "$root" ] || { root=$(mktemp -d) && chmod 755 "$root"; }
display='' manager='' policy=''
clean() {
  [ -z "$policy" ] || rm -f "$policy"
  [ -z "$manager" ] || kill "$manager" 2>/dev/null || true
  [ -z "$display" ] || kill "$display" 2>/dev/null || true
  umount "$root/tmp/.X11-unix" "$root/proc" 2>/dev/null || true
  ! mountpoint -q "$root/tmp/.X11-unix" || return 0
  [ -n "$kept" ] || rm -rf --one-file-system "$root"
}
trap clean EXIT
if ! { mkdir -p "$root/proc" && mount -t proc proc "$root/proc" && chroot / true; } 2>/dev/null; then
  impossible "this machine lets nobody mount"
fi
umount "$root/proc"
if [ ! -x "$root/usr/bin/apt-get" ]; then
  echo "== a bare Debian 12"
  mirror=$(apt-get indextargets --format '$(SITE)' 'Created-By: Packages' 'Codename: bookworm' | head -1)
  debootstrap --variant=minbase bookworm "$root" ${mirror:+"$mirror"} >"$root.log" 2>&1 || {
    tail -3 "$root.log" >&2
    impossible "debootstrap could not set up a bare system"
  }
  rm -f "$root.log"
fi
mkdir -p "$root/tmp/.X11-unix" "$root/tmp/packages"
mount -t proc proc "$root/proc"
cp "$packages"/*.deb "$root/tmp/packages/"
# There is nobody who starts a service.
if [ ! -e "$root/usr/sbin/policy-rc.d" ]; then
  policy=$root/usr/sbin/policy-rc.d
  printf '#!/bin/sh\nexit 101\n' >"$policy"
  chmod +x "$policy"
fi
within() { chroot "$root" /usr/bin/env -i HOME="${home:-/root}" PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive DEBCONF_NOWARNINGS=yes "$@"; }
install() { within apt-get -o Dpkg::Use-Pty=0 install -y -qq --no-install-recommends "$@" >/dev/null; }
# needed FILE...: what apt would install for these packages, but for themselves.
needed() { within apt-get -s install -y -qq --no-install-recommends "$@" | sed -n 's/^Inst \([^ ]*\).*/\1/p' | grep -v zelvo; }
# Every file with its rights, what /etc says, and what dpkg knows; not what caches and the user keep.
state() {
  (cd "$root" && find . -xdev \( -path ./proc -o -path ./tmp -o -path ./home -o -path ./run -o -path ./var/cache -o -path ./var/log \
    -o -path ./var/lib/apt \) -prune -o ! -path './var/lib/dpkg/*-old' -printf '%y %m %u %g %p %l\n' | sort
    find etc -type f ! -name ld.so.cache -exec md5sum {} + | sort)
  within dpkg-query -W -f '${db:Status-Abbrev} ${Package} ${Version}\n${Conffiles}\n'
}
purged() {
  state >"$root/tmp/before"
  "$@"
  within apt-get -o Dpkg::Use-Pty=0 purge -y -qq '?name(zelvo)' >/dev/null
  state | diff "$root/tmp/before" - >&2 || fail "the purge left this, or took it"
}
user() { within setpriv --reuid=clinic --regid=clinic --init-groups env -u LC_ALL DISPLAY=":$number" "$@"; }
of_user() { pgrep -u "$(chroot "$root" id -u clinic)" "$@"; }

# seen WINDOW...: the window that xdotool finds by this, once it is there.
seen() {
  local window
  window=$(timeout 60 xdotool search --sync --onlyvisible "$@" | head -1) || true
  [ -n "$window" ] || { cat "$root/tmp/chart.log" >&2; fail "no window came up: $*"; }
  xdotool getwindowname "$window" >&2
  echo "$window"
}
# open_chart LANGUAGE ENTRY: chooses an entry of the menu as that language's users read it, opens an order and closes all.
open_chart() {
  local window order
  home=/home/clinic user LANG="$1" j4-dmenu-desktop --no-generic --dmenu="grep -Fx '$2'" >"$root/tmp/chart.log" 2>&1 &
  window=$(seen --class zelvo-chart)
  sleep 2
  xdotool windowfocus "$window" key Return
  order=$(seen --name 'ZEL-VO')
  sleep 3
  [ -z "$picture" ] || import -window root "$picture"
  wmctrl -i -c "$order"
  sleep 1
  wmctrl -i -c "$window"
  # With the last demo its server ends.
  for _ in $(seq 100); do
    of_user zelvo >/dev/null || return 0
    sleep 0.2
  done
  of_user -a zelvo >&2
  fail "these did not end with the chart"
}
# What a desktop and a reader of its papers take from the packages.
try_papers() {
  local share=/usr/share page said
  within desktop-file-validate $share/applications/org.doctorzelvo.Chart.desktop
  within appstreamcli validate --no-net $share/metainfo/org.doctorzelvo.Chart.metainfo.xml
  within sh -c "find $share/icons -name \"\$(sed -n 's/^Icon=//p' $share/applications/org.doctorzelvo.Chart.desktop).*\" | grep ." ||
    fail "the menu's entry has no icon"
  for page in zelvo zelvo-chart zelvo-demo zelvo-pharmacy; do
    said=$(within man --warnings "$page" 2>&1 >"$root/tmp/page") || fail "no man page: $page"
    [ -z "$said" ] || fail "the man page $page: $said"
    grep -q "^NAME" "$root/tmp/page" || fail "the man page $page can't be read"
  done
}
# The debug symbols, found by whoever has the library's address alone.
try_symbols() {
  local file address said
  install "$symbols"
  file=$(within sh -c 'echo /usr/lib/*/libDoctorZELVO.so.*.*')
  address=$(within nm -D --defined-only "$file" | sed -nE 's/^([0-9a-f]+) T doctorzelvo_open(@.*)?$/\1/p')
  said=$(within addr2line -f -e "$file" "$address")
  echo "doctorzelvo_open: ${said##*$'\n'}"
  [[ $said = *.cpp:[0-9]* ]] || fail "the debug symbols were not found: $said"
}
try_demo() {
  install "$library" "$demo"
  for program in zelvo zelvo-chart zelvo-demo zelvo-pharmacy; do within "$program" --version; done
  try_papers
  try_symbols
  open_chart C.UTF-8 'ZELVO Sample Chart'
  open_chart ko_KR.UTF-8 'ZELVO 예제 차트'
}
try_development() {
  install "$library" "$development"
  cp -r tests/hosts/find-package demo/chart/caller.c "$root/tmp/"
  within sh -ec 'cmake -S /tmp/find-package -B /tmp/chart >/dev/null && cmake --build /tmp/chart >/dev/null
    cc -std=c11 -Wall -Werror /tmp/caller.c -o /tmp/caller $(pkg-config --cflags --libs doctorzelvo)'
  for chart in /tmp/chart/chart /tmp/caller; do
    said=$(within "$chart" sqlite:/nowhere doctor1 2>&1) && fail "$chart found a display"
    [[ $said = *"no display can be reached"* ]] || fail "$chart said: $said"
    echo "$chart: $said"
  done
}

# The packages, as that root sees them.
library=/tmp/packages/$(basename "$packages"/libdoctorzelvo1_*.deb) demo=/tmp/packages/$(basename "$packages"/doctorzelvo-demo_*.deb)
development=/tmp/packages/$(basename "$packages"/libdoctorzelvo-dev_*.deb) symbols=/tmp/packages/$(basename "$packages"/libdoctorzelvo1-dbgsym_*.deb)
within apt-get update -qq
# What a desktop has that a bare machine has not: a menu, Korean, and a user; and what reads the packages' papers and symbols.
install j4-dmenu-desktop locales desktop-file-utils appstream man-db binutils
within localedef -i ko_KR -f UTF-8 ko_KR.UTF-8
within id clinic >/dev/null 2>&1 || within useradd --create-home clinic
# shellcheck disable=SC2046
install $(needed "$library" "$demo")
rm -f "$root/tmp/display"
Xvfb -displayfd 6 -screen 0 1280x800x24 -nolisten tcp 6>"$root/tmp/display" 2>/dev/null &
display=$!
until [ -s "$root/tmp/display" ]; do sleep 0.1; done
number=$(cat "$root/tmp/display")
export DISPLAY=:$number
openbox >/dev/null 2>&1 &
manager=$!
mount --bind /tmp/.X11-unix "$root/tmp/.X11-unix"

echo "== the sample chart, from the menu"
purged try_demo
echo "What is left is the user's own:"
(cd "$root/home/clinic" && find . -iname '*zelvo*')

echo "== a chart of one's own, against the -dev package"
# shellcheck disable=SC2046
install g++ cmake make pkg-config $(needed "$library" "$development")
purged try_development
