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
expect "$(printf 'geojson\ngeojsonl\ngeojsons')" "the formats of a conversion" convert --to geo
expect pdf "the formats of a picture" draw --to pd
expect wgs84 "a system" convert a.mif --crs wg
expect EPSG:3301 "the code of a system" draw --assume-crs EPSG:3301
expect 3301 "the code of a system, as bash splits it" convert --crs EPSG : 3301
expect CP1251 "an encoding" info --encoding CP1251
expect "$(printf 'RenderText=no\nRenderText=yes')" "the options to set" options set RenderT
expect "$(printf 'no\nyes')" "the values of an option, as bash splits them" \
    options set RenderText = ""
expect "IgnoreStyles=yes" "a second option" options set RenderText=no IgnoreStyles=y
expect "no" "a second value" options set RenderText = no IgnoreStyles = n
expect roads.mif "a file as an option's value" info --module ro
expect "--version" "an option's beginning" --vers
[ "$failures" -eq 0 ]
