# Sourced by zelvo-demo and run.sh: the demo's pharmacy on this machine, and what a chart hands over for it.
# `bin` is the folder of the programs, `shared` that of the values; `data`, `db` and `options` are set here.
data="${XDG_DATA_HOME:-$HOME/.local/share}/zelvo"
db="$data/pharmacy.db"

# Whoever uses the pharmacy holds 8 in common with the others; whoever starts or ends its server holds 7 alone.
server_runs() {
  server=$(cat "$data/pharmacy.server" 2>/dev/null) || return 1
  [ -n "$server" ] && [ "$(cat "/proc/$server/comm" 2>/dev/null)" = zelvo-pharmacy ]
}

# open_pharmacy [--fresh]: makes the database where there is none, and sees to it that its pages are served until the last
# demo of this user has ended.
open_pharmacy() {
  mkdir -p -m 700 "$data"
  exec 7>>"$data/pharmacy.server" 8>>"$data/pharmacy.users"
  flock -s 8
  flock 7
  # A server that runs would not tell its addresses to a new database.
  if [ "${1-}" = --fresh ] && server_runs; then
    kill "$server"
    while server_runs; do sleep 0.05; done
  fi
  "$bin"/zelvo-pharmacy --db "$db" init "$@" 7>&- 8>&- >&2
  server_runs || start_server || return 1
  flock -u 7
  trap close_pharmacy EXIT
}

start_server() {
  local scratch
  scratch=$(mktemp -d)
  # It may outlive this demo, so it holds none of its streams.
  setsid "$bin"/zelvo-pharmacy --db "$db" serve --ready-file "$scratch/ready" </dev/null >/dev/null 2>"$scratch/told" 7>&- 8>&- &
  server=$!
  echo "$server" >"$data/pharmacy.server"
  for _ in $(seq 200); do
    if [ -s "$scratch/ready" ] || ! kill -0 "$server" 2>/dev/null; then break; fi
    sleep 0.05
  done
  if [ -s "$scratch/ready" ]; then
    rm -rf "$scratch"
    return 0
  fi
  { echo "The demo pharmacy did not start."; cat "$scratch/told"; } >&2
  rm -rf "$scratch"
  return 1
}

close_pharmacy() {
  flock 7
  flock -u 8
  if flock -n -x 8 && server_runs; then
    kill "$server" || true
    : >"$data/pharmacy.server"
  fi
}

# session_options clinic|doctor|nurse: the demo's own values as options. What is said later counts, so the user's own options
# follow them. The values are files: a password in a command line could be seen by everybody.
session_options() {
  options=(--server "sqlite:$db")
  case "$1" in
    nurse) options+=(--values "$shared/nurse.values") ;;
    clinic) options+=(--values "$shared/clinic.values") ;;
    doctor) options+=(--values "$shared/clinic.values" --values "$shared/patient.values") ;;
  esac
}
