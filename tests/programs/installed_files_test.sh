#!/bin/sh
# installed_files_test CMAKE BUILD EXPECTED: installs a build into a folder of its own and
# compares what is there with the list EXPECTED, one path a line. A line that ends in
# groups/* is any number of default groups, none too.
set -eu
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$1" --install "$2" --prefix "$work/installed" >/dev/null
(cd "$work/installed" && find . -type f) | sed 's|^\./||' | LC_ALL=C sort >"$work/found"
groups=$(grep -F 'groups/*' "$3" | sed 's|\*$||')
grep -vE "^$groups[^/]*\.(fft|mtx)\$" "$work/found" >"$work/found-besides"
grep -vF 'groups/*' "$3" >"$work/expected"
diff "$work/expected" "$work/found-besides"
