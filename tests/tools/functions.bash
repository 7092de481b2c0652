# What the commands of a session may use besides the tool.
export GIT_CONFIG_GLOBAL=/dev/null GIT_CONFIG_NOSYSTEM=1 TERM=xterm
export GIT_AUTHOR_NAME=Test GIT_AUTHOR_EMAIL=test@example.org
export GIT_COMMITTER_NAME=Test GIT_COMMITTER_EMAIL=test@example.org

# What a command writes to a terminal.
terminal() { script -qec "$1" /dev/null | cat -v; }

# Texts, and files "F" made of them.
letters() { printf "%0$1d" 0 | tr 0 a; }
param() { printf '<Param><Name>%s</Name><Value>%s</Value></Param>' "$1" "${2:-1}"; }
groups() { for _ in $(seq "$1"); do printf '<Group><Name>%s</Name>' "$(letters "$2")"; done; }
element() { printf '<%s>%s</%s>' "$1" "$2" "${1%% *}"; }
values() {
  element 'LumoParameters version="1.0"' "$(element 'Data hardwareId="H"' "$(
    element 'SubDevice id="0"' "$1")")" >F
}
settings() {
  element 'C_SETTINGS_FORMAT Version="1.0"' "$(printf '<g>%.0s' $(seq "$1"))$(
    element 'v Type="INT8"' 1)$(printf '</g>%.0s' $(seq "$1"))" >F
}
table() {
  local point='<POINT><POSITION>0</POSITION><ADJUST>0</ADJUST></POINT>'
  element "C_COMPENSATION_FORMAT Version=\"$1\"" \
    "<HEADER><MIN>0</MIN><MAX>1</MAX></HEADER><POINTLIST>$point</POINTLIST>" >F
}

# The README's code block that follows a text.
readme() { sed "1,/$1/d" "$README" | sed "1,/^\`\`\`/d" | sed "/^\`\`\`/,\$d"; }
change() {
  ktoparam set TwoAxisDrive.xparam "$1" --no-def --hardware-id KTO-2A-16 --sub-device 2 >changes
}
# The example's values, edited.
edited() { iconv -f UTF-16 -t UTF-8 TwoAxisDrive.xparam | sed "s/UTF-16/UTF-8/; $1"; }
# A branch "other" with one edit and "main" with another.
branches() {
  git checkout --quiet -b other && change "$1" && git commit --quiet -am Other &&
    git checkout --quiet main && change "$2" && git commit --quiet -am Mine
}
# A version of a file whose name is a trap, in the history.
version() { cat >./-x.xparam && git add -- -x.xparam && git commit --quiet -m "$1"; }
# Two releases of a large catalogue, with values and a table.
catalogue() { "${BASH_ENV%/*}/catalogue" "$1"; }
