#!/usr/bin/env bash
# Installs the Debian packages Quilmar needs to build, test and run, only those missing.
set -euo pipefail

PAQUETES=(
  build-essential cmake pkg-config ninja-build
  qt6-base-dev qt6-base-dev-tools libqt6sql6-sqlite qt6-charts-dev libqt6opengl6-dev qt6-qpa-plugins
  qt6-translations-l10n
  libgl-dev libxkbcommon-dev
  libsodium-dev libxlsxwriter-dev zlib1g-dev libsqlite3-dev
  libqt6sql6-psql postgresql
  libgtest-dev libgmock-dev googletest libbenchmark-dev
  fonts-liberation fonts-dejavu-core
  xvfb xauth x11-utils xdotool imagemagick poppler-utils unzip sqlite3
  clang-format ccache
)

faltan=()
for p in "${PAQUETES[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    faltan+=("$p")
  fi
done

if [ ${#faltan[@]} -eq 0 ]; then
  exit 0
fi

echo "Instalando: ${faltan[*]}"
SUDO=""
if [ "$(id -u)" -ne 0 ]; then
  SUDO="sudo"
fi
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${faltan[@]}"
