#!/usr/bin/env bash
# Bash's completion offers the program's own commands and options.
set -euo pipefail
# shellcheck source-path=SCRIPTDIR
. "$(dirname "$0")/commands.sh"
qolf=$(realpath "$1") source=$2
. "$source/docs/completion/qolf.bash"
failures=0

# The offers for the words of a command line, the last of which is being typed; one a line.
offers() {
    COMP_WORDS=("$qolf" "$@") COMP_CWORD=$#
    _qolf
    printf '%s\n' "${COMPREPLY[@]}" | LC_ALL=C sort -u
}

expect() {  # expected lines, what they are, the words
    local expected=$1 what=$2 difference
    shift 2
    difference=$(diff <(LC_ALL=C sort -u <<<"$expected") <(offers "$@")) && return
    printf 'FAILED: %s: expected (<), offered (>):\n%s\n' "$what" "$difference" >&2
    failures=$((failures + 1))
}

cd "$(mktemp -d)"
trap 'rm -rf "$PWD"' EXIT
touch roads.mif rivers.mif

all=$(subcommands_of "$qolf")$'\n'help
expect "$all" "the commands" ""
expect "$all" "the topics of help" help ""
expect "info" "a command's beginning" in
expect "info" "a command after an option" --quiet in
expect "$(options_of "$qolf")" "the options of the program" -
for command in $(subcommands_of "$qolf"); do
    expect "$(options_of "$qolf" && options_of "$qolf" "$command")" "the options of $command" \
        "$command" -
    subcommands=$(subcommands_of "$qolf" "$command")
    expect "${subcommands:-$'rivers.mif\nroads.mif'}" "the words after $command" "$command" ""
done
expect roads.mif "a file as an option's value" info --encoding ro
expect "--version" "an option's beginning" --vers
[ "$failures" -eq 0 ]
