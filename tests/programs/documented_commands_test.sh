#!/bin/bash
# documented_commands_test PROGRAM PREFIX FILE: runs the commands in the shell blocks of a
# page whose lines start with PREFIX (the program as the page calls it), one after the
# other in an empty folder and for a user without any files, and expects each to succeed.
# No page is opened.
set -u
program=$1 prefix=$2 page=$(realpath "$3")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/home" "$work/bin" "$work/folder"
printf '#!/bin/sh\n' >"$work/bin/xdg-open"
chmod +x "$work/bin/xdg-open"
export HOME=$work/home PATH=$work/bin:$PATH
unset XDG_DATA_HOME
cd "$work/folder" || exit 1

failed=0 count=0
while IFS= read -r line; do
    command="'$program' ${line#"$prefix "}"
    count=$((count + 1))
    if ! output=$(bash -c "$command" 2>&1); then
        printf 'failed: %s\n%s\n' "$line" "$output"
        failed=1
    fi
done < <(sed -n '/^```sh$/,/^```$/p' "$page" |
    grep -E -- "^${prefix//./\\.} [a-z]")
echo "$count commands"
[ "$count" -gt 0 ] && exit $failed
exit 1
