#!/bin/sh
# Installs the Debian packages that building, testing and trying Vellora needs, where they are
# missing. Asks no questions. With --gate also those that .ci/run and scripts/fuzz.sh need, with
# --peers those that bench/compare_peers.sh compares with; with --list it only prints the names of
# all but the peers.
set -eu

packages="
    g++ cmake ninja-build ccache pkg-config git
    libopencv-core-dev libopencv-imgproc-dev
    qt6-base-dev qt6-svg-dev qt6-image-formats-plugins
    qt6-l10n-tools qt6-translations-l10n
    libjpeg62-turbo-dev zlib1g-dev libpugixml-dev libsimpleini-dev libcli11-dev
    libgtest-dev libbenchmark-dev
    fonts-dejavu-core fonts-liberation
    imagemagick parallel python3 xvfb zsh
    dpkg-dev file
"
# For style, documents, fuzzer, reference and the look at the packages.
gate="
    clang-format clang-tidy python3-yaml clang libclang-rt-14-dev doxygen lintian
"
peers="graphicsmagick libvips-tools netpbm gegl gmic"

case "${1:-}" in
    --list)
        printf '%s\n' $packages $gate
        exit 0
        ;;
    --gate) packages="$packages $gate" ;;
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
