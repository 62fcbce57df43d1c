#!/usr/bin/env bash
# Runs the tests of the command, built for this machine, with qolf.exe in place of the command:
#
#   command-tests.sh TEST_CLI QOLF_UNDER_WINE LIST
#
# LIST names the tests that can't run, each with its reason.
set -euo pipefail
tests=$1 list=$3
qolf=$(realpath "$2")
[ -x "$tests" ] || {
    echo "$tests is missing; ./test windows builds it" >&2
    exit 1
}
excluded=$(sed -n 's/^\([A-Za-z*][^ ]*\) .*/\1/p' "$list" | paste -sd:)
QOLF_COMMAND=$qolf exec "$tests" --gtest_brief=1 --gtest_filter="-$excluded"
