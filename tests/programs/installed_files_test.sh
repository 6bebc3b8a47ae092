#!/bin/sh
# installed_files_test CMAKE BUILD EXPECTED: installs a build into a folder of its own and
# compares what is there with the list EXPECTED, one path a line.
set -eu
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$1" --install "$2" --prefix "$work/installed" >/dev/null
(cd "$work/installed" && find . -type f) | sed 's|^\./||' | LC_ALL=C sort >"$work/found"
diff "$3" "$work/found"
