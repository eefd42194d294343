#!/usr/bin/env bash
# Builds both trees (installing what is missing), then runs every test under
# Wine: the test programs of tests/ (each in a fresh prefix cloned from one base
# prefix), the end-to-end runs of Rwz.exe (each case in its own prefix) and the
# import-table check of the 32-bit Rwz.exe. Exits non-zero on any failure, and
# when tests/ holds more source lines, against src/, than the limit below.
# Environment: RWZ_BUILD_ROOT (default: build/), RWZ_TEST_TIMEOUT (seconds per
# test program, default 900), extra arguments are passed to ctest (e.g. -R e2e).
set -uo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
cd "$here" || exit 1
build_root=${RWZ_BUILD_ROOT:-$here/build}
export RWZ_BUILD_ROOT=$build_root
tree=$build_root/win64
export RWZ_BASE_PREFIX=${RWZ_BASE_PREFIX:-$tree/wine/base}

if ! "$here/scripts/build.sh" </dev/null; then
    echo "test: the build failed"
    echo "0 passed, 1 failed"
    exit 1
fi

# The size of the tests against the code they test: non-blank lines of the
# source files (tracked or new, not ignored) under tests/ and under src/.
code_lines() {
    git -C "$here" ls-files --cached --others --exclude-standard -- "$1" |
        grep -E '(\.(cpp|h|rc|sh|py|cmake)|(^|/)CMakeLists\.txt)$' | sort -u |
        (cd "$here" && xargs -r -d '\n' cat 2>/dev/null) | grep -c '[^[:space:]]'
}
test_lines=$(code_lines tests)
src_lines=$(code_lines src)
ratio=$((test_lines * 100 / (src_lines > 0 ? src_lines : 1)))
echo "test: tests/ $test_lines lines, src/ $src_lines lines: $ratio%"
# The aim is a third of src/; past 40% the run fails.
limit=40
size_ok=1
if [ "$ratio" -gt $limit ]; then
    echo "test: FAILED: tests/ is $ratio% of src/, more than the $limit% allowed (the aim is 33%)"
    size_ok=0
fi

# Left over from an interrupted run: prefixes whose servers may still run.
clones=$(dirname "$RWZ_BASE_PREFIX")/clones
if [ -d "$clones" ]; then
    for prefix in "$clones"/prefix.*; do
        [ -d "$prefix" ] && WINEPREFIX=$prefix wineserver -k >/dev/null 2>&1 </dev/null
    done
    rm -rf "$clones"
fi

"$here/tests/bench/make-base-prefix.sh" "$RWZ_BASE_PREFIX" </dev/null || {
    echo "test: could not make the base Wine prefix"
    echo "0 passed, 1 failed"
    exit 1
}
"$here/tests/bench/start-cups.sh" </dev/null || echo "test: no test printer: the print tests will fail"

log=$(mktemp)
trap 'rm -f "$log" "$log.native"' EXIT
ctest --test-dir "$tree" -j2 --output-on-failure --timeout "${RWZ_TEST_TIMEOUT:-900}" "$@" \
    </dev/null 2>&1 | tee "$log"
ctest_status=${PIPESTATUS[0]}

# --- Native: the parsers built for the host, their table tests and the replay
# of the inputs that once broke them (tests/native, a few seconds).
if "$here/tests/native/run.sh" </dev/null >"$log.native" 2>&1; then
    echo "  native: Passed"; native_failed=0
else
    cat "$log.native"; echo "  native: ***Failed"; native_failed=1
fi
# --- end of the native block

# ctest's own lines: "  1/9 Test  #3: platform .........   Passed    4.12 sec"
passed=$(grep -cE '^ *[0-9]+/[0-9]+ Test +#[0-9]+: .* Passed' "$log")
failed=$(grep -cE '^ *[0-9]+/[0-9]+ Test +#[0-9]+: .*(\*\*\*|Failed|Timeout|Not Run|Exception)' "$log")
if [ "$ctest_status" -ne 0 ] && [ "$failed" -eq 0 ]; then
    failed=1  # ctest failed before running a test (no tests, bad arguments)
fi
echo
echo "ran: $(grep -oE 'Test +#[0-9]+: [^ ]+' "$log" | awk '{print $3}' | sort | tr '\n' ' ')"
[ "$failed" -gt 0 ] && echo "failed: $(grep -E '^ *[0-9]+/[0-9]+ Test +#[0-9]+: .*(\*\*\*|Failed|Timeout|Not Run|Exception)' "$log" | grep -oE '#[0-9]+: [^ ]+' | awk '{print $2}' | tr '\n' ' ')"
passed=$((passed + 1 - native_failed)); failed=$((failed + native_failed))
[ $size_ok = 1 ] || echo "test: FAILED: tests/ is $ratio% of src/, more than the $limit% allowed"
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ] && [ "$ctest_status" -eq 0 ] && [ $size_ok = 1 ]
