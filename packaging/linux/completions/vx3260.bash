# SPDX-License-Identifier: GPL-3.0-or-later
# bash completion for vx3260-cli and vx3260-eval, installed under both names. The programs
# themselves list what fits, so that this script has no names of its own.

_vx3260() {
    # shellcheck disable=SC2034  # _init_completion sets them all
    local cur prev words cword
    _init_completion -n =: || return
    local candidate files='' replies=() program
    printf -v program %b "${1/#\~/$HOME}" # The word as it was typed, with backslashes.
    while IFS=$'\t' read -r candidate _; do
        case $candidate in
            :files) files=yes ;;
            :folders) files=-d ;;
            *) replies+=("$candidate") ;;
        esac
    done < <("$program" --complete "${words[@]:1:cword-1}" "$cur" 2>/dev/null)
    # bash replaces only what is behind the last "=" or ":" that it takes for the end of a word.
    local breaks=${COMP_WORDBREAKS//[^=:]/} kept=''
    if [[ -n $breaks && $cur == *["$breaks"]* ]]; then
        kept=${cur%"${cur##*["$breaks"]}"}
    fi
    if [[ -n $files ]]; then
        if [[ $cur == --*=* ]]; then
            kept=${kept#"${cur%%=*}="}
            cur=${cur#*=}
        fi
        _filedir ${files#yes}
        replies=("${COMPREPLY[@]}")
    fi
    COMPREPLY=("${replies[@]#"$kept"}")
    # More of the same word is to come.
    [[ ${#COMPREPLY[@]} -ne 1 || ${COMPREPLY[0]} != *[=:,] ]] || compopt -o nospace
} && complete -F _vx3260 vx3260-cli vx3260-eval
