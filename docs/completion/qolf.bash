# Completion of qolf for bash. Commands, options and their values come from the program itself, so
# they are those of the qolf that runs.

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

# Bash splits words at ":" and "=", as in EPSG:3301. Sets `words` to what the user sees as words,
# `current` to the last one, and `split_off` to its part before the piece that is completed.
_qolf_join_words() {
    local i piece is_joined=""
    words=() split_off=""
    for ((i = 0; i <= COMP_CWORD; i++)); do
        piece=${COMP_WORDS[i]}
        if [[ -n $is_joined || ($piece == [:=] && $i -gt 0) ]]; then
            words[${#words[@]} - 1]+=$piece
        else
            words+=("$piece")
        fi
        is_joined=""
        [[ $piece == [:=] && $i -lt $COMP_CWORD ]] && is_joined=yes
    done
    current=${words[${#words[@]} - 1]}
    # "EPSG:33" that bash has split is completed behind the ":".
    if [[ ${COMP_WORDS[COMP_CWORD]} != "$current" ]]; then
        split_off=${current%"${current##*[:=]}"}
    fi
}

# Offers the given lines that begin with the current word.
_qolf_offer() {
    mapfile -t COMPREPLY < <(compgen -W "$1" -- "$current")
    COMPREPLY=("${COMPREPLY[@]#"$split_off"}")
}

_qolf() {
    local program=${COMP_WORDS[0]} words current split_off command="" i
    COMPREPLY=()
    _qolf_join_words
    local previous=${words[${#words[@]} - 2]}

    local commands
    commands=$(_qolf_commands "$program")
    for ((i = 1; i < ${#words[@]} - 1; i++)); do
        if grep -qxF -- "${words[i]}" <<<"$commands"; then
            command=${words[i]}
            break
        fi
    done

    # What the program knows of the values, also of the second one and those behind.
    local offers="" before=$previous
    if [[ $command == options && ${words[i + 1]} == set && $current != -* ]]; then
        before="set"
    fi
    [[ -z $command ]] || offers=$("$program" complete -- "$command" "$before" 2>/dev/null)

    if [[ -n $offers ]]; then
        _qolf_offer "$offers"
    elif [[ $previous == -* ]] &&
        _qolf_options "$program" "$command" values | grep -qxF -- "$previous"; then
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
    elif [[ $command == help || (-z $command && $current != -*) ]]; then
        _qolf_offer "$commands"
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
            _qolf_offer "$subcommands"
        else
            mapfile -t COMPREPLY < <(compgen -f -- "$current")
        fi
    fi
}

complete -o filenames -F _qolf qolf
