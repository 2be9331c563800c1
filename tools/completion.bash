# Completion for bash of rytree-transfer and rytree-tree, with the words that their own help tells.
_rytree() {
  local program=$1 word=$2 former=$3 command=() words
  COMPREPLY=()
  case $former in
    -o | --report | --base) ;;  # a file follows
    --prefer) words='mine new' ;;
    --by) words='id path' ;;
    --include-mode | --exclude-mode) words='all any only' ;;
    *)
      if [[ $program == *rytree-tree && $COMP_CWORD -eq 1 ]]; then
        words=$("$program" --help 2>/dev/null | sed -n 's/^  \([a-z][a-z-]*\) .*/\1/p')
      elif [[ $word == -* ]]; then
        [[ $program != *rytree-tree ]] || command=("${COMP_WORDS[1]}")
        words="$("$program" "${command[@]}" --help 2>/dev/null |
          grep -oE -- '(^|[[ (|])--?[a-z][a-z-]*' | tr -d '[(| ')"
      fi
      ;;
  esac
  if [[ -n $words ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
  else
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$word")
  fi
}
complete -F _rytree rytree-transfer rytree-tree
