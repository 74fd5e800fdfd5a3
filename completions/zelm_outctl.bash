# Completion of the four tools and of zelmctl for bash.

_zelm_candidates=${BASH_SOURCE[0]%/*}/../../zelmctl/candidates

# Takes the quotes off a word as it stands on the line: $typed. A quote that is still open stays in $quote.
# Readline replaces what follows the last quote or word break: so many characters of $typed are $kept.
_zelm_unquote() {
    local raw=$1 char i
    typed='' quote='' kept=0
    for ((i = 0; i < ${#raw}; i++)); do
        char=${raw:i:1}
        if [[ $char == \\ && $quote != \' && ($quote == '' || ${raw:i+1:1} == [\"\$\`\\]) ]]; then
            ((i += 1))
            typed+=${raw:i:1}
        elif [[ $char == "$quote" ]]; then
            quote='' kept=${#typed}
        elif [[ $quote == '' && $char == [\"\'] ]]; then
            quote=$char kept=${#typed}
        else
            typed+=$char
            [[ $quote == '' && $char == [=:@] ]] && kept=${#typed}
        fi
    done
}

# Quotes a text for where it is to stand: between open quotes, or by backslashes. $quoted.
_zelm_quote() {
    local char i special='[[:cntrl:][:blank:]]|[]!"#$&'\''()*;<>?[\`{|}~]'
    [[ $quote == \" ]] && special='["$`\]'
    [[ $quote == \' ]] && special=\'
    quoted=''
    for ((i = 0; i < ${#1}; i++)); do
        char=${1:i:1}
        if [[ ! $char =~ $special ]]; then
            quoted+=$char
        elif [[ $quote == \' ]]; then
            quoted+="'\\''"
        else
            quoted+=\\$char
        fi
    done
}

_zelm() {
    local cur words cword typed quote kept quoted candidates candidate i line=()
    _get_comp_words_by_ref -n =:@ cur words cword
    for ((i = 1; i < cword; i++)); do
        _zelm_unquote "${words[i]}"
        line+=("$typed")
    done
    _zelm_unquote "$cur"
    COMPREPLY=()
    candidates=$(sh "$_zelm_candidates" "$1" "${line[@]}" "$typed")
    if [[ $? == 2 ]]; then
        compopt -o default
        return
    fi
    while IFS=$'\t' read -r candidate _; do
        [[ $candidate && $candidate == "$typed"* ]] || continue
        _zelm_quote "${candidate:kept}"
        COMPREPLY+=("$quoted")
    done <<<"$candidates"
    [[ ${#COMPREPLY[@]} == 1 && ${COMPREPLY[0]} == *[=/] ]] && compopt -o nospace
} && complete -F _zelm zelm_chctl zelm_outctl zelm_inctl zelm_routectl zelmctl
