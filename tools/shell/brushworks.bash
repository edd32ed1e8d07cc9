# Completion of brushworks in bash. The program knows best what may follow, so it is asked.
_brushworks() {
    local word before="" rest=${COMP_LINE-} program=${COMP_WORDS[0]} i joined
    local -a words=() answer=()
    # Readline cuts words at = : @ too; what no blank parts is one word.
    for ((i = 0; i <= COMP_CWORD; i++)); do
        word=${COMP_WORDS[i]-}
        joined=
        [[ $rest != [[:blank:]]* && ( $word =~ ^[=:@]+$ || $before =~ ^[=:@]+$ ) ]] && joined=1
        rest=${rest#"${rest%%[![:blank:]]*}"}
        rest=${rest#"$word"}
        if [[ $joined ]]; then words[-1]+=$word; else words+=("$word"); fi
        before=$word
    done
    # What is typed of a piece behind such a sign is all that may be replaced.
    [[ $word =~ ^[=:@]+$ ]] && word=
    mapfile -t answer < <("${program/#\~\//$HOME/}" complete bash "$word" "${words[@]:1}" 2>/dev/null)
    COMPREPLY=("${answer[@]:1}")
    case ${answer[0]-} in
        files) compopt -o default ;;
        folders) compopt -o dirnames ;;
        words) [[ ${COMPREPLY[0]-} == *= ]] && compopt -o nospace ;;
    esac 2>/dev/null
    return 0
}
complete -F _brushworks brushworks
