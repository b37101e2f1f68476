#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs the Debian packages that the named groups need and that are not there yet. With nothing missing it asks
# neither for the network nor for rights.
#
# usage: tools/install_packages.sh GROUP...    (groups: see below)
set -euo pipefail

declare -A groups=(
    [build]="g++ cmake ninja-build libcli11-dev nlohmann-json3-dev libexpat1-dev libzip-dev libxlsxwriter-dev pkg-config python3"
    [window]="qt6-base-dev qt6-svg-dev qt6-charts-dev libqt6opengl6-dev libgl1-mesa-dev qt6-wayland"
    [test]="libgtest-dev pkg-config"
    [python]="python3 python3-dev python3-numpy"
    [python_test]="python3-pandas python3-xarray python3-dask python3-distributed python3-netcdf4 python3-zarr python3-matplotlib python3-pytest python3-hypothesis"
    [bench]="libbenchmark-dev"
    [check]="clang-format clang-tidy git doxygen"
    [coverage]="gcovr"
    [screenshots]="xvfb openbox xdotool imagemagick x11-utils xclip dbus at-spi2-core python3-gi gir1.2-atspi-2.0"
    [package]="dpkg-dev fakeroot file lintian desktop-file-utils appstream man-db mandoc groff xvfb xdotool pkg-config"
    [clean_root]="mmdebstrap"
    [fuzz]="clang libclang-rt-dev"
)

wanted=()
for group in "$@"; do
    if [ -z "${groups[$group]:-}" ]; then
        echo "install_packages.sh: there is no group '$group', only: ${!groups[*]}" >&2
        exit 2
    fi
    read -ra members <<<"${groups[$group]}"
    wanted+=("${members[@]}")
done

if ! command -v dpkg-query >/dev/null; then
    echo "This is no Debian system. The build needs what these Debian packages hold: ${wanted[*]}" >&2
    exit 0 # it may well be there; if not, the build names it
fi

missing=()
for package in "${wanted[@]}"; do
    if [ "$(dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
        missing+=("$package")
    fi
done
[ ${#missing[@]} -gt 0 ] || exit 0

asRoot=()
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "These packages are missing and only root can install them: ${missing[*]}" >&2
        exit 1
    fi
    asRoot=(sudo)
fi

echo "Installing ${missing[*]}"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
apt=("${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get --quiet --yes -o DPkg::Lock::Timeout=120)
"${apt[@]}" update >"$log" 2>&1 </dev/null || true # an old list may be good enough; the next line decides
if ! "${apt[@]}" install --no-install-recommends "${missing[@]}" >>"$log" 2>&1 </dev/null; then
    cat "$log" >&2
    echo "Could not install: ${missing[*]}" >&2
    exit 1
fi
