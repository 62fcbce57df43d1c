# shellcheck shell=bash
# Sourced by the tests here: what a program's help says.

# The commands below the program or below a command of it, but for help, which has no page.
subcommands_of() {  # program [command]
    "$@" --help | awk '/^Subcommands:/ { inside = 1; next }
                       inside && /^  [a-z]/ && $1 != "help" { print $1 }
                       inside && !/^  / { exit }'
}

# The options of one command, or of the program itself, in their short and long forms.
options_of() {  # program [command]
    "$@" --help | awk '/^  -/ { gsub(",", "\n", $1); print $1 }' | LC_ALL=C sort -u
}
