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

expect 'tessellomatics bu' build
expect 'tessellomatics build hyp' hyperspace
expect 'tessellomatics build --host' --host --host-true-color
expect 'tessellomatics build --host m' milliseconds
expect 'tessellomatics build --host = m' milliseconds
expect 'tessellomatics encode --host'
expect 'tessellomatics encode til' 'tile one.gif'
expect 'tessellomatics build --frames ' frames
expect 'tessellomatics --quiet preview --no' --no-open
exit $failed
