#!/usr/bin/env bash
# Runs one libFuzzer target of `make fuzz` for a while, on one core: its seed corpus
# (fuzz/corpus/NAME) and dictionary (fuzz/dict/NAME.dict, when the format has one), new
# inputs kept in build-fuzz/corpus/NAME, crashing inputs written to
# build-fuzz/artifacts/NAME/. Copy a crashing input into fuzz/corpus/NAME once it is
# fixed: the tests replay it from then on.
# Usage: tools/run-fuzzer.sh NAME [SECONDS] [more libFuzzer options]
set -eu
cd "$(dirname "$0")/.."
name=$1
seconds=${2:-600}
shift $(( $# < 2 ? $# : 2 ))
fuzzer=build-fuzz/fuzz/fuzz_$name
[ -x "$fuzzer" ] || { echo "run-fuzzer: no $fuzzer (make fuzz builds it)" >&2; exit 2; }
mkdir -p "build-fuzz/corpus/$name" "build-fuzz/artifacts/$name"
dict=()
[ -f "fuzz/dict/$name.dict" ] && dict=("-dict=fuzz/dict/$name.dict")
exec "$fuzzer" -max_total_time="$seconds" -print_final_stats=1 -artifact_prefix="build-fuzz/artifacts/$name/" \
    "${dict[@]}" "$@" "build-fuzz/corpus/$name" "fuzz/corpus/$name"
