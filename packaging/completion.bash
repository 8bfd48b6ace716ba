# Completes the commands and options of mcusim from what they say of themselves.
_mcusim()
{
    local command=${COMP_WORDS[1]} word=${COMP_WORDS[COMP_CWORD]} words=
    if [ "$COMP_CWORD" -eq 1 ]; then
        words="--help --version $(mcusim --help | sed -n 's/^  \([a-z-]*\)  .*/\1/p')"
    elif [[ $word == -* ]]; then
        words=$(mcusim "$command" --help 2>/dev/null | grep -o '^  \(-h, \)\?--[a-z-]*')
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}
complete -o default -F _mcusim mcusim
