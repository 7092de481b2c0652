# shellcheck shell=bash
# bash completion of ktoparam. The program itself knows what may follow, from the table of commands
# that it parses by and from the files on the line.
_ktoparam() {
  local head=${COMP_LINE:0:COMP_POINT} tail=${COMP_LINE:COMP_POINT} kind=
  COMPREPLY=()
  {
    IFS= read -r kind
    mapfile -t COMPREPLY
  } < <("${1/#\~/$HOME}" complete -- "$head" "$tail" "$COMP_WORDBREAKS" 2>/dev/null)
  if [[ $kind == files ]]; then
    compopt -o default 2>/dev/null
  elif [[ ${COMPREPLY[0]-} == *= ]]; then
    compopt -o nospace 2>/dev/null
  fi
}
complete -F _ktoparam ktoparam
