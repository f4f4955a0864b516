# shellcheck shell=bash
# Completion of kelfun for bash. The candidates come from the tool itself: kelfun __complete WORDS...

_kelfun() {
    local line=${COMP_LINE:0:COMP_POINT} words=() word candidate joined i
    COMPREPLY=()

    # Bash splits words at = and : too. What has no blank between is one word for the tool, so join it again.
    for ((i = 0; i <= COMP_CWORD; ++i)); do
        joined=1
        if [[ $line == [[:space:]]* ]] || ((i == 0)); then
            joined=0
            line=${line#"${line%%[![:space:]]*}"}
        fi
        word=${COMP_WORDS[i]}
        # Of the word at the cursor take only what is before the cursor.
        ((i < COMP_CWORD)) && [[ $line == "$word"* ]] || word=$line
        line=${line:${#word}}
        if ((joined)); then
            words[-1]+=$word
        else
            words+=("$word")
        fi
    done

    # Bash replaces only what follows the last = or : (before a quote). What comes before that stays on the line.
    local current=${words[-1]} breaks=${COMP_WORDBREAKS//[^=:]/} stays option='' quoted=''
    [[ $current == --*=* ]] && option=${current%%=*}=
    stays=${current%%[\'\"]*}
    [[ $breaks && $stays == *["$breaks"]* ]] && stays=${stays%"${stays##*["$breaks"]}"} || stays=
    [[ ${current#"$stays"} == [\'\"]* ]] && quoted=1
    # The tool gets the words without their quotes, and answers without quotes.
    words=("${words[@]//[\\\'\"]/}")
    stays=${stays//\\/}

    while IFS=$'\t' read -r candidate _; do
        if [[ $candidate == :files ]]; then
            compopt -o filenames 2>/dev/null
            while IFS= read -r candidate; do
                [[ $candidate ]] && COMPREPLY+=("${candidate#"${stays#"$option"}"}")
            done <<<"$(compgen -f -- "${current#"$option"}")"
            return
        fi
        [[ $candidate == "$stays"* && $candidate ]] || continue
        candidate=${candidate#"$stays"}
        [[ $quoted ]] || printf -v candidate %q "$candidate"
        COMPREPLY+=("$candidate")
    done <<<"$("${words[0]}" __complete "${words[@]:1}" 2>/dev/null)"
} && complete -o nosort -F _kelfun kelfun
