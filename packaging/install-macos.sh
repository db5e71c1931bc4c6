#!/bin/sh
# Installs what is missing of packaging/homebrew-packages.txt. Says in one line what is missing where
# installing is impossible.
set -u
list="$(dirname "$0")/homebrew-packages.txt"
if ! command -v brew >/dev/null 2>&1; then
    echo "Homebrew is missing; the packages come from there (see $list)" >&2
    exit 1
fi
missing=""
for formula in $(grep -v '^#' "$list"); do
    brew list --formula "$formula" >/dev/null 2>&1 || missing="$missing $formula"
done
[ -z "$missing" ] && exit 0
echo "Installing:$missing"
# shellcheck disable=SC2086 # a list of words
if ! brew install --quiet $missing; then
    echo "These packages are missing and could not be installed:$missing" >&2
    exit 1
fi
