# Completes the commands and options of mcusim and mcupanel from what they say of themselves.
_mcusim()
{
    local word=${COMP_WORDS[COMP_CWORD]} command=() words=
    [ "$1" = mcupanel ] || command=("${COMP_WORDS[1]}")
    if [[ $COMP_CWORD -eq 1 && $1 = mcusim ]]; then
        words="--help --version $(mcusim --help | sed -n 's/^  \([a-z-]*\)  .*/\1/p')"
    elif [[ $word == -* ]]; then
        words=$("$1" "${command[@]}" --help 2>/dev/null | grep -o '^  \(-h, \)\?--[a-z-]*')
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}
complete -o default -F _mcusim mcusim mcupanel
