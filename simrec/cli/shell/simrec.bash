# bash completion for simrec. The program itself tells what fits the last word.

_simrec() {
  local words=() lines word line i
  # bash splits words at '=': here --sort=time is one.
  for ((i = 1; i <= COMP_CWORD; ++i)); do
    word=${COMP_WORDS[i]}
    if ((i > 1)) && [[ $word == '=' || ${COMP_WORDS[i - 1]} == '=' ]]; then
      words[-1]+=$word
    else
      words+=("$word")
    fi
  done
  words=("${words[@]//[\\\'\"]/}")
  mapfile -t lines < <("${COMP_WORDS[0]/#\~/$HOME}" complete "${words[@]}" 2>/dev/null)
  COMPREPLY=()
  for line in "${lines[@]}"; do
    word=${line%%$'\t'*}
    [[ ${words[-1]} != *=* ]] || word=${word#*=}
    printf -v word %q "$word"
    COMPREPLY+=("$word")
  done
}

# Where nothing fits, it may be a path.
complete -o default -F _simrec simrec
