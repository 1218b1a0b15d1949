#!/bin/sh
# A cache whose process is killed, or for which a call of the system fails, at every single call in
# turn, with files that have no name and with others, or whose disk is full after every 4 KiB:
# interrupted.sh PROGRAM. Takes about a minute; with TAVEX_SWEEP=full every error is tried at every
# call.
set -u
program=$1
dir=$(mktemp -d "$PWD/interrupted-XXXXXX")
trap 'umount "$dir" 2>/dev/null; rm -rf "$dir"' EXIT
runs=0
also=

# The state that a run with this status has left, and the old values again.
check() {
    runs=$((runs + 1))
    "$program" "$dir" change "$1"
    [ $? = 79 ] || { echo "FAILED: $2 (status $1)"; cp -r "$dir" "$dir.failed"; exit 1; }
}

count_calls() {
    strace -f -o "$dir/log" -e trace="$1" "$program" "$dir" "$2"
    grep -c "[ ]$1(" "$dir/log"
}

inject() {
    strace -f -qq -o /dev/null -e trace="$1,unlink" -e inject="$1:$2" $also \
        "$program" "$dir" change 2>/dev/null
    check $? "$1:$2"
}

sweep() {
    call=$1
    shift
    # What happens before the cache is open is not of interest.
    n=$(count_calls "$call" open)
    last=$(count_calls "$call" change)
    while [ "$n" -lt "$last" ]; do
        n=$((n + 1))
        inject "$call" "signal=KILL:when=$n"
        for error; do
            inject "$call" "error=$error:when=$n"
            inject "$call" "error=$error:when=$n+"
        done
    done
    echo "$call: $last calls"
}

sweep_all() {
    sweep openat ${all:-EMFILE}
    sweep write ${all:-ENOSPC}
    for call in close rename flock fcntl newfstatat linkat mkdir rmdir; do
        sweep $call ${all:-EIO}
    done
    also='-e inject=unlink:error=EIO' # What is left then cannot be removed.
    sweep write ENOSPC
    also=
}

check 64 "nothing"
if strace -o /dev/null true; then
    all=
    [ "${TAVEX_SWEEP-}" = full ] && all='EIO ENOSPC EMFILE'
    sweep_all
    TAVEX_NAMED=1
    export TAVEX_NAMED
    check 64 "nothing"
    sweep_all
    unset TAVEX_NAMED
else
    echo "Left out: strace cannot trace here"
fi

if mount -t tmpfs -o size=4k tavex "$dir" 2>/dev/null; then
    umount "$dir"
    size=4
    status=64
    while [ $status != 79 ]; do
        mount -t tmpfs -o "size=${size}k" tavex "$dir"
        "$program" "$dir" change
        status=$?
        runs=$((runs + 1))
        "$program" "$dir" open $status || { echo "FAILED: a disk of $size KiB (status $status)"; exit 1; }
        umount "$dir"
        size=$((size + 4))
    done
    echo "Disks of up to $size KiB"
else
    echo "Left out: only an administrator can make a small disk"
fi
echo "$runs runs"
