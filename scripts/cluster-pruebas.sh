#!/usr/bin/env bash
# The throwaway PostgreSQL cluster of a test run: "arrancar DIR" makes it in a temporary folder
# on a free local port (as the user postgres when run as root: PostgreSQL refuses root) and
# writes the port to DIR/puerto and the folder to DIR/cluster; "parar DIR" stops it and removes
# both. Without the server's programs it writes why to DIR/motivo and the server tests skip with
# that reason.
set -uo pipefail

accion=${1:?arrancar o parar}
dir=${2:?carpeta}

bin=""
if command -v pg_ctl >/dev/null && command -v initdb >/dev/null; then
  bin=$(dirname "$(command -v pg_ctl)")
else
  for v in $(ls /usr/lib/postgresql 2>/dev/null | sort -rn); do
    if [ -x "/usr/lib/postgresql/$v/bin/initdb" ]; then bin="/usr/lib/postgresql/$v/bin"; break; fi
  done
fi

como() {
  if [ "$(id -u)" -eq 0 ]; then runuser -u postgres -- "$@"; else "$@"; fi
}

case "$accion" in
  arrancar)
    "$0" parar "$dir"
    mkdir -p "$dir"
    if [ -z "$bin" ]; then echo "no están initdb y pg_ctl (paquete postgresql)" >"$dir/motivo"; exit 0; fi
    if [ "$(id -u)" -eq 0 ] && ! id postgres >/dev/null 2>&1; then
      echo "se ejecuta como root y no existe el usuario postgres" >"$dir/motivo"; exit 0
    fi
    # Under /tmp, which the unprivileged user can reach whatever the build folder's rights.
    cluster=$(mktemp -d /tmp/quilmar-pg.XXXXXX)
    echo "$cluster" >"$dir/cluster"
    [ "$(id -u)" -eq 0 ] && chown postgres "$cluster"
    if ! como "$bin/initdb" -D "$cluster/datos" -A trust -U quilmar -E UTF8 --locale=C --no-sync >"$dir/initdb.log" 2>&1; then
      echo "initdb falló: $(tail -3 "$dir/initdb.log")" >"$dir/motivo"; exit 1
    fi
    for intento in 1 2 3 4 5; do
      # A port in use makes the start fail, and another is tried.
      puerto=$((20000 + RANDOM % 40000))
      if como "$bin/pg_ctl" -D "$cluster/datos" -l "$cluster/registro" -w -t 300 \
           -o "-p $puerto -k $cluster -c listen_addresses=127.0.0.1 -c fsync=off -c full_page_writes=off -c max_connections=200" \
           start >/dev/null; then
        echo "$puerto" >"$dir/puerto"; exit 0
      fi
    done
    echo "pg_ctl no arrancó el servidor: $(tail -3 "$cluster/registro")" >"$dir/motivo"; exit 1
    ;;
  parar)
    if [ -f "$dir/cluster" ]; then
      cluster=$(cat "$dir/cluster")
      if [ -f "$dir/puerto" ] && [ -n "$bin" ]; then
        como "$bin/pg_ctl" -D "$cluster/datos" -m immediate -w stop >/dev/null 2>&1
      fi
      case "$cluster" in /tmp/quilmar-pg.*) rm -rf "$cluster" ;; esac
    fi
    rm -rf "$dir"
    ;;
esac
