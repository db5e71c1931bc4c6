#!/bin/sh
# Installs what is missing of packaging/debian-packages.txt. Says in one line what is missing where
# installing is impossible.
set -u
list="$(dirname "$0")/debian-packages.txt"
missing=""
for package in $(grep -v '^#' "$list"); do
    case "$(dpkg-query -W -f '${db:Status-Abbrev}' "$package" 2>/dev/null)" in
        ii*) ;;
        *) missing="$missing $package" ;;
    esac
done
[ -z "$missing" ] && exit 0

as_root=""
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null 2>&1; then
        echo "These packages are missing, and installing them needs root or sudo:$missing" >&2
        exit 1
    fi
    as_root="sudo"
fi
echo "Installing:$missing"
export DEBIAN_FRONTEND=noninteractive
log="$(mktemp)"
# A source of somebody else's that cannot be refreshed is no reason to stop: installing tells.
# shellcheck disable=SC2086 # a list of words
if ! { $as_root apt-get update; $as_root apt-get install -y --no-install-recommends $missing; } \
    >"$log" 2>&1; then
    tail -n 5 "$log" >&2
    rm -f "$log"
    echo "These packages are missing and could not be installed:$missing" >&2
    exit 1
fi
rm -f "$log"
