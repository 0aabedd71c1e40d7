#!/usr/bin/env bash
# Tries the Debian packages on a bare Debian 12 in a folder.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

usage() {
  cat <<'HELP'
usage: tools/try-packages.sh [--root DIR] [--picture FILE] [--packages DIR] [--help]

As root, with the packages that tools/package.sh has made: sets up a bare Debian 12 in a folder (debootstrap; DIR is one that
stands there already, and is kept), installs the demo with apt, opens the sample chart by its entry in the menu on a screen
that nobody sees, builds a chart of its own against the -dev package, and purges all of it.
  --picture FILE    what was to be seen of the sample chart and its order window
  --packages DIR    packages that stand elsewhere than in build-package/packages
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
[ "$(id -u)" -eq 0 ] || fail "only root can set up another root"
compgen -G "$packages/*.deb" >/dev/null || fail "no packages: tools/package.sh makes them"
# shellcheck source=setup.sh
. tools/setup.sh
need debootstrap imagemagick procps wmctrl xdotool openbox xvfb

kept=$root
[ -n "$root" ] || root=$(mktemp -d)
display='' manager=''
clean() {
  [ -z "$manager" ] || kill "$manager" 2>/dev/null || true
  [ -z "$display" ] || kill "$display" 2>/dev/null || true
  umount "$root/tmp/.X11-unix" "$root/proc" 2>/dev/null || true
  ! mountpoint -q "$root/tmp/.X11-unix" || return 0
  [ -n "$kept" ] || rm -rf --one-file-system "$root"
}
trap clean EXIT
if [ ! -x "$root/usr/bin/apt-get" ]; then
  echo "== a bare Debian 12"
  mirror=$(apt-get indextargets --format '$(SITE)' 'Created-By: Packages' 'Codename: bookworm' | head -1)
  debootstrap --variant=minbase bookworm "$root" ${mirror:+"$mirror"} >"$root.log" 2>&1 || { tail -5 "$root.log" >&2; exit 1; }
  rm -f "$root.log"
fi
mkdir -p "$root/tmp/.X11-unix" "$root/tmp/packages"
mount -t proc proc "$root/proc"
cp "$packages"/*.deb "$root/tmp/packages/"
# There is nobody who starts a service.
printf '#!/bin/sh\nexit 101\n' >"$root/usr/sbin/policy-rc.d"
chmod +x "$root/usr/sbin/policy-rc.d"
within() { chroot "$root" /usr/bin/env -i HOME="${home:-/root}" PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive DEBCONF_NOWARNINGS=yes "$@"; }
ours() { (cd "$root" && find . -xdev -iname '*zelvo*' -not -path './tmp/*' -not -path './home/*' -not -path './proc/*' | sort); }

echo "== apt install"
within apt-get update -qq
within sh -c 'apt-get -o Dpkg::Use-Pty=0 install -y -qq --no-install-recommends /tmp/packages/libdoctorzelvo1_*.deb /tmp/packages/doctorzelvo-demo_*.deb' >/dev/null
for program in zelvo zelvo-chart zelvo-demo zelvo-pharmacy; do within "$program" --version; done

echo "== the sample chart, from the menu"
# What a desktop has that a bare machine has not: somebody who opens an entry of the menu, and a user.
within apt-get -o Dpkg::Use-Pty=0 install -y -qq --no-install-recommends libglib2.0-bin >/dev/null
within id clinic >/dev/null 2>&1 || within useradd --create-home clinic
rm -f "$root/tmp/display"
Xvfb -displayfd 6 -screen 0 1280x800x24 -nolisten tcp 6>"$root/tmp/display" 2>/dev/null &
display=$!
until [ -s "$root/tmp/display" ]; do sleep 0.1; done
number=$(cat "$root/tmp/display")
DISPLAY=:$number openbox >/dev/null 2>&1 &
manager=$!
mount --bind /tmp/.X11-unix "$root/tmp/.X11-unix"
home=/home/clinic
within setpriv --reuid=clinic --regid=clinic --init-groups env DISPLAY=":$number" \
  gio launch /usr/share/applications/org.doctorzelvo.Chart.desktop >"$root/tmp/chart.log" 2>&1 &
export DISPLAY=:$number
window=$(timeout 60 xdotool search --sync --onlyvisible --class zelvo-chart | head -1) || true
[ -n "$window" ] || { cat "$root/tmp/chart.log" >&2; fail "the chart did not open"; }
xdotool getwindowname "$window"
# Enter on the first patient: the order window.
sleep 2
xdotool windowfocus "$window" key Return
order=$(timeout 60 xdotool search --sync --onlyvisible --name 'ZEL-VO' | head -1) || true
[ -n "$order" ] || { cat "$root/tmp/chart.log" >&2; fail "Enter on a patient opened no window"; }
xdotool getwindowname "$order"
sleep 3
[ -z "$picture" ] || import -window root "$picture"
wmctrl -i -c "$order"
sleep 1
wmctrl -i -c "$window"
# With the last demo its server ends.
for _ in $(seq 100); do
  pgrep -u "$(chroot "$root" id -u clinic)" zelvo >/dev/null || break
  sleep 0.2
done
pgrep -u "$(chroot "$root" id -u clinic)" -a zelvo && fail "these did not end with the chart"

echo "== a chart of one's own, against the -dev package"
home=/root
within sh -c 'apt-get -o Dpkg::Use-Pty=0 install -y -qq --no-install-recommends /tmp/packages/libdoctorzelvo-dev_*.deb g++ cmake make pkg-config' >/dev/null
cp -r tests/hosts/find-package demo/chart/caller.c "$root/tmp/"
within sh -ec 'cmake -S /tmp/find-package -B /tmp/chart >/dev/null && cmake --build /tmp/chart >/dev/null
  cc -std=c11 -Wall -Werror /tmp/caller.c -o /tmp/caller $(pkg-config --cflags --libs doctorzelvo)'
for chart in /tmp/chart/chart /tmp/caller; do
  said=$(within "$chart" sqlite:/nowhere doctor1 2>&1) && fail "$chart found a display"
  [[ $said = *"no display can be reached"* ]] || fail "$chart said: $said"
  echo "$chart: $said"
done

echo "== purge"
within apt-get -o Dpkg::Use-Pty=0 purge -y -qq doctorzelvo-demo libdoctorzelvo-dev libdoctorzelvo1 >/dev/null
[ -z "$(ours)" ] || { ours >&2; fail "the purge left these"; }
echo "What is left is the user's own:"
(cd "$root/home/clinic" && find . -iname '*zelvo*')
