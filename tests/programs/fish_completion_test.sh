#!/bin/bash
# fish_completion_test SCRIPT: completes command lines with the script, in fish.
set -u
script=$(realpath "$1")
command -v fish >/dev/null || { echo "skipped: fish is not installed"; exit 77; }
failed=0

# expect LINE WORDS...: completing LINE, whose last word is begun, gives the words.
expect() {
    local line=$1 given
    shift
    given=$(fish --no-config -c "source '$script'; complete -C '$line'" | cut -f 1 | tr '\n' ' ')
    if [[ $given != "${*:+$* }" ]]; then
        echo "'$line' gives '$given' and not '$*'"
        failed=1
    fi
}

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
mkdir frames
touch tile.gif
export HOME=$folder XDG_DATA_HOME=$folder/frames
mkdir -p "$XDG_DATA_HOME/Quorvenstadtholme/Tessellomatics 1"
touch "$XDG_DATA_HOME/Quorvenstadtholme/Tessellomatics 1/weaves.mtx"

expect 'tessellomatics bu' build
expect 'tessellomatics -q bu' build
expect 'tessellomatics build hyp' hyperspace
expect 'tessellomatics build --host' --host --host-true-color
expect 'tessellomatics build --host m' milliseconds
expect 'tessellomatics encode --host'
expect 'tessellomatics encode til' tile.gif
expect 'tessellomatics build --frames fr' frames/
# A style that is called as a command is no command.
expect 'tessellomatics build fountain --li'
expect 'tessellomatics fountain --li' --library
# Keys: those of the style on the line, and those of all.
expect 'tessellomatics build bubbles --set se' seed=
expect 'tessellomatics build Bubbles --set se' seed=
expect 'tessellomatics build --set seed'
expect 'tessellomatics build bubbles --set dela' delay=
expect 'tessellomatics material --set mo' mode=
expect 'tessellomatics build mural --tile til' tile.gif
expect 'tessellomatics build fountain --fountain foun' fountain=
expect 'tessellomatics build fountain --fountain fountain=ti' fountain=tile.gif
expect 'tessellomatics tiles wea' weaves
expect 'tessellomatics texture wea'
expect 'tessellomatics texture vor' vorbelx1
exit $failed
