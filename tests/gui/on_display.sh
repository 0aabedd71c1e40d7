#!/usr/bin/env bash
# Plays window tests on a real display of their own.
set -euo pipefail
usage() {
  cat <<'HELP'
usage: tests/gui/on_display.sh PROGRAM [ARGUMENT...]

Runs PROGRAM on an X server of its own, with a window manager and a Korean input method in a session bus of its own, and gives
its exit code. SCREEN in the environment names the screen's size, 1280x800 unless told.
HELP
}
case "${1-}" in
  --help|-h) usage; exit 0 ;;
  ''|-*) usage >&2; exit 2 ;;
esac

if [ -z "${ZELVO_DISPLAY-}" ]; then
  scratch=$(mktemp -d)
  mkfifo "$scratch/number"
  Xvfb -displayfd 3 -screen 0 "${SCREEN:-1280x800}x24" -nolisten tcp 3>"$scratch/number" 2>/dev/null &
  server=$!
  trap 'kill $server 2>/dev/null || true; wait $server 2>/dev/null || true; rm -rf "$scratch" || true' EXIT
  read -r number <"$scratch/number"
  export DISPLAY=":$number" ZELVO_DISPLAY=1 HOME=$scratch XDG_RUNTIME_DIR=$scratch XDG_CONFIG_HOME=$scratch/config \
    XDG_CACHE_HOME=$scratch/cache XDG_DATA_HOME=$scratch/data QT_QPA_PLATFORM=xcb QT_IM_MODULE=ibus \
    GSETTINGS_BACKEND=keyfile
  unset WAYLAND_DISPLAY IBUS_ADDRESS
  chmod 700 "$scratch"
  mkdir -p "$XDG_CONFIG_HOME/glib-2.0/settings"
  printf "[org/freedesktop/ibus/engine/hangul]\ninitial-input-mode='hangul'\noff-keys=''\n" >"$XDG_CONFIG_HOME/glib-2.0/settings/keyfile"
  dbus-run-session -- "$0" "$@"
  exit
fi

openbox 2>/dev/null &
trap 'kill $(jobs -p) 2>/dev/null || true' EXIT
if command -v ibus-daemon >/dev/null; then
  ibus-daemon --panel=disable --config=/usr/libexec/ibus-memconf &
  for _ in $(seq 300); do
    ibus engine hangul 2>/dev/null && export ZELVO_HANGUL=1 && break
    sleep 0.1
  done
fi
"$@"
