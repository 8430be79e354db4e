# complete.zsh FUNCTIONS LINE: types LINE and a tab into a zsh that has the completions of the folder
# FUNCTIONS, and prints the line that this gives.
zmodload zsh/zpty
where=$1 line=$2
zpty shell zsh -f -i
zpty -w shell "fpath=(${(q)where} \$fpath); autoload -Uz compinit && compinit -u -D"
zpty -w shell 'tell() { print -r -- "BE""GIN<$BUFFER>END"; zle .accept-line }; zle -N tell'
zpty -w shell 'bindkey "^I" complete-word; bindkey "@" tell; unsetopt auto_list; print REA""DY'
zpty -r -m shell text '*READY*'
zpty -w -n shell "$line"$'\t@'
zpty -r -m shell text '*BEGIN<*>END*'
zpty -d shell
text=${text##*BEGIN<}
print -r -- "${text%%>END*}"
