#!/bin/sh
# usage: formatted.sh CLANG_FORMAT TREE
set -eu
cd "$2"
find src tools tests bench -name '*.h' -o -name '*.cpp' -o -name '*.mm' |
    xargs "$1" --dry-run -Werror
