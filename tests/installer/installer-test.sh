#!/usr/bin/env bash
# installer-test.sh: one install and uninstall cycle of the 64-bit installer
# (scripts/package.sh --amd64) in a fresh Wine prefix, silently (/S): the
# files, the ".rwz" association (a profile opened from the shell opens in
# Rwz.exe) and the Start Menu entries are there; the uninstaller closes the
# running tray program and removes all it installed, but not a profile the
# user saved in the program's folder.
# Environment: RWZ_SOURCE_DIR, RWZ_BUILD_DIR (the 64-bit tree), RWZ_BASE_PREFIX.
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
source_dir=${RWZ_SOURCE_DIR:-$(cd "$here/../.." && pwd)}
build_dir=${RWZ_BUILD_DIR:-$source_dir/build/win64}
base=${RWZ_BASE_PREFIX:-$build_dir/wine/base}
export WINEDEBUG=-all

failures=0
fail() {
    echo "FAILED: $*"
    failures=$((failures + 1))
}
check() {  # description command...
    local what=$1
    shift
    if "$@"; then echo "ok: $what"; else fail "$what"; fi
}

"$source_dir/tests/bench/make-base-prefix.sh" --if-missing "$base" || exit 1
RWZ_BUILD_ROOT=$(dirname "$build_dir") "$source_dir/scripts/package.sh" --amd64 >/dev/null || {
    echo "FAILED: the installer could not be built"
    exit 1
}
installer=$(dirname "$build_dir")/package/RoamwiseSetup-amd64.exe

mkdir -p "$(dirname "$base")/clones"
export WINEPREFIX
WINEPREFIX=$(mktemp -d "$(dirname "$base")/clones/prefix.XXXXXX")
cleanup() {
    wineserver -k >/dev/null 2>&1
    rm -rf "$WINEPREFIX"
}
trap cleanup EXIT
"$source_dir/tests/bench/clone-prefix.sh" "$base" "$WINEPREFIX" || exit 1
# The prefix's server is started apart, so that it holds no pipe of ctest's.
(wineserver -p 60; wine cmd /c exit) >/dev/null 2>&1 </dev/null

drive=$WINEPREFIX/drive_c
inst=$drive/Program\ Files/Roamwise
win_inst='C:\Program Files\Roamwise'
log=$inst/DEBUG.LOG

wait_for() {  # seconds command...: true once the command succeeds
    local limit=$(($1 * 10))
    shift
    for ((i = 0; i < limit; i++)); do
        "$@" && return 0
        sleep 0.1
    done
    return 1
}
log_has() { grep -qF -- "$1" "$log" 2>/dev/null; }
reg_value() { wine reg query "$1" /ve 2>/dev/null | tr -d '\r' | awk -F'REG_SZ' 'NF > 1 { sub(/^[ \t]+/, "", $2); print $2 }'; }
# A process of this prefix whose command line names the program.
running() {
    local pid
    for pid in $(pgrep -f "$1"); do
        { tr '\0' '\n' <"/proc/$pid/environ"; } 2>/dev/null | grep -qxF "WINEPREFIX=$WINEPREFIX" && return 0
    done
    return 1
}

# A supported system for the program (Wine itself claims a newer one).
wine reg add 'HKCU\Software\Wine\AppDefaults\Rwz.exe' /v Version /d winxp /f >/dev/null 2>&1 </dev/null

# Install.
timeout 120 wine "$installer" /S </dev/null >/dev/null 2>&1
check "the installer ends with 0" [ $? = 0 ]
for file in Rwz.exe RwzSysTray.exe Rwz.exe.manifest RwzSysTray.exe.manifest de-de.slf \
    AddIns/RwzHosts.dll Examples/office.rwz Examples/home.rwz Examples/client-site.rwz Uninstall.exe; do
    check "installed: $file" [ -f "$inst/$file" ]
done
menu=$(find "$drive" -type d -path "*Start Menu/Programs/Roamwise" | head -1)
for entry in Roamwise "Roamwise Tray" "Example Profiles" "Uninstall Roamwise"; do
    check "Start Menu entry: $entry" [ -f "$menu/$entry.lnk" ]
done
check "association: .rwz is rwz_auto_file" [ "$(reg_value 'HKCR\.rwz')" = rwz_auto_file ]
check "association: opened with the installed Rwz.exe" \
    [ "$(reg_value 'HKCR\rwz_auto_file\shell\Open with Roamwise\command')" = "\"$win_inst\\Rwz.exe\" \"%1\"" ]

# The installed program runs, and a profile started from the shell opens in it.
timeout 60 wine "$win_inst\\Rwz.exe" /hidden </dev/null >/dev/null 2>&1
check "Rwz.exe /hidden from the install folder ends with 0" [ $? = 0 ]
check "... and writes its log there" log_has "Roamwise Log File"
cp "$source_dir/examples/office.rwz" "$inst/my office.rwz"
wine start "$win_inst\\my office.rwz" </dev/null >/dev/null 2>&1
check "a .rwz started from the shell opens in Rwz.exe" \
    wait_for 30 log_has "frmMain - OpenConfigurationFile = $win_inst\\my office.rwz"
check "... whose Tools menu offers the hosts file add-in" wait_for 10 log_has "Add-In menu entry: Hosts File..."

# The tray program runs while the uninstaller runs: it is asked to close.
wine start "$win_inst\\RwzSysTray.exe" </dev/null >/dev/null 2>&1
check "the tray program starts" wait_for 20 log_has "clsSysTray - Run"
timeout 60 wine "$win_inst\\Uninstall.exe" /S </dev/null >/dev/null 2>&1
# The uninstaller goes on from a copy of itself in the temporary folder.
check "the uninstaller ends" wait_for 60 eval '[ ! -e "$inst/Uninstall.exe" ] && ! running Au_.exe'
check "the tray program was closed" wait_for 10 eval '! running RwzSysTray.exe'
check "the main window was closed" wait_for 10 eval '! running Rwz.exe'
left=$(cd "$inst" 2>/dev/null && find . -type f | sort | tr '\n' ' ')
check "only the user's profile is left in the program folder (left: $left)" \
    [ "$left" = "./my office.rwz " ]
check "the Start Menu folder is gone" [ ! -e "$menu" ]
check "the association is gone" [ -z "$(reg_value 'HKCR\.rwz')" ]
check "the add-in is unregistered" eval '! wine reg query "HKCR\Roamwise.HostsFile" >/dev/null 2>&1'
check "... and no longer entered" eval '! wine reg query "HKLM\Software\Roamwise\Add-Ins\Hosts File" >/dev/null 2>&1'
check "the file type is gone" eval '! wine reg query "HKCR\rwz_auto_file" >/dev/null 2>&1'
check "the tray program says it no longer runs" \
    eval 'wine reg query "HKLM\Software\Roamwise\Options" /v TrayIconActive 2>/dev/null | grep -q "REG_SZ[[:space:]]*0"'

echo "installer: $failures failed"
[ $failures = 0 ]
