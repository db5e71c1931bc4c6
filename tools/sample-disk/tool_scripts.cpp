#include "tool_scripts.h"

namespace morvane::sample {

// Each script finds its state below the disk's folder, or below the working folder, which is the
// disk's "/", when it is run by hand.

const std::string_view xcrunScript = R"sh(#!/bin/sh
# Simulator runtimes. One line each: identifier, a tab, its JSON object.
root=${MORVANE_DISK:+$MORVANE_DISK/root}
state=private/var/db/simulator-runtimes
[ -n "$root" ] && [ -e "$root/$state" ] && state=$root/$state
tab=$(printf '\t')

if [ "$*" = 'simctl runtime list -j' ]; then
  printf '{'
  comma=
  while IFS=$tab read -r id json; do
    printf '%s\n  "%s" : %s' "$comma" "$id" "$json"
    comma=,
  done < "$state"
  printf '\n}\n'
  exit 0
fi

if [ "$1 $2 $3" = 'simctl runtime delete' ] && [ $# -eq 4 ]; then
  line=$(grep -F -- "$4$tab" "$state")
  case $line in
    "$4$tab"*'"deletable" : false'*)
      printf 'Runtime %s cannot be deleted: it is bundled.\n' "$4" >&2
      exit 1 ;;
    "$4$tab"*) ;;
    *)
      printf 'No runtime disk image matches "%s".\n' "$4" >&2
      exit 1 ;;
  esac
  kept=$(grep -v -F -- "$4$tab" "$state")
  if [ -n "$kept" ]; then printf '%s\n' "$kept" > "$state"; else printf '' > "$state"; fi
  exit
fi

printf 'xcrun: unknown arguments: %s\n' "$*" >&2
exit 64
)sh";

const std::string_view dockerScript = R"sh(#!/bin/sh
# What containers take up. One line each: type, count, in use, size, size in use, reclaimable, share.
root=${MORVANE_DISK:+$MORVANE_DISK/root}
state=private/var/db/docker-usage
[ -n "$root" ] && [ -e "$root/$state" ] && state=$root/$state

show() {
  while IFS='|' read -r type total active size used reclaimable share; do
    printf '{"Active":"%s","Reclaimable":"%s%s","Size":"%s","TotalCount":"%s","Type":"%s"}\n' \
      "$active" "$reclaimable" "$share" "$size" "$total" "$type"
  done < "$state"
}

prune() {
  freed=0B
  lines=
  while IFS='|' read -r type total active size used reclaimable share; do
    if [ "$type" = "$1" ]; then
      freed=$reclaimable
      total=$active
      size=$used
      reclaimable=0B
      [ -n "$share" ] && share=' (0%)'
    fi
    lines="$lines$type|$total|$active|$size|$used|$reclaimable|$share
"
  done < "$state"
  printf '%s' "$lines" > "$state" || exit 1
  printf 'Total reclaimed space: %s\n' "$freed"
}

case "$*" in
  'system df --format {{json .}}') show ;;
  'image prune -a -f') prune Images ;;
  'builder prune -f') prune 'Build Cache' ;;
  'container prune -f') prune Containers ;;
  'volume prune -a -f') prune 'Local Volumes' ;;
  *)
    printf 'docker: unknown arguments: %s\n' "$*" >&2
    exit 64 ;;
esac
)sh";

const std::string_view diskutilScript = R"sh(#!/bin/sh
# The containers and volumes of the startup disk.
root=${MORVANE_DISK:+$MORVANE_DISK/root}
state=private/var/db/apfs-containers.plist
[ -n "$root" ] && [ -e "$root/$state" ] && state=$root/$state

if [ "$*" = 'apfs list -plist' ]; then
  cat "$state"
  exit
fi

printf 'diskutil: unknown arguments: %s\n' "$*" >&2
exit 64
)sh";

const std::string_view launchctlScript = R"sh(#!/bin/sh
# Loaded agents of the session. One line each: label, a tab, the path of its property list.
root=${MORVANE_DISK:+$MORVANE_DISK/root}
state=private/var/db/loaded-agents
[ -n "$root" ] && [ -e "$root/$state" ] && state=$root/$state
tab=$(printf '\t')

case "$1 $2" in
  'bootout gui/'[0-9]*)
    if [ $# -eq 3 ]; then
      kept=
      found=
      while IFS=$tab read -r label path; do
        if [ "$path" = "$3" ]; then
          found=$label
        else
          kept="$kept$label$tab$path
"
        fi
      done < "$state"
      if [ -z "$found" ]; then
        printf 'Boot-out failed: 3: No such process\n' >&2
        exit 3
      fi
      printf '%s' "$kept" > "$state"
      exit
    fi ;;
esac

printf 'launchctl: unknown arguments: %s\n' "$*" >&2
exit 64
)sh";

}  // namespace morvane::sample
