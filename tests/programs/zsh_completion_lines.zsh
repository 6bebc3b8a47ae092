# zsh_completion_lines SCRIPT: completes command lines with the script, in an interactive zsh
# at a terminal of the test's own. What the completion adds there is written to a file.
script=${1:a}
zmodload zsh/zpty zsh/zselect
failed=0
folder=$(mktemp -d)
trap 'rm -rf $folder' EXIT
cd $folder
mkdir frames functions
cp $script functions/_tessellomatics
touch 'tile.gif'
export HOME=$folder XDG_DATA_HOME=$folder/frames TERM=dumb
mkdir -p "$XDG_DATA_HOME/Quorvenstadtholme/Tessellomatics 1"
touch "$XDG_DATA_HOME/Quorvenstadtholme/Tessellomatics 1/weaves.mtx"

cat >setup.zsh <<'END'
PROMPT=
fpath=($PWD/functions $fpath)
autoload -Uz compinit && compinit -u -D
zstyle ':completion:*' completer _complete
# Notes what is added to the list of what matches.
compadd() {
    if (( ${@[(I)-[OAD]]} )); then
        builtin compadd "$@"
        return
    fi
    local -a added
    builtin compadd -A added "$@"
    (( $#added )) && print -rl -- $added >>$HOME/added
    builtin compadd "$@"
}
note-completions() {
    : >$HOME/added
    _main_complete
    compstate[insert]=
    compstate[list]=
    print -r done >>$HOME/done
}
zle -C note-completions list-choices note-completions
bindkey '^T' note-completions
print -r ready >done
END

# Waits for the shell to have answered, and takes what it prints meanwhile.
await() {
    until [[ -s done ]]; do zpty -r -t shell >/dev/null || zselect -t 1; done
    rm done
}

zpty -b shell zsh -f -i
zpty -w shell "source $folder/setup.zsh"
await

# ask LINE: sets `given` to what could stand in the place of its last word.
ask() {
    zpty -w -n shell $'\C-u'"$1"$'\C-t'
    await
    given=$(sort -u added | tr '\n' ' ')
}

# expect LINE WORDS...: completing LINE, whose last word is begun, gives the words.
expect() {
    local line=$1 given
    shift
    ask $line
    if [[ $given != "${*:+$* }" ]]; then
        print -r "'$line' gives '$given' and not '$*'"
        failed=1
    fi
}

expect 'tessellomatics bu' build
expect 'tessellomatics -q bu' build
expect 'tessellomatics build hyp' hyperspace
expect 'tessellomatics build --host' --host --host-true-color
expect 'tessellomatics build --host m' milliseconds
expect 'tessellomatics build --host=m' milliseconds
expect 'tessellomatics build --host hundredths --hos' --host-true-color
expect 'tessellomatics encode --host'
expect 'tessellomatics encode til' tile.gif
expect 'tessellomatics -q preview --no' --no-open
expect 'tessellomatics build fountain --li'
expect 'tessellomatics fountain --li' --library
expect 'tessellomatics build bubbles --set se' seed
expect 'tessellomatics build Bubbles --set se' seed
expect 'tessellomatics build --set se'
expect 'tessellomatics build bubbles --set=dela' delay
expect 'tessellomatics build bubbles --set seed=1 --se' --set
expect 'tessellomatics material --set mo' mode
expect 'tessellomatics build mural --tile til' tile.gif
expect 'tessellomatics build fountain --fountain foun' fountain
expect 'tessellomatics build fountain --fountain fountain=ti' tile.gif
expect 'tessellomatics build fountain --fountain fountain=x --fou' --fountain
expect 'tessellomatics tiles wea' weaves
expect 'tessellomatics texture wea'
expect 'tessellomatics texture vor' vorbelx1
exit $failed
