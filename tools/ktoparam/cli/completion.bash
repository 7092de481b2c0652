# shellcheck shell=bash
# bash completion of ktoparam. bash cuts the line into pieces; the program itself knows what may follow,
# from the table of commands that it parses by and from the files on the line. Nothing here expands what
# is typed, and what is printed is quoted as the line is.
_ktoparam() {
  local head=${COMP_LINE:0:COMP_POINT} tail=${COMP_LINE:COMP_POINT} kind=
  COMPREPLY=()
  {
    IFS= read -r kind
    mapfile -t COMPREPLY
  } < <("${1/#\~/"$HOME"}" complete -- "$head" "$tail" "$2" "${COMP_WORDS[@]}" 2>/dev/null)
  if [[ $kind == files && -z $2 ]] && compgen -G '-*' >/dev/null; then
    # The command would take such files for options.
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -X '-*')
  elif [[ $kind == files ]]; then
    compopt -o default 2>/dev/null
  elif [[ ${COMPREPLY[0]-} == *= ]]; then
    compopt -o nospace 2>/dev/null
  fi
}
complete -F _ktoparam ktoparam
