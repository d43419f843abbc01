#!/usr/bin/env bash
# Installs the Debian packages that building, running or testing the player needs,
# skipping those already present. Usage: tools/install-deps.sh [build|test|fuzz]...
set -eu
build_pkgs="cmake make g++ pkg-config libsdl2-dev libopenmpt-dev libmpg123-dev libminizip-dev zlib1g-dev libpng-dev libjpeg62-turbo-dev"
test_pkgs="libgtest-dev libbenchmark-dev xvfb xdotool x11-apps lame ffmpeg xauth"
bench_pkgs="libbenchmark-dev libpixman-1-dev libgif-dev libosmesa6-dev"
fuzz_pkgs="clang libclang-rt-14-dev"

wanted=""
for what in "${@:-build}"; do
  case "$what" in
    build) wanted="$wanted $build_pkgs" ;;
    test) wanted="$wanted $build_pkgs $test_pkgs" ;;
    bench) wanted="$wanted $build_pkgs $bench_pkgs" ;;
    fuzz) wanted="$wanted $build_pkgs $fuzz_pkgs" ;;
    *) echo "install-deps: unknown set '$what'" >&2; exit 2 ;;
  esac
done

missing=""
for pkg in $wanted; do
  dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null | grep -q "install ok installed" || missing="$missing $pkg"
done
[ -z "$missing" ] && exit 0

echo "Installing missing packages:$missing"
sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends $missing
