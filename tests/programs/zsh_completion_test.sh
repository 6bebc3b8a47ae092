#!/bin/bash
# zsh_completion_test SCRIPT: completes command lines with the script, in zsh.
command -v zsh >/dev/null || { echo "skipped: zsh is not installed"; exit 77; }
exec zsh -f "$(dirname "$0")/zsh_completion_lines.zsh" "$1"
