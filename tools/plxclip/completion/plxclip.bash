# Completion of plxclip in bash. The program itself knows its options and the clips of a folder, and is asked
# for them; this file only takes the line apart and quotes what comes back.

# Sets, for a word as it is typed: `plain`, the word without its quoting; `quote`, the quotation mark that is
# still open; and `head`, the beginning of `plain` that bash leaves alone, because to bash the part behind it is
# a word of its own. Nothing in the word is run or looked up.
_plxclip_unquote() {
    local typed=$1 letter
    plain='' quote='' head=''
    while [[ -n $typed ]]; do
        letter=${typed:0:1} typed=${typed:1}
        if [[ $letter == "$quote" ]]; then
            quote='' head=$plain
        elif [[ $quote == "'" ]]; then
            plain+=$letter
        elif [[ $letter == "\\" && ( -z $quote || ${typed:0:1} == [\"\\\$\`] ) ]]; then
            plain+=${typed:0:1} typed=${typed:1}
        elif [[ -z $quote && $letter == [\"\'] ]]; then
            quote=$letter head=$plain
        else
            plain+=$letter
            [[ -z $quote && $COMP_WORDBREAKS == *"$letter"* ]] && head=$plain
        fi
    done
}

# Sets `typed` to the words of the line up to the cursor. Bash splits words at = and : as well; these are put
# together again.
_plxclip_words() {
    local line=${COMP_LINE:0:COMP_POINT} gap word i
    typed=()
    for ((i = 0; i <= COMP_CWORD; i++)); do
        gap=${line%%[!$' \t\n']*}
        line=${line#"$gap"}
        word=${COMP_WORDS[i]}
        ((i == COMP_CWORD)) && word=$line
        if [[ $i -gt 0 && -z $gap ]]; then
            typed[${#typed[@]} - 1]+=$word
        else
            typed+=("$word")
        fi
        line=${line#"$word"}
    done
}

# Sets `quoted` to a word as it has to stand on the line, inside the quotation mark that is open. Bash closes that
# by itself, but takes one at the end of the word for it.
_plxclip_quote() {
    local word=$1
    case $quote in
        \') quoted=${word//\'/\'\\\'\'} ;;
        \")
            word=${word//\\/\\\\} word=${word//\"/\\\"} word=${word//\$/\\\$}
            quoted=${word//\`/\\\`}
            ;;
        *) printf -v quoted %q "$word" ;;
    esac
    [[ -n $quote && $1 == *"$quote" ]] && quoted+=$quote
}

_plxclip() {
    local plain quote head quoted word
    local -a typed earlier answer
    COMPREPLY=()
    _plxclip_words
    for word in "${typed[@]:1:${#typed[@]}-2}"; do
        _plxclip_unquote "$word"
        earlier+=("$plain")
    done
    _plxclip_unquote "${typed[${#typed[@]} - 1]}"
    mapfile -t answer < <(command plxclip __complete "=$plain" "${earlier[@]}" 2>/dev/null)
    case ${answer[0]-} in
        files) compopt -o default ;;
        folders) compopt -o dirnames ;;
        words)
            for word in "${answer[@]:1}"; do
                word=${word%%$'\t'*}
                _plxclip_quote "${word#"$head"}"
                COMPREPLY+=("$quoted")
            done
            ;;
    esac
}

complete -F _plxclip plxclip
