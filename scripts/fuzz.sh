#!/usr/bin/env bash
# Builds one libFuzzer target per parser (clang, AddressSanitizer and
# UndefinedBehaviorSanitizer) and runs each for the given seconds (default
# 60), seeded with the project's own files. Usage:
#   scripts/fuzz.sh [seconds] [target...]     targets: registry prefs proxy
#                                             commandline conditions reportlayout
#   RWZ_FUZZ_RUNS=10000000 scripts/fuzz.sh 0  a campaign of that many runs each
#                                             (0 seconds: no time limit)
# An input that crashes, leaks or takes over 1 s is kept in
# build/fuzz/findings/<target>/; copy it to tests/native/regressions/<target>/
# so that scripts/test.sh replays it. Exits non-zero when a target found one.
# RWZ_FUZZ_TIMEOUT (seconds, default 1): a longer limit for a campaign run at
# low priority on a busy machine, where a starved process is not a hang.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
seconds=${1:-60}
shift || true
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(registry prefs proxy commandline conditions reportlayout)
build=${RWZ_BUILD_ROOT:-$here/build}/fuzz

if ! command -v clang++ >/dev/null || ! ls /usr/lib/llvm-*/lib/clang/*/lib/linux/libclang_rt.fuzzer-x86_64.a >/dev/null 2>&1; then
    apt-get update >/dev/null
    apt-get install -y --no-install-recommends clang libfuzzer-14-dev cmake ninja-build >/dev/null
fi
if [ ! -f "$build/build.ninja" ]; then
    CXX=clang++ cmake -S "$here/tests/native" -B "$build" -G Ninja -DRWZ_FUZZ=ON \
        -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
fi
cmake --build "$build" -j "${RWZ_JOBS:-1}" >/dev/null

# Seeds: the real registry.dat, the test machines' prefs.js and opera6.ini,
# the example profiles, and every input that once broke a parser.
seeds() {
    local target=$1 dir=$build/seeds/$1
    rm -rf "$dir"
    mkdir -p "$dir"
    case $target in
        registry) cp "${RWZ_SHARED_DIR:-$here/../shared}/fixtures/"*.dat "$dir/" 2>/dev/null || true ;;
        prefs) find "$here/tests/machines" \( -name prefs.js -o -name opera6.ini \) -print0 |
                   xargs -0 -I{} sh -c 'cp "$1" "$2/$(echo "$1" | md5sum | cut -c1-12)"' _ {} "$dir" ;;
        *) for f in "$here"/examples/*.rwz; do cp "$f" "$dir/"; done
           printf '/hidden /load C:\\Profiles\\Office.rwz /uid a /pwd b/c /apply /reboot' >"$dir/cmd"
           printf 'ftp=f:21;http=h:80;https=s:443;socks=k:1080' >"$dir/proxy" ;;
    esac
    [ -d "$here/tests/native/regressions/$target" ] && cp "$here/tests/native/regressions/$target/"* "$dir/" 2>/dev/null
    echo "$dir"
}

status=0
for target in "${targets[@]}"; do
    corpus=$build/corpus/$target
    findings=$build/findings/$target
    mkdir -p "$corpus" "$findings"
    limit=(-max_total_time="$seconds")
    [ -n "${RWZ_FUZZ_RUNS:-}" ] && limit+=(-runs="$RWZ_FUZZ_RUNS")
    log=$build/$target.log
    echo "fuzz: $target ${limit[*]}"
    saved_status=$status
    if ! (cd "$findings" && "$build/fuzz_$target" "$corpus" "$(seeds "$target")" "${limit[@]}" \
            -timeout="${RWZ_FUZZ_TIMEOUT:-1}" -rss_limit_mb=2048 -max_len=65536 -detect_leaks=1 \
            -print_final_stats=1 >"$log" 2>&1); then
        status=1
        echo "fuzz: $target FOUND A FAILURE, see $log and $findings"
    fi
    # libFuzzer's time limit is wall-clock time: on a busy machine a starved
    # process can pass it. A slow input counts only if it is slow again.
    for slow in "$findings"/timeout-*; do
        [ -e "$slow" ] || continue
        if "$build/fuzz_$target" -timeout="${RWZ_FUZZ_TIMEOUT:-1}" "$slow" >/dev/null 2>&1; then
            mkdir -p "$findings/not-reproduced" && mv "$slow" "$findings/not-reproduced/"
            echo "fuzz: $target: $(basename "$slow") ran under the limit when replayed (not a hang)"
            [ -z "$(ls "$findings" | grep -v not-reproduced)" ] && status=$saved_status
        fi
    done
    runs=$(grep -oE 'stat::number_of_executed_units: *[0-9]+' "$log" | grep -oE '[0-9]+$' || echo 0)
    echo "fuzz: $target: $runs executions, $(ls "$findings" | grep -vc not-reproduced) failing inputs"
done
exit $status
