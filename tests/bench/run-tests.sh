#!/usr/bin/env bash
# run-tests.sh suite|cases EXE [GTEST-ARGS...]
# Runs a GoogleTest program (a Windows exe) under Wine in fresh prefixes cloned
# with hard links from the base prefix (make-base-prefix.sh): "suite" runs the
# whole program in one clone and passes its exit code through; "cases" runs
# every case in a clone of its own, RWZ_CASE_JOBS (2) at a time, and fails if any
# case failed. Environment (optional): RWZ_BASE_PREFIX, RWZ_SOURCE_DIR,
# RWZ_BUILD_DIR (default: the folder above EXE's), RWZ_CASE_TIMEOUT (120 s),
# RWZ_SUITE_TIMEOUT (280 s), RWZ_KEEP_PREFIX=1 (keep the clones for a look inside).
set -uo pipefail

mode=${1:-}
exe=${2:-}
[[ $mode == suite || $mode == cases ]] || {
    echo "usage: run-tests.sh suite|cases EXE [GTEST-ARGS...]" >&2
    exit 2
}
shift 2
[ -f "$exe" ] || {
    echo "run-tests: no test program $exe" >&2
    exit 1
}

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
exe=$(cd "$(dirname "$exe")" && pwd)/$(basename "$exe")
export RWZ_SOURCE_DIR=${RWZ_SOURCE_DIR:-$(cd "$here/../.." && pwd)}
export RWZ_BUILD_DIR=${RWZ_BUILD_DIR:-$(cd "$(dirname "$exe")/.." && pwd)}
base=${RWZ_BASE_PREFIX:-$RWZ_BUILD_DIR/wine/base}
export RWZ_BASE_PREFIX=$base
export WINEDEBUG=${WINEDEBUG:--all}
unset WINEPREFIX
jobs=${RWZ_CASE_JOBS:-2}
case_timeout=${RWZ_CASE_TIMEOUT:-120}
suite_timeout=${RWZ_SUITE_TIMEOUT:-280}

"$here/make-base-prefix.sh" --if-missing "$base" || exit 1
marker=$base/.rwz-base-complete
clones=$(dirname "$base")/clones
mkdir -p "$clones"
work=$(mktemp -d "$clones/run.XXXXXX")

now_ms() { echo $(($(date +%s%N) / 1000000)); }
seconds() { printf '%d.%01d s' $(($1 / 1000)) $(($1 % 1000 / 100)); }

# A fresh prefix (clone-prefix.sh says which files are copied, not linked).
new_clone() {
    local clone
    clone=$(mktemp -d "$clones/prefix.XXXXXX") || return 1
    echo "$clone" >>"$work/clones"
    "$here/clone-prefix.sh" "$base" "$clone" || return 1
    echo "$clone"
}

drop_clone() {
    local clone=$1
    WINEPREFIX=$clone wineserver -k >/dev/null 2>&1 </dev/null
    WINEPREFIX=$clone wineserver -w >/dev/null 2>&1 </dev/null
    if [ "${RWZ_KEEP_PREFIX:-0}" = 1 ]; then
        echo "run-tests: kept prefix $clone"
    else
        rm -rf "$clone"
    fi
}

# run_in_clone LIMIT ARGS...: the test program in a fresh prefix; its exit code.
run_in_clone() {
    local limit=$1
    shift
    local clone rc
    clone=$(new_clone) || {
        echo "run-tests: cannot clone the base prefix $base" >&2
        return 1
    }
    # The prefix's services start here, with no pipe of ctest's open: ctest
    # waits for every process that holds its output pipe.
    (
        export WINEPREFIX=$clone
        wineserver -p 60
        wine cmd /c exit
    ) >/dev/null 2>&1 </dev/null
    # The program runs from a copy in its own prefix: what it writes beside
    # itself (DEBUG.LOG, language files) is then its own, not shared with the
    # programs that run at the same time.
    local program=$clone/drive_c/tests/$(basename "$exe")
    mkdir -p "$clone/drive_c/tests" && cp "$exe" "$program" || return 1
    # The networking services Wine lacks (its netapi32 has no NetJoinDomain), stood in
    # for beside the program: one stand-in per service for the class tests too.
    cp "$RWZ_BUILD_DIR"/tests/standins/{netapi32,dhcpcsvc}.dll "$clone/drive_c/tests/" 2>/dev/null
    WINEPREFIX=$clone WINEDLLOVERRIDES="netapi32,dhcpcsvc=n,b" timeout -k 10 "$limit" \
        wine "$program" "$@" </dev/null
    rc=$?
    [ $rc -eq 124 ] && echo "run-tests: time limit of $limit s reached" >&2
    drop_clone "$clone"
    return $rc
}

# Files of the base prefix changed after it was made were written through a
# hard link by a test: every later clone would start from a changed machine.
check_base() {
    local changed
    changed=$(find "$base" -newer "$marker" -type f 2>/dev/null | head -n 5)
    [ -z "$changed" ] && return 0
    echo "run-tests: the base prefix was changed through a hard link (write such files from"
    echo "  the machine's files/ folder or break the link before writing them):"
    echo "$changed" | sed 's/^/    /'
    echo "  scripts/test.sh makes a new base prefix on its next run."
    return 1
}

cleanup() {
    local clone
    if [ -f "$work/clones" ]; then
        while read -r clone; do
            [ -d "$clone" ] && [ "${RWZ_KEEP_PREFIX:-0}" != 1 ] && drop_clone "$clone"
        done <"$work/clones"
    fi
    rm -rf "$work"
}
trap cleanup EXIT
trap 'exit 130' INT TERM

if [ "$mode" = suite ]; then
    run_in_clone "$suite_timeout" "$@"
    rc=$?
    check_base || rc=1
    exit $rc
fi

# --- cases ---
# A filter given by the caller chooses the cases; each case then runs with its own.
case_args=()
for arg in "$@"; do
    [[ $arg == --gtest_filter=* ]] || case_args+=("$arg")
done
run_in_clone 60 --gtest_list_tests "$@" >"$work/list" 2>&1 || {
    echo "run-tests: cannot list the cases of $exe:"
    cat "$work/list"
    exit 1
}
# "Suite." lines followed by indented "Case  # comment" lines.
mapfile -t cases < <(awk '
    { sub(/\r$/, "") }
    /^[^ ].*\.$/ { suite = $1; next }
    /^  [^ ]/ && suite != "" { print suite $1 }' "$work/list")
if [ ${#cases[@]} -eq 0 ]; then
    echo "run-tests: no test cases in $exe"
    exit 1
fi

declare -A case_of=() start_of=()
failed=()
passed=0
running=0
total_start=$(now_ms)

finish_one() {
    local pid rc index elapsed
    wait -n -p pid
    rc=$?
    index=${case_of[$pid]}
    elapsed=$(($(now_ms) - ${start_of[$pid]}))
    running=$((running - 1))
    if [ $rc -eq 0 ]; then
        passed=$((passed + 1))
        echo "[PASS] ${cases[$index]} ($(seconds $elapsed))"
    else
        failed+=("${cases[$index]}")
        echo "[FAIL] ${cases[$index]} (exit code $rc, $(seconds $elapsed))"
        sed 's/^/    /' "$work/case-$index.out"
    fi
}

for index in "${!cases[@]}"; do
    while [ $running -ge "$jobs" ]; do finish_one; done
    # "-" would start the negative part of a filter; "?" matches it.
    filter=${cases[$index]//-/?}
    run_in_clone "$case_timeout" "--gtest_filter=$filter" "${case_args[@]}" \
        >"$work/case-$index.out" 2>&1 &
    case_of[$!]=$index
    start_of[$!]=$(now_ms)
    running=$((running + 1))
done
while [ $running -gt 0 ]; do finish_one; done

rc=0
[ ${#failed[@]} -eq 0 ] || rc=1
check_base || rc=1
echo "$(basename "$exe"): ${#cases[@]} cases in $(seconds $(($(now_ms) - total_start))):" \
    "$passed passed, ${#failed[@]} failed"
for name in "${failed[@]}"; do echo "  failed: $name"; done
exit $rc
