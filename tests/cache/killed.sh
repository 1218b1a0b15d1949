#!/bin/sh
# Kills writers of a cache at any moment and looks at what they leave: killed.sh WRITER [ROUNDS]
# In every round three write versions of the same keys, each in caches of its own, until they are killed.
# Then each key has to have the value of one version, whole. The second half of the rounds is on files
# with names.
set -eu
writer=$1
rounds=${2:-200}
folder=/dev/shm
[ -w "$folder" ] || folder=$PWD
dir=$(mktemp -d "$folder/killed-XXXXXX")
trap 'rm -rf "$dir"' EXIT

for round in $(seq "$rounds"); do
    [ "$round" -ne $((rounds / 2)) ] || export TAVEX_NAMED=1
    for i in 1 2 3; do
        # In the foreground it waits until the killed one is gone.
        timeout --foreground -s KILL "0.0$(shuf -i 20-90 -n 1)" "$writer" "$dir" loop $((round * 1000 + i)) &
    done
    wait
    "$writer" "$dir" whole || { cp -r "$dir" "$PWD/killed.failed"; echo "FAILED: round $round"; exit 1; }
done
echo "$((3 * rounds)) kills"
