#!/usr/bin/env bash
# Builds the fuzz targets with clang's libFuzzer and runs each in turn for FUZZ_SEGUNDOS seconds
# (ten minutes by default), one at a time. Corpora grow in BUILD/corpus/<target>, started from
# the seeds in fuzz/semillas/<target>; any input that breaks a rule is kept in
# BUILD/fallos/<target>/ and the run ends with an error.
#   make fuzz                                  every target, ten minutes each
#   make fuzz FUZZ_SEGUNDOS=60 FUZZ_OBJETIVOS="Importe Evaluar"
#   FUZZ_SEGUIR=1 goes on after a fault for the whole time (libFuzzer's fork mode), keeping
#   every input that breaks a rule.
set -euo pipefail
BUILD="${1:-build-fuzz}"
SEGUNDOS="${FUZZ_SEGUNDOS:-600}"
OBJETIVOS="${FUZZ_OBJETIVOS:-ValidarFecha Importe Evaluar ImportarCsv Ficheros}"
SEGUIR=()
[ -n "${FUZZ_SEGUIR:-}" ] && SEGUIR=(-fork=1 -ignore_crashes=1)
RAIZ="$(cd "$(dirname "$0")/.." && pwd)"

faltan=()
for p in clang libclang-rt-14-dev; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || faltan+=("$p")
done
if [ ${#faltan[@]} -gt 0 ]; then
  echo "Instalando: ${faltan[*]}"
  SUDO=""; [ "$(id -u)" -ne 0 ] && SUDO="sudo"
  export DEBIAN_FRONTEND=noninteractive
  $SUDO apt-get update -qq
  $SUDO apt-get install -y -qq --no-install-recommends "${faltan[@]}"
fi

CC=clang CXX=clang++ cmake -S "$RAIZ" -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DQUILMAR_FUZZ=ON
cmake --build "$BUILD" --target fuzz_todos

fallidos=0
for o in $OBJETIVOS; do
  corpus="$BUILD/corpus/$o"
  fallos="$BUILD/fallos/$o"
  mkdir -p "$corpus" "$fallos"
  semillas=()
  [ -d "$RAIZ/fuzz/semillas/$o" ] && semillas=("$RAIZ/fuzz/semillas/$o")
  echo "== $o: $SEGUNDOS s"
  if ! QT_QPA_PLATFORM=offscreen "$BUILD/fuzz_$o" "$corpus" "${semillas[@]}" \
      -max_total_time="$SEGUNDOS" -timeout=10 -rss_limit_mb=4096 -print_final_stats=1 \
      -artifact_prefix="$fallos/" "${SEGUIR[@]}" 2>"$BUILD/fuzz-$o.log"; then
    fallidos=$((fallidos + 1))
    echo "   FALLO: $(ls "$fallos" | head -3 | tr '\n' ' ')"
  fi
  grep -E '^stat::(number_of_executed_units|new_units_added|peak_rss_mb)' "$BUILD/fuzz-$o.log" \
    | sed 's/^/   /' || true
  # Fork mode tells its progress on lines of its own instead.
  grep -E '^#[0-9]+: cov' "$BUILD/fuzz-$o.log" | tail -1 | sed 's/^/   /' || true
  n=$(ls "$fallos" | wc -l)
  [ "$n" -gt 0 ] && echo "   entradas que rompen una regla: $n" && fallidos=$((fallidos + 1))
done
[ "$fallidos" -eq 0 ]
