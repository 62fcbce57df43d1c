# Completion of qolf for bash. Commands and options are read from the program's own help, so they
# are those of the qolf that runs.

# The words of a help text's list of commands: those of qolf, or those of a command of it.
_qolf_commands() {  # program [command]
    "$1" ${2:+"$2"} --help 2>/dev/null | awk '
        /^Subcommands:/ { inside = 1; next }
        inside && /^  [a-z]/ { print $1; next }
        inside { exit }'
}

# The options of a command, or those of qolf itself; with "values" only those that take a value.
_qolf_options() {  # program command [values]
    "$1" ${2:+"$2"} --help 2>/dev/null | awk -v values="${3:-}" '
        /^  -/ {
            takes_value = /^  -[^ ]+ [^ ]/  # "--module FILE", while explanations stand apart
            if (values == "" || takes_value) {
                gsub(",", "\n", $1)
                print $1
            }
        }'
}

_qolf() {
    local program=${COMP_WORDS[0]} current=${COMP_WORDS[COMP_CWORD]}
    local previous=${COMP_WORDS[COMP_CWORD - 1]} command="" i
    COMPREPLY=()

    local commands
    commands=$(_qolf_commands "$program")
    for ((i = 1; i < COMP_CWORD; i++)); do
        if grep -qxF -- "${COMP_WORDS[i]}" <<<"$commands"; then
            command=${COMP_WORDS[i]}
            break
        fi
    done

    if [[ $previous == -* ]] &&
        _qolf_options "$program" "$command" values | grep -qxF -- "$previous"; then
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
    elif [[ $command == help || (-z $command && $current != -*) ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$commands" -- "$current")
    elif [[ $current == -* ]]; then
        mapfile -t COMPREPLY < <(
            compgen -W "$(_qolf_options "$program" "") $(_qolf_options "$program" "$command")" \
                -- "$current" | sort -u)
    else
        # The word after a command with subcommands is one of these.
        local subcommands=""
        if [[ $previous == "$command" ]]; then
            subcommands=$(_qolf_commands "$program" "$command")
        fi
        if [[ -n $subcommands ]]; then
            mapfile -t COMPREPLY < <(compgen -W "$subcommands" -- "$current")
        else
            mapfile -t COMPREPLY < <(compgen -f -- "$current")
        fi
    fi
}

complete -o filenames -F _qolf qolf
