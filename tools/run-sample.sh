#!/usr/bin/env bash
# `make run`: plays the bundled demo in a window. Without a display it says so and plays
# the demo headless, writing a few frames as PNG files.
set -u
player=${1:?usage: run-sample.sh PATH/TO/vzplayer}
demo="$(cd "$(dirname "$0")/.." && pwd)/demos/sample"
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  "$player" "$demo" && exit 0
  echo "vzplayer could not play in a window; trying headless instead." >&2
else
  echo "No display found (DISPLAY is not set): playing the sample demo headless."
fi
out="$(pwd)/sample-frames"
mkdir -p "$out"
shots=()
times=(5 15 25 35 45 55 65 80 95 110)
for t in "${times[@]}"; do shots+=(--shot "$t=$out/sample-${t}s.png"); done
"$player" --headless --fps 25 --audio-out "$out/sample-music.wav" "${shots[@]}" "$demo"
status=$?
echo "Frames at ${times[*]} s were written to $out/ (sample-*.png),"
echo "the music to $out/sample-music.wav, and the log to $demo/logfile.txt."
exit $status
