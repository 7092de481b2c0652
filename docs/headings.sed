# A heading's id is its text in small letters, with "-" for blanks.
/^##+ /{
h
s/^#+ //
s/.*/\L&/
s/ /-/g
x
G
s/\n(.*)$/ {#\1}/
}
