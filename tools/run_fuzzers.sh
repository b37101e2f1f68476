#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the preset fuzz and runs each fuzzer for a while, as many side by side as there are cores, starting from the
# kept inputs in fuzz/corpus, to which it adds nothing. Inputs with findings stay in build/fuzz/findings; the exit
# status is 1 if there are any.
#
# usage: tools/run_fuzzers.sh [SECONDS] [TARGET...]    (default: 60 seconds, all targets)
# COMFORTICS_FUZZ_SEED makes the search the same each time; without it, each run looks elsewhere.
# Needs clang with its runtime libraries: tools/install_packages.sh fuzz
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

seconds=60
if [[ ${1:-} =~ ^[1-9][0-9]*$ ]]; then
    seconds=$1
    shift
fi
targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
    for folder in fuzz/corpus/*/; do
        targets+=("$(basename "$folder")")
    done
fi
for target in "${targets[@]}"; do
    if [ ! -f "fuzz/$target.cpp" ]; then
        echo "run_fuzzers.sh: there is no target '$target' in fuzz/" >&2
        exit 2
    fi
done

tools/build_preset.sh fuzz

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
findings=$PWD/build/fuzz/findings
rm -rf "$findings"
mkdir -p "$findings"

# One fuzzer. The slowest inputs take about a second (eight calculations, each with a search for the radiation to its
# end), and a minute on a machine that others keep busy. Five minutes are beyond that and still tell a loop without
# an end.
fuzz() {
    local target=$1 options=() corpus=$scratch/$1 dictionary=fuzz/$1.dict
    mkdir -p "$corpus"
    cp -r "fuzz/corpus/$target/." "$corpus"
    [ ! -f "$dictionary" ] || options+=("-dict=$dictionary")
    [ -z "${COMFORTICS_FUZZ_SEED:-}" ] || options+=("-seed=$COMFORTICS_FUZZ_SEED")
    build/fuzz/bin/"$target" -max_total_time="$seconds" -timeout=300 -rss_limit_mb=4096 -max_len=4096 \
        -artifact_prefix="$findings/$target-" "${options[@]}" "$corpus" >"$scratch/$target.log" 2>&1
}

# What became of a target, in one line; the whole tail of its log where something was found.
report() {
    local target=$1 status=$2 log=$scratch/$1.log last
    last=$(grep -a '^#.*\(DONE\|NEW\|REDUCE\|pulse\|RELOAD\|INITED\)' "$log" | tail -1) || true # none where a kept input fails
    printf '%-18s %-8s %10s runs  %6s edges  %6s runs a second\n' \
        "$target" "$([ "$status" -eq 0 ] && echo ok || echo FINDING)" \
        "$(sed -n 's/^#\([0-9]*\).*/\1/p' <<<"$last")" "$(sed -n 's/.* cov: \([0-9]*\).*/\1/p' <<<"$last")" \
        "$(sed -n 's/.* exec\/s: \([0-9]*\).*/\1/p' <<<"$last")"
    if [ "$status" -ne 0 ]; then
        cp "$log" "$findings/$target.log"
        grep -aE 'FINDING|runtime error|ERROR|SUMMARY|Test unit written' "$log" || tail -20 "$log"
    fi
}

failed=0
running=()
waitForFirst() {
    local target=${running[0]%:*} id=${running[0]#*:} status=0
    running=("${running[@]:1}")
    wait "$id" || status=$?
    report "$target" "$status"
    [ "$status" -eq 0 ] || failed=1
}
for target in "${targets[@]}"; do
    [ ${#running[@]} -lt "$(nproc)" ] || waitForFirst
    fuzz "$target" &
    running+=("$target:$!")
done
while [ ${#running[@]} -gt 0 ]; do
    waitForFirst
done
[ $failed -eq 0 ] || echo "The inputs are in build/fuzz/findings; build/fuzz/bin/TARGET FILE runs one." >&2
exit $failed
