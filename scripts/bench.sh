#!/usr/bin/env bash
# Runs every benchmark built in the given folder.
set -euo pipefail
BUILD="${1:-build-bench}"
for b in "$BUILD"/bench_*; do
  [ -x "$b" ] || continue
  echo "== $(basename "$b") =="
  "$b"
done
