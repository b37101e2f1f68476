#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Fails if a file, a file name or a commit message refers to what a reader of this repository cannot look up:
# papers behind the project, tickets, one machine's folders, package registries. Looks at all files that git
# knows or would add, but for those in .ci.
#
# usage: tools/check_words.sh [FOLDER]    (a folder that is a git repository, default this one)
set -euo pipefail
export LC_ALL=C # bytes: some files are not UTF-8

cd "${1:-$(dirname "${BASH_SOURCE[0]}")/..}"

# Perl expressions, written so that they do not match themselves. A word begins and ends at anything but a letter or
# a digit: snake_case names are split into their words, "specific", "species" and "specify" are other words.
begin='(?<![A-Za-z0-9])'
end='(?![A-Za-z0-9])'
patterns=(
    "(?i:${begin}sp[e]c(s|ifications?)?$end)"
    "[a-z]Sp[e]c(s|ifications?)?(?![a-z])" # the same within a name in CamelCase
    "(?i:${begin}parts?[ _-]?[0-9]+\.[0-9])"
    "${begin}Parts? [0-9]+$end"
    "(?i:[.][.]/shar[e]d|/shar[e]d/)"
    "(?i:${begin}see[d][ _-]document)"
    "(?i:${begin}(house_styl[e]|number_rul[e]s|limits_not[e]s|terminal_too[l]\.md)$end)"
    "(?i:${begin}(issu[e]|ticke[t])s?[ _-]?(no\.? ?|number )?#?[0-9]+$end)"
    "(?<![A-Za-z0-9&%\$\"{#])#[0-9]{1,2}(?![A-Za-z0-9;\"])" # colours and HTML entities look different
    "(?<![A-Za-z0-9_.})-])/(work|root|home|Users)/[A-Za-z0-9_.]"
    "(?i:${begin}(debian|ubuntu|pypi|pythonhosted|npmjs|crates|rubygems|golang|nuget|anaconda|docker)\.(org|com|io|net)$end)"
    "(?i:${begin}(registry|repo1?|proxy|deb|mirrors?)\.[a-z0-9-]+(\.[a-z0-9-]+)?\.(org|com|io|net|dev)$end)"
)
pattern=$(IFS='|' && echo "${patterns[*]}")

failed=false
search() { # search HEADING GREP_OPTIONS_AND_FILES...
    local heading=$1 found status=0
    shift
    found=$(grep -P "$pattern" "$@") || status=$?
    if [ $status -gt 1 ]; then
        exit $status
    elif [ $status -eq 0 ]; then
        printf '%s:\n%s\n' "$heading" "$found" >&2
        failed=true
    fi
}

git rev-parse --git-dir >/dev/null
files=()
while IFS= read -r -d '' file; do
    [ ! -f "$file" ] || files+=("$file") # one deleted and not yet committed is listed, too
done < <(git ls-files -z --cached --others --exclude-standard -- . ':!:.ci')
if [ ${#files[@]} -eq 0 ]; then
    echo "check_words.sh: there are no files to look at" >&2
    exit 1
fi

search "Lines that mention what they must not" -nIH -- "${files[@]}"
search "File names that mention what they must not" < <(printf '%s\n' "${files[@]}")
if git rev-parse --quiet --verify HEAD >/dev/null; then
    search "Commit messages that mention what they must not" < <(git log --format='%h %B')
fi

if $failed; then
    exit 1
fi
echo "No forbidden words in ${#files[@]} files and the commit messages"
