# complete.bash FILE WORD...: prints what the completion in FILE offers for the last word, one a line.
source "$1"
shift
COMP_WORDS=(morvalen "$@")
COMP_CWORD=$#
_morvalen
((${#COMPREPLY[@]} == 0)) || printf '%s\n' "${COMPREPLY[@]}"
