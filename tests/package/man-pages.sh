#!/usr/bin/env bash
# Each subcommand has a man page with the usual sections and exactly the options of its help text.
set -euo pipefail
# shellcheck source-path=SCRIPTDIR
. "$(dirname "$0")/commands.sh"
qolf=$(realpath "$1") pages=$2
failures=0

fail() {
    echo "FAILED: $*" >&2
    failures=$((failures + 1))
}

# The options that a page explains: the terms of its definition lists.
options_in_page() {
    grep -E '^\*\*-' "$1" | grep -oE '\*\*-[^*]+\*\*' | tr -d '*' | LC_ALL=C sort -u
}

check_options() {  # page, then the lines of options expected on standard input
    local difference
    difference=$(diff - <(options_in_page "$1")) ||
        fail "$(basename "$1"): options of the help (<) and of the page (>) differ:"$'\n'"$difference"
}

check_sections() {
    local page=$1 section
    for section in NAME SYNOPSIS DESCRIPTION OPTIONS "EXIT STATUS" EXAMPLES "SEE ALSO"; do
        grep -qx "# $section" "$page" || fail "$(basename "$page") has no section $section"
    done
    grep -qE '@[A-Z_]+@' "$page" && fail "$(basename "$page") names a fragment that is not there"
    gzip -dc "${page%.md}.1.gz" | grep -q '^\.TH' || fail "$(basename "$page") gave no man page"
    for other in $(grep -oE '\*\*qolf(-[a-z]+)*\*\*\(1\)' "$page" | tr -d '*' | sed 's/(1)//'); do
        [ -f "$pages/$other.md" ] || fail "$(basename "$page") mentions $other(1), which is missing"
    done
}

commands=$(subcommands_of "$qolf")
[ -n "$commands" ] || fail "qolf --help lists no commands"
for command in $commands; do
    page=$pages/qolf-$command.md
    if [ ! -f "$page" ]; then
        fail "qolf $command has no man page docs/man/qolf-$command.md"
        continue
    fi
    check_sections "$page"
    { options_of "$qolf" && options_of "$qolf" "$command"; } | grep -vx -- --version |
        LC_ALL=C sort -u | check_options "$page"
    grep -qx "\*\*$command\*\*" "$pages/qolf.md" || fail "qolf.md does not list $command"
done
for page in "$pages"/qolf-*.md; do
    command=$(basename "$page" .md)
    grep -qx "${command#qolf-}" <<<"$commands" || fail "$page is the page of no command"
done
check_sections "$pages/qolf.md"
options_of "$qolf" | check_options "$pages/qolf.md"
[ "$failures" -eq 0 ] || exit 1
echo "man pages of ${commands//$'\n'/, } say what the help says"
