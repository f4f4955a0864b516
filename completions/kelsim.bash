# shellcheck shell=bash
# Completion of kelsim for bash.

_kelsim() {
    local current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
    COMPREPLY=()
    case $before in
        --messages) mapfile -t COMPREPLY < <(compgen -W "sol pvt both" -- "$current") ;;
        --fleet | --damaged | --laps | --rate | --seed) ;;
        *)
            if [[ $current == -* && $before != --channels && $before != --samples ]]; then
                mapfile -t COMPREPLY < <(compgen -W \
                    "--channels --samples --fleet --damaged --messages --laps --rate --seed --version --help" -- "$current")
            else
                compopt -o filenames 2>/dev/null
                mapfile -t COMPREPLY < <(compgen -f -- "$current")
            fi
            ;;
    esac
} && complete -F _kelsim kelsim
