#!/usr/bin/env bash
# Starts the desktop; without a display, shows the demo company through quilmar-cli instead.
set -euo pipefail
BUILD="${1:-build}"
if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
  exec "$BUILD/quilmar" "${@:2}"
fi
echo "No hay pantalla (ni DISPLAY ni WAYLAND_DISPLAY): se muestra la empresa de pruebas con quilmar-cli."
echo
echo "== Empresas =="
"$BUILD/quilmar-cli" empresas
if "$BUILD/quilmar-cli" --help | grep -q "sumas-saldos"; then
  echo
  echo "== Balance de sumas y saldos de la empresa de pruebas =="
  "$BUILD/quilmar-cli" --empresa Emp100 sumas-saldos
fi
