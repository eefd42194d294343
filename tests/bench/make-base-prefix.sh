#!/usr/bin/env bash
# make-base-prefix.sh [--if-missing] DIR
# Makes the Wine prefix that every test starts from (run-tests.sh clones it with
# hard links per test program or case). Does nothing when DIR is already a
# complete base prefix for the installed Wine that no test has changed (with
# --if-missing: that has merely been completed, as tests may be cloning it).
# Safe to call from several processes at once.
set -euo pipefail
check_changes=1
if [ "${1:-}" = --if-missing ]; then
    check_changes=0
    shift
fi
dir=${1:?usage: make-base-prefix.sh [--if-missing] DIR}
mkdir -p "$(dirname "$dir")"
dir=$(cd "$(dirname "$dir")" && pwd)/$(basename "$dir")
marker=$dir/.rwz-base-complete
wine_version=$(wine --version 2>/dev/null)

complete() {
    [ -f "$marker" ] && [ "$(cat "$marker")" = "$wine_version" ] || return 1
    # A file newer than the marker was written through a hard link by a test.
    [ $check_changes = 0 ] || [ -z "$(find "$dir" -newer "$marker" -type f -print -quit)" ]
}
complete && exit 0

exec 9>"$dir.lock"
flock 9
complete && exit 0

start=$(date +%s%N)
rm -rf "$dir"
export WINEPREFIX=$dir WINEDEBUG=-all
# No Mono or Gecko install prompts, no desktop menu entries on the Linux side.
export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="
{
    wineboot -i
    # Windows without a display; programs may still create (hidden or visible) windows.
    wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f
    # A crashing program ends with a backtrace instead of waiting for a click.
    wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f
    wine reg add 'HKCU\Software\Wine\DllOverrides' /v winemenubuilder.exe /d '' /f
    # The tools (test programs, regedit, the dialog watcher) keep one Windows
    # version whatever a machine's registry says; only Rwz.exe gets the machine's.
    wine reg add 'HKCU\Software\Wine' /v Version /d win7 /f
    wineserver -w
} >/dev/null 2>&1 </dev/null

# The user's folders are links into the Linux home: make them plain folders
# so that no test writes outside its prefix.
find "$dir/drive_c/users" -type l | while read -r link; do
    rm "$link"
    mkdir -p "$link"
done

if [ ! -f "$dir/system.reg" ] || [ ! -f "$dir/user.reg" ]; then
    echo "make-base-prefix: wineboot did not create a prefix in $dir" >&2
    exit 1
fi
echo "$wine_version" >"$marker"
ms=$((($(date +%s%N) - start) / 1000000))
printf 'made the base Wine prefix %s in %d.%01d s\n' "$dir" $((ms / 1000)) $((ms % 1000 / 100))
