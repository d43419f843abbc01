#!/usr/bin/env bash
# `make bench`: every Google Benchmark program; player_bench plays the whole sample demo
# headless (frames per second, slowest second, start-up time) at 640 x 480 and 1920 x 1080.
set -eu
build=${1:-build}
for b in "$build"/bench/*; do
  [ -x "$b" ] && [ -f "$b" ] || continue
  echo "== $(basename "$b")"
  "$b" --benchmark_min_time=0.2
done
