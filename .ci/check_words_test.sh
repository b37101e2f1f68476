#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Does tools/check_words.sh find what it is for, and nothing else? Each line is committed as a file, a file name or a
# message of its own small repository.
set -euo pipefail

check=$(realpath "$(dirname "${BASH_SOURCE[0]}")/../tools/check_words.sh")
folder=$(mktemp -d)
said=$(mktemp)
trap 'rm -rf "$folder" "$said"' EXIT
cd "$folder"
git init --quiet
git config user.name tester
git config user.email tester@example.invalid
passed=0
failed=0

expect() { # expect found|clean WHAT: runs the check on the repository as it is now
    local wanted=$1 what=$2 status=0
    "$check" "$folder" >/dev/null 2>"$said" || status=$?
    if { [ "$wanted" = found ] && [ $status -eq 1 ]; } || { [ "$wanted" = clean ] && [ $status -eq 0 ]; }; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "expected $wanted, got exit status $status: $what" >&2
        cat "$said" >&2
    fi
}

bad=(
    "// as the spec says"
    "// Spec: see below"
    "see the specs, page 3"
    "THE SPECIFICATION"
    "specifications"
    "struct GateSpec {"
    "int spec_row = 0;"
    "auto rowSpecs = read();"
    "// see Part 1.2"
    "(part 6.1)"
    "Parts 2.1 to 2.8"
    "// Part 3"
    "read ../shared/limits.csv"
    "cp /tmp/shared/limits.csv ."
    "the seed document"
    "house_style.md"
    "by number_rules"
    "LIMITS_NOTES.md"
    "fixes #12"
    "(#7)"
    "see issue 12"
    "Issue #3"
    "ticket no. 4"
    "cd /work/main"
    "\"/root/.cache\""
    "/home/user/file"
    "curl https://registry.example.org/x"
    "http://deb.example.com/pool"
    "proxy.golang.org"
)
good=(
    "specific, species, specify, specified, unspecified, special, inspect, respect, prospects"
    "auto spectrum = introspection(perspective);"
    "a part of 10.5 parts"
    "apart 1 from that"
    "partial 3.1"
    "a shared value, shared/ things, std::shared_ptr<T>"
    "seeded by the document"
    "color: #808080; #12ab34; #fff; #333;"
    "&#39; &#10;"
    "#include <vector>"
    "# 2 heading"
    "\${#array[@]} \$# \${text#12}"
    "printf(\"%#04x\")"
    "a tissue 12 cells thick"
    "this issue has no number"
    "src/work/file, framework/core, ./home/x, https://example.org/home/x"
    "proxy.sourceModel.index(1)"
    "the debian package"
    "(Linke 1926, part of the tropics)"
    "Severity Index (Diurnal temperature < 4"$'\xb0'"C)"
)

for line in "${bad[@]}"; do
    printf 'first\n%s\nlast\n' "$line" >file.txt
    expect found "line: $line"
done
for line in "${good[@]}"; do
    printf 'first\n%s\nlast\n' "$line" >file.txt
    expect clean "line: $line"
done

for name in gate_spec.cpp Part_1.2.md spec/readme.txt; do
    mkdir -p "$(dirname "$name")"
    echo text >"$name"
    expect found "file name: $name"
    rm "$name"
done
mkdir .ci build
echo "the spec" >.ci/run
expect clean "a line in .ci"
echo "/build/" >.gitignore
echo "the spec" >build/log
expect clean "a line in an ignored file"

git add --all
git commit --quiet --message "Specify the species"
expect clean "message without forbidden words"
git commit --quiet --allow-empty --message "Follow the description" --message "As issue #4 wants."
expect found "message with a forbidden word in its body"

rm -rf .git
if "$check" "$folder" >/dev/null 2>&1; then
    failed=$((failed + 1))
    echo "a folder without a repository passed" >&2
fi
echo "$passed passed, $failed failed"
[ $failed -eq 0 ]
