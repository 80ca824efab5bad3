#!/usr/bin/env bash
# Starts or stops a throwaway PostgreSQL cluster for the storage tests, on a loopback
# port, in a temporary folder. The server refuses to run as root, so as root it runs as
# the unprivileged `postgres` user that Debian's package creates.
#   start DIR PORT   -> prints the connection string
#   stop DIR         -> stops the server of that folder by its process id
set -euo pipefail
cmd=${1:?start|stop}
dir=${2:?folder}

pgbin=$(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | sort -V | tail -n 1)
[ -x "$pgbin/initdb" ] || { echo "pg-test-server: no PostgreSQL server installed" >&2; exit 1; }

as_pg() {
  if [ "$(id -u)" -eq 0 ]; then runuser -u postgres -- "$@"; else "$@"; fi
}

case "$cmd" in
start)
  port=${3:?port}
  mkdir -p "$dir"
  [ "$(id -u)" -eq 0 ] && chown postgres:postgres "$dir"
  as_pg "$pgbin/initdb" -D "$dir/data" -A trust -U orvo -E UTF8 --locale=C.UTF-8 >"$dir/initdb.log" 2>&1 \
    || { cat "$dir/initdb.log" >&2; exit 1; }
  as_pg "$pgbin/pg_ctl" -D "$dir/data" -l "$dir/server.log" -w -t 60 \
    -o "-p $port -k $dir -c listen_addresses=127.0.0.1 -c fsync=off -c max_connections=50" start >/dev/null \
    || { cat "$dir/server.log" >&2; exit 1; }
  echo "postgresql://orvo@127.0.0.1:$port/postgres"
  ;;
stop)
  pidfile="$dir/data/postmaster.pid"
  if [ -f "$pidfile" ]; then
    pid=$(head -n 1 "$pidfile")
    kill -INT "$pid" 2>/dev/null || true
    for _ in $(seq 1 100); do kill -0 "$pid" 2>/dev/null || break; sleep 0.1; done
  fi
  rm -rf "$dir"
  ;;
*) echo "usage: $0 start DIR PORT | stop DIR" >&2; exit 2 ;;
esac
