#!/usr/bin/env bash
# Builds DoctorZELVO, starts the demo pharmacy and opens a chart on it; without a display it sends an order from a chart's
# call to the database and back.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

usage() {
  cat <<'TEXT'
usage: ./run.sh [--fresh]                 a chart with a few patients, on the demo pharmacy; without a display: scenario
       ./run.sh [--fresh] scenario        a whole order in the console, and once more through the windows, with a
                                          picture of each step in out/
       ./run.sh doctor|nurse [OPTION...]  a doctor's or a nurse's window
       ./run.sh doctor|nurse --console [--script FILE] [OPTION...]  the same in the terminal, worked by commands
       ./run.sh --build-only              builds the programs into build/bin
       ./run.sh --help

Installs what is missing (Debian 12), builds incrementally into build/. The demo pharmacy's database stands in the user's
data folder and lasts from run to run; --fresh, before anything else, makes it anew. Options of a session, such as
--patient-name 김하늘, are those of `build/bin/zelvo --help`; the demo's own values stand in for those not given.
TEXT
}

fresh=()
mode=
case "${1-}" in
  --help|-h) usage; exit 0 ;;
  --fresh) fresh=(--fresh); shift ;;
esac
case "${1-}" in
  '') ;;
  --build-only) mode=build ;;
  scenario) mode=scenario ;;
  doctor|nurse) mode=$1; shift ;;
  *) usage >&2; exit 2 ;;
esac

# shellcheck source=tools/setup.sh
. tools/setup.sh
need "${build_packages[@]}" "${run_packages[@]}"
if [ -n "${WAYLAND_DISPLAY-}" ] && [ -z "${DISPLAY-}" ]; then need "${wayland_packages[@]}"; fi

# The configuration is made once; the build system itself sees when it has to be made again. Another build folder can be
# named, so that what stands there already is not built twice.
build=${ZELVO_BUILD:-build}
[ -f "$build/build.ninja" ] || cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZELVO_TESTS=OFF >&2
ninja -C "$build" --quiet zelvo zelvo-chart zelvo-pharmacy zelvo-stage >&2
[ "$mode" = build ] && exit 0

# A login that has ended leaves the name of its display behind: what counts is that somebody answers.
has_display() { [ -n "${DISPLAY-}${WAYLAND_DISPLAY-}" ] && "$build"/bin/zelvo-stage --display; }
if [ -z "$mode" ]; then
  mode=scenario
  if has_display; then mode=chart; fi
fi

bin=$build/bin
# shellcheck disable=SC2034
shared=$build/share/doctorzelvo
# shellcheck source=demo/session.sh
. demo/session.sh
open_pharmacy "${fresh[@]}"

status=0
case "$mode" in
  chart)
    session_options clinic
    "$bin"/zelvo-chart "${options[@]}" 7>&- 8>&- || status=$?
    exit "$status"
    ;;
  doctor|nurse)
    session_options "$mode"
    "$bin"/zelvo "$mode" "${options[@]}" "$@" 7>&- 8>&- || status=$?
    exit "$status"
    ;;
esac

# The scenario once more, through the real windows on a screen that nobody sees: a picture of each step in out/.
window_pictures() {
  rm -rf out
  QT_QPA_PLATFORM="offscreen:configfile=demo/stage/screen.json" QT_LOGGING_RULES="default.warning=false" \
    "$bin"/zelvo-stage out doctor --script demo/scenarios/first-order.zs "${options[@]}" >/dev/null
  echo
  echo "The same through the real windows, a picture of each step: $(find out -name '*.png' | wc -l) in out/"
}

session_options doctor
before=$(sqlite3 "$db" 'SELECT COALESCE(MAX(CBJ_PK), 0) FROM t_ChubangJun')
"$bin"/zelvo doctor --console --script demo/scenarios/first-order.zs "${options[@]}"
show() {
  echo
  echo "$1"
  sqlite3 -header -column "$db" "$2"
}
show "The order as it now stands at the pharmacy (t_ChubangJun)" \
  "SELECT CBJ_PK, DTR_PK, Patient_Name, CBJ_Chubsu, CBJ_PouchTotal, CBJ_DrugCost, CBJ_PayMethod, CBJ_State, CBJ_RegDate
   FROM t_ChubangJun WHERE CBJ_PK > $before"
show "Its herbs (t_CBJDetail)" \
  "SELECT DET_Order, DGL_CallSign, DET_Weight, DET_Danga, DET_Money FROM t_CBJDetail WHERE CBJ_PK > $before ORDER BY DET_Order"
show "Its mileage (t_Stock)" "SELECT CBJ_PK, STK_Money, STK_Date, STK_Note FROM t_Stock WHERE CBJ_PK > $before"
show "Its notes and its sheet" \
  "SELECT c.CCD_DrugCost, c.CCD_BesongCost, e.HospName, e.PhoneNo
   FROM t_CBJcostDetail c JOIN t_EatGuide e ON e.CBJ_PK = c.CBJ_PK WHERE c.CBJ_PK > $before"
echo
echo "The log of the send: $(ls -t "$data"/zelvo_*.htm | head -1)"
window_pictures
