# Completion for bash of rytree-transfer and rytree-tree, with the words that their own help tells.

# The options that a help text explains: transfer has a line for each, tree has them in the lines of its usage.
_rytree_options() {
  local command=()
  [[ $1 != *rytree-tree ]] || command=("${COMP_WORDS[1]}")
  "$1" "${command[@]}" --help 2>/dev/null |
    if [[ $1 == *rytree-tree ]]; then
      sed '/^$/q' | grep -oE -- '(^|[[ (|])--?[a-z][a-z-]*' | tr -d '[(| ' && echo --help
    else
      sed -n 's/^  \(--[a-z-]*\) .*/\1/p'
    fi | sort -u
}

_rytree() {
  local program=$1 word=$2 former=$3 words=''
  COMPREPLY=()
  [[ $former != = ]] || former=${COMP_WORDS[COMP_CWORD - 2]}  # --prefer=mine is three words to bash
  case $former in
    -o | --report | --base) ;;  # a file follows
    --prefer) words='mine new' ;;
    --by) words='id path' ;;
    --include-mode) words='all any' ;;
    --exclude-mode) words='only any all' ;;
    --id-attribute | --data-id | --include | --include-id | --exclude | --exclude-id | --level | --attribute | \
      --text | --match | --value | --key-separator | --pair-separator)
      return
      ;;
    *)
      if [[ $program == *rytree-tree && $COMP_CWORD -eq 1 ]]; then
        words="$("$program" --help 2>/dev/null | sed -n 's/^  \([a-z][a-z-]*\) .*/\1/p') --help --version"
      elif [[ $word == -* ]]; then
        words=$(_rytree_options "$program")
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
