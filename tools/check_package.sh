#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the packages, lets Debian's validators look at them, unpacks them into empty folders, runs both programs from
# there and builds one with the library. Other libraries are this machine's, unless a clean root is asked for: a system of Debian's essential
# packages in which apt installs what the packages themselves ask for. That needs root, the network and some minutes.
#
# usage: tools/check_package.sh [--clean-root]    (--run-in FOLDER is for its own use)
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
export LC_ALL=C.UTF-8
unset WAYLAND_DISPLAY QT_QPA_PLATFORM

. tools/display.sh

# fail SENTENCE
fail() {
    echo "check_package.sh: $1" >&2
    exit 1
}

# validate FOLDER PACKAGE...: the packages, and what was unpacked from them.
validate() {
    local share=$1/usr/share page package size
    shift
    desktop-file-validate "$share/applications/comfortics.desktop"
    appstreamcli validate --no-net --explain "$share"/metainfo/*.metainfo.xml
    for page in "$share"/man/man1/*.gz; do
        mandoc -T lint -W warning "$page"
        man --warnings --encoding=UTF-8 --local-file -Tutf8 -Z "$page" 2>"$scratch/man" >/dev/null
        [ ! -s "$scratch/man" ] || fail "$(cat "$scratch/man")"
    done
    # It advises against running as root, but only looks at the package here.
    lintian --allow-root --fail-on error,warning "$@"
    for package in "$@"; do
        size=$(stat --format=%s "$package")
        [ "$size" -lt 10000000 ] || fail "$package has $size bytes"
    done
}

# build_with_library FOLDER: builds an example with the library that was unpacked there, and runs it.
build_with_library() {
    local pc lib flags
    pc=$(find "$1" -name comfortics.pc)
    lib=$(cd "$(dirname "$pc")/.." && pwd)
    read -ra flags < <(PKG_CONFIG_PATH=$lib/pkgconfig pkg-config --cflags --libs comfortics)
    g++ -std=c++20 examples/one_reading.cpp "${flags[@]}" -o "$scratch/one_reading"
    LD_LIBRARY_PATH=$lib "$scratch/one_reading" 30 50 2 600 | grep 'Humidex .*: 36.3 °C' >/dev/null
    echo "A program runs with the library in $lib"
}

# run_programs FOLDER [COMMAND...]: runs those in FOLDER by way of COMMAND.
run_programs() {
    local bin=$1 program status=0
    shift
    # Index 1 has limits, so its value shows that Limits.Index was found; a warm day is none for index 8.
    "$@" "$bin/comfortics-cli" calc --ta 30 --rh 50 --ws 2 --sr 600 --format json >"$scratch/json"
    python3 -c '
import json, sys
answer = json.load(sys.stdin)
shown = [result["number"] for result in answer["results"] if result["value"]]
assert answer["status"] == "ok" and len(answer["results"]) == 222, answer["status"]
assert 1 in shown and 8 not in shown, "the limits are not in force"
' <"$scratch/json"
    "$@" "$bin/comfortics" --version

    [ ${#started[@]} -gt 0 ] || start_display
    "$@" "$bin/comfortics" 2>"$scratch/window.log" &
    program=$!
    started+=("$program")
    timeout 120 xdotool search --sync --onlyvisible --name '^Comfortics$' >/dev/null ||
        fail "No window came up. $(cat "$scratch/window.log")"
    kill -TERM $program
    wait $program || status=$?
    [ $status -eq 143 ] || fail "The window did not stay: exit status $status. $(cat "$scratch/window.log")"
    echo "Both programs run from $bin${1:+ in a clean root}"
}

# run_python FOLDER [COMMAND...]: calculates with the Python package in FOLDER of Python's path, by way of COMMAND.
run_python() {
    local folder=$1
    shift
    "$@" env PYTHONPATH="$folder" PYTHONDONTWRITEBYTECODE=1 /usr/bin/python3 -c '
import comfortics
found = comfortics.calculate(ta=30.0, rh=50.0, ws=2.0, sr=600.0, rules="classic", indices=[90, 211])
assert found["humidex_masterson"] == 36.3, found
assert found["wind_chill_noaa"] != found["wind_chill_noaa"], "the limits are not in force"
'
    echo "The Python package runs from $folder${1:+ in a clean root}"
}

# try_clean_root PACKAGE...
try_clean_root() {
    tools/install_packages.sh clean_root
    # Where this machine's apt gets Debian from.
    local sources=()
    mapfile -t sources < <(find /etc/apt -maxdepth 2 -name '*.list' -o -name '*.sources')
    mkdir "$scratch/packages"
    cp "$@" "$scratch/packages"
    # The programs run as a hook, which has /proc.
    mmdebstrap --quiet --mode=root --variant=apt \
        --customize-hook="copy-in '$scratch/packages' /tmp" \
        --customize-hook='chroot "$1" sh -c "apt-get --quiet --yes --no-install-recommends install /tmp/packages/*.deb"' \
        --customize-hook="'$PWD/tools/check_package.sh' --run-in \"\$1\"" \
        "$(. /etc/os-release && echo "$VERSION_CODENAME")" /dev/null "${sources[@]}"
}

case "${1:-}" in
--run-in) # called by the hook
    run_programs /usr/bin chroot "$2"
    run_python /usr/lib/python3/dist-packages chroot "$2"
    exit 0
    ;;
"" | --clean-root) ;;
*)
    echo "usage: tools/check_package.sh [--clean-root]" >&2
    exit 2
    ;;
esac

tools/make_package.sh
packages=(build/packages/*.deb)
[ ${#packages[@]} -eq 4 ] || fail "There are other packages than expected: ${packages[*]}"
for package in "${packages[@]}"; do
    dpkg-deb --extract "$package" "$scratch/debian"
done
mkdir "$scratch/archive"
tar --extract --file="$(echo build/packages/*.tar.gz)" --directory="$scratch/archive" --strip-components=1
validate "$scratch/debian" "${packages[@]}"
run_programs "$scratch/debian/usr/bin"
run_programs "$scratch/archive/bin"
build_with_library "$scratch/debian"
build_with_library "$scratch/archive"
run_python "$scratch/debian/usr/lib/python3/dist-packages"
run_python "$(echo "$scratch"/archive/lib/python3.*/site-packages)"
[ "${1:-}" != --clean-root ] || try_clean_root "${packages[@]}"
