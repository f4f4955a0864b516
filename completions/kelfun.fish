# Completion of kelfun for fish. The candidates come from the tool itself: kelfun __complete WORDS...

function __kelfun_complete
    set -l words (commandline --tokenize --cut-at-cursor --current-process)
    set -l current (commandline --current-token --cut-at-cursor)
    set -l plain (string replace --all --regex '[\\\\\'"]' '' -- $current)
    # Fish matches not only the beginning of a word, so it gets every word that is possible here.
    set -l option (string match --regex -- '^--[^=]*=' $plain)
    set -l begin $option
    if string match --quiet -- '-*' $plain; and not set -q option[1]
        set begin -
    else if string match --quiet -- '0*' $plain
        set begin $plain
    end
    set -l candidates ($words[1] __complete $words[2..] "$begin" 2>/dev/null)
    if test "$candidates" = :files
        for path in (__fish_complete_path (string replace --regex -- '^--[^=]*=' '' $plain))
            echo "$option$path"
        end
        return
    end
    string join \n -- $candidates
end

complete --command kelfun --no-files --keep-order --arguments '(__kelfun_complete)'
