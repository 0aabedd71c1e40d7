# Sourced by the tests of whole programs for Windows: a Windows of their own, and a screen that nobody sees. A failure tells
# the case and the ends of what was written to "$scratch"/*.out.
case=start
scratch=$(mktemp -d)
# The menu of this machine's user stays as it is.
export WINEPREFIX=$scratch/wine WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe=' LC_ALL=C.UTF-8
trap 'kill $(jobs -p) 2>/dev/null || true; wineserver -k 2>/dev/null || true; rm -rf "$scratch" || true' EXIT
trap 'echo "$case: line $LINENO" >&2' ERR
fail() { echo "$case: $*" >&2; tail -n 5 "$scratch"/*.out >&2 || true; exit 1; }
# Waits for what may take a while on a machine that has more to do.
within() { for _ in $(seq 300); do eval "$1" && return; sleep 0.05; done; fail "not within 15 s: $1"; }
# A chart is known by its window in front.
Xvfb -displayfd 3 -screen 0 "${SCREEN:-640x480}x24" -nolisten tcp 3>"$scratch/display" 2>/dev/null &
within '[ -s "$scratch/display" ]'
DISPLAY=:$(cat "$scratch/display")
export DISPLAY
case='the first start of Windows'
timeout 180 wine wineboot --init >/dev/null 2>&1 || fail 'not within three minutes'
timeout 60 wineserver -w || fail 'not at rest within a minute'
