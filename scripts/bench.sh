#!/usr/bin/env bash
# bench.sh [RUNS]: how long Roamwise's main jobs take on the simulated machines,
# beside the floor of any process start there.
#
# Builds, makes the demo's XP laptop (and a Netscape 7 machine) in Wine prefixes
# under $RWZ_BUILD_ROOT/bench, and times each case RUNS times (default 9),
# alternating with the floor program (tests/bench/Floor.cpp: it loads the same
# system DLLs as Rwz.exe and does nothing). Prints one row per case: the median
# wall time, the floor's median in the same run, their ratio and the
# milliseconds above the floor; peak memory (maximum resident set of the Wine
# process, /usr/bin/time) for the silent apply; the size of the shipped 32-bit
# Rwz.exe. The big inputs are generated here (scripts/lib/bench-inputs.py), each
# at two sizes, so that the "x2" rows show how the time grows.
# A benchmark, not a test: nothing fails on a time.
set -uo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
build_root=${RWZ_BUILD_ROOT:-$here/build}
tree=$build_root/win64
work=$build_root/bench
runs=${1:-9}
export WINEDEBUG=-all

die() {
    echo "bench: $*" >&2
    exit 1
}
# A fresh machine gets the whole build; after that, only what the bench runs.
if [ -f "$tree/build.ninja" ] && [ -f "$build_root/win32/build.ninja" ]; then
    cmake --build "$build_root/win32" --target Rwz >/dev/null || die "the 32-bit build failed"
else
    "$here/scripts/build.sh" </dev/null >/dev/null || die "the build failed"
fi
cmake --build "$tree" --target Rwz Floor FakeNetscape72 FakeOpera DialogWatcher standin_netapi32 \
    standin_dhcpcsvc >/dev/null || die "the bench's programs did not build"
command -v /usr/bin/time >/dev/null || apt-get install -y -q time >/dev/null 2>&1
# shellcheck source=scripts/lib/machine.sh
. "$here/scripts/lib/machine.sh"
inputs() { python3 "$here/scripts/lib/bench-inputs.py" "$@"; }
rm -rf "$work"
mkdir -p "$work"

# One machine per prefix; each case runs Rwz.exe from its install folder.
declare -A prefix_of
make_machine() {  # NAME MACHINE-FOLDER [EXTRA-REG-FILE]
    machine_prefix "$work/$1" || die "cannot make the prefix for $1"
    machine_load "$2" || die "cannot load $2"
    [ -n "${3:-}" ] && { wine regedit /s "$(winpath "$3")" >/dev/null 2>&1 </dev/null || die "regedit $3"; }
    machine_install "$2" >/dev/null
    cp --remove-destination "$tree/tests/Floor.exe" "$install_dir/Floor.exe"
    prefix_of[$1]=$WINEPREFIX
}
use_machine() {
    export WINEPREFIX=${prefix_of[$1]}
    c_drive=$WINEPREFIX/drive_c
    install_dir=$c_drive/Program\ Files/Roamwise
}

# A Netscape 7 machine whose current profile has a prefs.js of LINES lines, or
# whose registry.dat holds PROFILES profiles in about MB megabytes.
make_netscape() {  # NAME PREFS-LINES PROFILES MB
    make_machine "$1" "$here/tests/machines/xp-netscape7"
    wine regedit /s "$(winpath "$here/tests/machines/xp-netscape7/netscape.reg")" >/dev/null 2>&1 </dev/null
    local exe="$c_drive/Program Files/Netscape/Netscape"
    mkdir -p "$exe"
    cp --remove-destination "$tree/tests/FakeNetscape72.exe" "$exe/Netscp.exe"
    local appdata
    appdata=$(wine cmd /c echo %APPDATA% 2>/dev/null </dev/null | tr -d '\r')
    local unix_appdata
    unix_appdata=$(winepath -u "$appdata" 2>/dev/null)
    local profile_dir="$unix_appdata/Mozilla/Profiles/bench/abcd$(printf %04d $(($3 - 1))).slt"
    mkdir -p "$profile_dir"
    inputs prefs "$2" "$profile_dir/prefs.js"
    inputs registry "$3" "$4" "$appdata" "$unix_appdata/Mozilla/registry.dat"
}

ms_now() { date +%s%N; }
# time_one LABEL ARGS...: one run's wall time in microseconds on stdout.
time_one() {
    local start end
    start=$(ms_now)
    (cd "$c_drive" && timeout -k 5 120 wine "$@" >/dev/null 2>&1 </dev/null)
    end=$(ms_now)
    echo $(((end - start) / 1000))
}
median() { sort -n | awk '{ v[NR] = $1 } END { print (NR % 2) ? v[(NR + 1) / 2] : int((v[NR / 2] + v[NR / 2 + 1]) / 2) }'; }

# A message box would wait for a click for ever: as in the demo, the bench's
# dialog watcher answers each with its default button. It also stands for the
# desktop that always runs on a real machine, for the floor and Rwz.exe alike.
watcher_pid=""
start_watcher() {
    rm -f "$work/stop"
    wine "$(winpath "$tree/tests/DialogWatcher.exe")" --out "$(winpath "$work/dialogs-$1.txt")" \
        --stop-file "$(winpath "$work/stop")" --timeout 1800 >/dev/null 2>&1 </dev/null &
    watcher_pid=$!
    sleep 2
}
stop_watcher() {
    touch "$work/stop"
    [ -n "$watcher_pid" ] && wait "$watcher_pid" 2>/dev/null
    watcher_pid=""
}

printf '%-44s %9s %9s %7s %10s\n' "case" "median" "floor" "ratio" "above"
row() {  # LABEL MACHINE ARGS...
    local label=$1 machine=$2 i case_times="" floor_times=""
    shift 2
    use_machine "$machine"
    start_watcher "$machine"
    local rwz='C:\Program Files\Roamwise\Rwz.exe' floor='C:\Program Files\Roamwise\Floor.exe'
    time_one "$rwz" "$@" >/dev/null  # warm the file cache
    for ((i = 0; i < runs; i++)); do
        floor_times+="$(time_one "$floor") "
        case_times+="$(time_one "$rwz" "$@") "
    done
    stop_watcher
    local c f
    c=$(tr ' ' '\n' <<<"$case_times" | grep . | median)
    f=$(tr ' ' '\n' <<<"$floor_times" | grep . | median)
    awk -v l="$label" -v c="$c" -v f="$f" 'BEGIN {
        printf "%-44s %7.0fms %7.0fms %6.2fx %8.0fms\n", l, c / 1000, f / 1000, c / f, (c - f) / 1000 }'
}

# The machines.
laptop=$here/tests/machines/xp-laptop
make_machine laptop "$laptop"
inputs adapters 200 "$work/adapters200.reg"
inputs adapters 400 "$work/adapters400.reg"
make_machine adapters200 "$laptop" "$work/adapters200.reg"
make_machine adapters400 "$laptop" "$work/adapters400.reg"
make_netscape prefs20k 20000 3 0
make_netscape prefs40k 40000 3 0
make_netscape regdat10 100 2000 10
make_netscape regdat20 100 4000 20
# The Netscape profile that changes the proxies, exceptions and home page.
netscape_profile() {
    cat <<'PROFILE'
[Enabled Sections]
General=0
Internet Explorer=0
Netscape Navigator=1
Opera=0
[Netscape Navigator]
NNPROFILE=bench
NNDIRECTCONNECTION=0
NNPROXYENABLE=1
NNHTTPADDRESS=proxy.example.com
NNHTTPPORT=8080
NNSSLADDRESS=proxy.example.com
NNSSLPORT=8443
NNFTPADDRESS=ftp-proxy.example.com
NNFTPPORT=2121
NNGOPHERADDRESS=gopher.example.com
NNGOPHERPORT=70
NNSOCKSADDRESS=socks.example.com
NNSOCKSPORT=1080
NNSOCKSVERSION=5
NNPROXYOVERRIDE=localhost, example.com
NNDEFHOMEPAGE=http://intranet.example.com/
PROFILE
}
for m in prefs20k prefs40k; do
    use_machine "$m"
    netscape_profile | sed 's/$/\r/' >"$c_drive/Profiles/netscape.rwz"
done
inputs profile 5000 "$here/examples/office.rwz" "$work/long5k.rwz"
inputs profile 10000 "$here/examples/office.rwz" "$work/long10k.rwz"
use_machine laptop
cp "$work/long5k.rwz" "$work/long10k.rwz" "$c_drive/Profiles/"

row "/hidden" laptop /hidden
row "/hidden /load office.rwz /apply" laptop /hidden /load 'C:\Profiles\office.rwz' /apply
row "/hidden /export" laptop /hidden /export 'C:\Reports\r.txt'
row "Netscape apply, prefs.js 20,000 lines" prefs20k /hidden /load 'C:\Profiles\netscape.rwz' /apply
row "  x2: prefs.js 40,000 lines" prefs40k /hidden /load 'C:\Profiles\netscape.rwz' /apply
row "registry.dat 10 MB, 2,000 profiles" regdat10 /hidden
row "  x2: registry.dat 20 MB, 4,000 profiles" regdat20 /hidden
row "XP with 200 adapters" adapters200 /hidden
row "  x2: 400 adapters" adapters400 /hidden
row "profile of 5,000 lines, /load /apply" laptop /hidden /load 'C:\Profiles\long5k.rwz' /apply
row "  x2: 10,000 lines" laptop /hidden /load 'C:\Profiles\long10k.rwz' /apply

use_machine laptop
start_watcher peak
peak=$( (cd "$c_drive" && /usr/bin/time -f %M timeout -k 5 120 wine 'C:\Program Files\Roamwise\Rwz.exe' \
    /hidden /load 'C:\Profiles\office.rwz' /apply 2>&1 >/dev/null </dev/null) | tail -n 1)
floor_peak=$( (cd "$c_drive" && /usr/bin/time -f %M wine 'C:\Program Files\Roamwise\Floor.exe' \
    2>&1 >/dev/null </dev/null) | tail -n 1)
stop_watcher
echo
echo "peak memory, silent apply: $((peak / 1024)) MB (floor program: $((floor_peak / 1024)) MB)"
exe32=$build_root/win32/bin/Rwz.exe
[ -f "$exe32" ] && echo "32-bit Rwz.exe as shipped: $(($(stat -c %s "$exe32") / 1024)) KB"
for p in "${prefix_of[@]}"; do WINEPREFIX=$p wineserver -k >/dev/null 2>&1 </dev/null; done
