#!/usr/bin/env bash
# `make bench`: every Google Benchmark program, then the whole player headless on the
# sample demo (frames per second, slowest second, start-up time).
set -eu
build=${1:-build}
for b in "$build"/bench/*; do
  [ -x "$b" ] && [ -f "$b" ] || continue
  echo "== $(basename "$b")"
  "$b" --benchmark_min_time=0.2
done
if [ -x tools/measure-player.sh ]; then
  tools/measure-player.sh "$build/vzplayer"
fi
