#!/bin/sh
# Installs the Debian packages that building, testing and trying Vellora needs, where they are
# missing: everything that a script of this source tree or .ci/run calls. Asks no questions. With
# --list it only prints their names. With --peers it installs the programs that
# bench/compare_peers.sh compares with as well.
set -eu

# To build; to run the tests; for the gate: packages, reference, fuzzer, shell completions.
packages="
    g++ cmake ninja-build ccache pkg-config git
    clang-format clang-tidy
    libopencv-core-dev libopencv-imgproc-dev
    qt6-base-dev qt6-svg-dev qt6-image-formats-plugins
    libjpeg62-turbo-dev libpugixml-dev libsimpleini-dev libcli11-dev
    libgtest-dev libbenchmark-dev
    fonts-dejavu-core fonts-liberation
    imagemagick parallel python3 python3-yaml xvfb
    dpkg-dev file lintian doxygen clang libclang-rt-14-dev zsh
"
peers="graphicsmagick libvips-tools netpbm gegl gmic"

case "${1:-}" in
    --list)
        printf '%s\n' $packages
        exit 0
        ;;
    --peers) packages="$packages $peers" ;;
esac

is_installed() {
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

missing=""
for package in $packages; do
    is_installed "$package" || missing="$missing $package"
done
[ -n "$missing" ] || exit 0

as_root=""
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "These packages are missing, and installing them takes root or sudo:$missing" >&2
        exit 1
    fi
    as_root="sudo"
fi
echo "Installing:$missing"
$as_root env DEBIAN_FRONTEND=noninteractive apt-get update -q
# shellcheck disable=SC2086  # one word per package
$as_root env DEBIAN_FRONTEND=noninteractive \
    apt-get install -q -y --no-install-recommends $missing
