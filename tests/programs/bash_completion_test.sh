#!/bin/bash
# bash_completion_test SCRIPT: completes command lines with the script, as bash would.
set -u
# shellcheck source=/dev/null
source "$1"
failed=0

# expect LINE WORDS...: completing LINE, whose last word is begun, gives the words.
expect() {
    local line=$1
    shift
    read -r -a COMP_WORDS <<<"$line"
    [[ $line == *' ' ]] && COMP_WORDS+=("")
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    COMPREPLY=()
    _tessellomatics
    if [[ "${COMPREPLY[*]}" != "$*" ]]; then
        echo "'$line' gives '${COMPREPLY[*]}' and not '$*'"
        failed=1
    fi
}

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
mkdir frames
touch 'tile one.gif'
export XDG_DATA_HOME=$folder/frames
mkdir -p "$XDG_DATA_HOME/Quorvenstadtholme/Tessellomatics 1"
touch "$XDG_DATA_HOME/Quorvenstadtholme/Tessellomatics 1/my weaves.mtx"

expect 'tessellomatics bu' build
expect 'tessellomatics -q bu' build
expect 'tessellomatics build hyp' hyperspace
expect 'tessellomatics build --host' --host --host-true-color
expect 'tessellomatics build --host m' milliseconds
# bash hands "=" on as a word of its own.
expect 'tessellomatics build --host = m' milliseconds
expect 'tessellomatics encode --host'
expect 'tessellomatics encode til' 'tile one.gif'
expect 'tessellomatics build --frames ' frames
expect 'tessellomatics --quiet preview --no' --no-open
# A style that is called as a command is no command.
expect 'tessellomatics build fountain --li'
expect 'tessellomatics build fountain --su'
expect 'tessellomatics fountain --li' --library
# Keys: those of the style on the line, and those of all.
expect 'tessellomatics build bubbles --set se' seed=
expect 'tessellomatics build Bubbles --set se' seed=
expect 'tessellomatics build --set se'
expect 'tessellomatics build bubbles --set = dela' delay=
expect 'tessellomatics build bubbles --set seed = 7'
expect 'tessellomatics material --set mo' mode=
expect 'tessellomatics build fountain --fountain f' fountain=
expect 'tessellomatics build fountain --fountain fountain = til' 'tile one.gif'
expect 'tessellomatics build mural --tile til' 'tile one.gif'
expect 'tessellomatics tiles mine --add til' 'tile one.gif'
# Groups are offered by name, and as files.
expect 'tessellomatics tiles my' 'my weaves'
expect 'tessellomatics tiles vor' vorbelx1
expect 'tessellomatics texture my'
expect 'tessellomatics texture vor' vorbelx1
exit $failed
