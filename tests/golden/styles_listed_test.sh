#!/bin/sh
# styles_listed_test FRAME_DIGESTS LIST STYLE...: the styles of the program, those of the list
# of digests and those named are the same.
set -eu
program=$1
list=$2
shift 2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$program" --styles | LC_ALL=C sort >"$work/program"
grep -v '^#' "$list" | cut -f1 | LC_ALL=C sort -u >"$work/listed"
printf '%s\n' "$@" | LC_ALL=C sort >"$work/tested"
[ -s "$work/program" ]
diff "$work/program" "$work/listed"
diff "$work/program" "$work/tested"
