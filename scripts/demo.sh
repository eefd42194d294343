#!/usr/bin/env bash
# demo.sh: Roamwise's main job in one command.
#
# Builds the program, makes a simulated Windows XP laptop (the test bench's
# machine tests/machines/xp-laptop in a fresh Wine prefix, with the bench's
# stand-ins for the services Wine lacks: the DHCP client, the server service
# and the domain), and then, as its user would:
#   1. prints the report of the laptop's current configuration
#        Rwz.exe /hidden /export C:\Reports\before.txt
#   2. applies the office profile silently, as a desktop shortcut does
#        Rwz.exe /hidden /load C:\Profiles\office.rwz /apply
#   3. prints the report again, and lists the registry values and the files
#      that the apply changed.
# The profiles are the examples in examples/. The laptop stays in
# $RWZ_BUILD_ROOT/demo/prefix for a look around afterwards (the last lines
# tell how). Environment: RWZ_BUILD_ROOT (default build/), RWZ_DEMO_PROFILE
# (default office.rwz, another file of examples/ may be named).
# --no-build skips the build (for a second look with what is built).
set -uo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
build_root=${RWZ_BUILD_ROOT:-$here/build}
tree=$build_root/win64
demo=$build_root/demo
prefix=$demo/prefix
machine=$here/tests/machines/xp-laptop
profile=${RWZ_DEMO_PROFILE:-office.rwz}
export WINEDEBUG=-all

step() { printf '\n\033[1m=== %s\033[0m\n' "$*"; }
die() {
    echo "demo: $*" >&2
    exit 1
}
[ -f "$here/examples/$profile" ] || die "no example profile examples/$profile"

if [ "${1:-}" != --no-build ]; then
    step "Building Roamwise (scripts/build.sh)"
    "$here/scripts/build.sh" </dev/null || die "the build failed"
fi
[ -f "$tree/bin/Rwz.exe" ] || die "no $tree/bin/Rwz.exe"
# shellcheck source=scripts/lib/machine.sh
. "$here/scripts/lib/machine.sh"

# --- The laptop --------------------------------------------------------------
step "Making the simulated Windows XP laptop ($machine)"
mkdir -p "$demo"
rm -rf "$demo"/before "$demo"/after "$demo"/*.txt "$demo"/*.flat "$demo"/*.LOG "$demo"/stop
# One Wine session for the whole demo: Wine's start-up (wineboot) gives a new
# session the Linux host's computer name and network, which would undo the
# simulated machine.
machine_prefix "$prefix" || die "cannot make the prefix $prefix"
trap 'wineserver -k >/dev/null 2>&1 </dev/null' EXIT
machine_load "$machine" || die "cannot load $machine"
machine_install "$machine"
echo "Laptop ready: Windows XP, Internet Explorer, Opera, profiles in C:\\Profiles."

# Prints its input, or the text given when there is none.
or_say() {
    local text
    text=$(cat)
    if [ -n "$text" ]; then printf '%s\n' "$text"; else echo "$1"; fi
}

# --- Running Rwz.exe ---------------------------------------------------------
# A modal message box would wait for a click for ever: the bench's dialog
# watcher stands in for the user, answers each box with its default button
# and records it.
watcher_pid=""
start_watcher() {
    rm -f "$demo/stop" "$demo/dialogs.txt"
    wine "$(winpath "$tree/tests/DialogWatcher.exe")" --out "$(winpath "$demo/dialogs.txt")" \
        --stop-file "$(winpath "$demo/stop")" --timeout 600 >/dev/null 2>&1 </dev/null &
    watcher_pid=$!
    sleep 2
}
stop_watcher() {
    touch "$demo/stop"
    [ -n "$watcher_pid" ] && wait "$watcher_pid" 2>/dev/null
    watcher_pid=""
}
show_dialogs() {
    local shown
    shown=$(awk -F'\t' '$1 == "dialog" { printf "  box \"%s\": %s  -> %s\n", $4, $5, $7 }' \
        "$demo/dialogs.txt" 2>/dev/null)
    [ -n "$shown" ] && printf 'Message boxes shown (answered with their default button):\n%s\n' "$shown"
}
runs=0
run_rwz() {
    echo "> Rwz.exe $*"
    (cd "$c_drive" && timeout -k 5 180 wine 'C:\Program Files\Roamwise\Rwz.exe' "$@" \
        >/dev/null 2>&1 </dev/null) || echo "  (Rwz.exe ended with exit code $?)"
    # Each run starts a new log: keep it.
    runs=$((runs + 1))
    cp "$install_dir/DEBUG.LOG" "$demo/run$runs-DEBUG.LOG" 2>/dev/null
}
report() {  # NAME: exports the report and shows it
    run_rwz /hidden /export "C:\\Reports\\$1.txt"
    [ -f "$c_drive/Reports/$1.txt" ] || die "no report C:\\Reports\\$1.txt (see $install_dir/DEBUG.LOG)"
    tr -d '\r' <"$c_drive/Reports/$1.txt" >"$demo/$1.txt"
    cat "$demo/$1.txt"
}

# The registry as flat lines "HIVE\key  name=data", read from the running
# session with Wine's reg.exe.
registry_lines() {  # KEY NAME
    local file=$demo/$2.reg
    wine reg export "$1" "$(winpath "$file")" /y >/dev/null 2>&1 </dev/null || return 0
    iconv -f UTF-16 -t UTF-8 "$file" | tr -d '\r' | awk '
        /^\[/ { key = substr($0, 2, length($0) - 2)
                sub(/^HKEY_LOCAL_MACHINE/, "HKLM", key); sub(/^HKEY_CURRENT_USER/, "HKCU", key); next }
        key == "" { next }
        /^["@]/ {
            line = $0
            while (line ~ /\\$/ && (getline more) > 0) { sub(/\\$/, "", line); sub(/^ +/, "", more); line = line more }
            print key "  " readable(line)
        }
        function hex(byte) {
            byte = tolower(byte)
            return 16 * (index("0123456789abcdef", substr(byte, 1, 1)) - 1) + index("0123456789abcdef", substr(byte, 2, 1)) - 1
        }
        # Multi-strings as their texts; long binary values cut short.
        function readable(line,    head, data, n, bytes, i, text, list, code) {
            if (match(line, /=hex\(7\):/)) {
                head = substr(line, 1, RSTART); data = substr(line, RSTART + RLENGTH)
                n = split(data, bytes, ","); text = ""; list = ""
                for (i = 1; i + 1 <= n; i += 2) {
                    code = hex(bytes[i]) + 256 * hex(bytes[i + 1])
                    if (code == 0) { if (text != "") list = list (list == "" ? "" : ",") "\"" text "\""; text = "" }
                    else text = text sprintf("%c", code)
                }
                return head "multi-string:" list
            }
            if (match(line, /=hex:/) && length(line) - RSTART > 80)
                return substr(line, 1, RSTART + 76) "... (" int((length(line) - RSTART - 3) / 3) " bytes)"
            return line
        }'
    rm -f "$file"
}
snapshot() {  # NAME: the registry and the profile-like files of the laptop
    local out=$demo/$1
    mkdir -p "$out"
    {
        registry_lines 'HKLM\SYSTEM\CurrentControlSet' system
        registry_lines 'HKLM\SOFTWARE' software
        registry_lines 'HKCU\Software' user
    } | grep -v -i -E '^HK(LM|CU)\\(Software\\Wine|SYSTEM\\CurrentControlSet\\Control\\(Print|DeviceClasses|Video|Class\\\{4D36E968))' |
        sort >"$demo/$1.flat"
    (cd "$c_drive" && find . -type f \( -iname '*.ini' -o -iname 'prefs.js' -o -iname 'hosts' \
        -o -iname 'lmhosts*' \) -size -2M -not -path './windows/system32/*.ini' -print0 |
        xargs -0 -r cp --parents -t "$out" 2>/dev/null)
}

step "1. The laptop's current configuration"
start_watcher
report before
stop_watcher
show_dialogs
snapshot before
touch "$demo/applied-after"
sleep 1

step "2. Applying $profile silently, as a desktop shortcut does"
sed -n 's/^Comments=/Profile: /p' "$here/examples/$profile" | tr -d '\r'
calls=$install_dir/NetworkCalls.txt
calls_before=$(cat "$calls" 2>/dev/null | wc -l)
start_watcher
run_rwz /hidden /load "C:\\Profiles\\$profile" /apply
echo "Done."
if [ -f "$calls" ]; then
    echo "The networking services it called (played by the stand-ins; queries left out):"
    tail -n +$((calls_before + 1)) "$calls" | tr -d '\r' |
        grep -v -E '^(NetGetJoinInformation|NetApiBufferFree)\b' |
        awk -F'\t' '{ printf "  %s(", $1; for (i = 2; i <= NF; i++) printf "%s%s", (i > 2 ? ", " : ""), $i; print ")" }' |
        or_say "  (none)"
    # The stand-in domain controller took the computer in: from now on the
    # system says it is a member of that domain.
    joined=$(tail -n +$((calls_before + 1)) "$calls" | tr -d '\r' |
        awk -F'\t' '$1 == "NetJoinDomain" && $NF == "result=0" { sub(/^domain=/, "", $3); d = $3 } END { print d }')
    if [ -n "$joined" ]; then
        printf '[NetGetJoinInformation]\r\nResult=0\r\nStatus=3\r\nName=%s\r\n' "$joined" \
            >"$install_dir/NetworkStandIns.ini"
    fi
fi
step "3. The configuration after applying"
report after
stop_watcher
show_dialogs
snapshot after

step "What the report shows changed (- before, + after)"
diff -u --label before.txt --label after.txt \
    <(grep -v -E '^ +[0-9]{2}/[0-9]{2}/[0-9]{4}  ' "$demo/before.txt") \
    <(grep -v -E '^ +[0-9]{2}/[0-9]{2}/[0-9]{4}  ' "$demo/after.txt") | tail -n +3 |
    grep -E '^[-+]' | or_say "(no difference)"

step "Registry values the apply changed (- before, + after)"
diff "$demo/before.flat" "$demo/after.flat" | sed -n 's/^< /- /p; s/^> /+ /p' |
    grep -v -E '^. HKLM\\SOFTWARE\\Roamwise\\' | or_say "(none)"
echo "Roamwise's own settings:"
diff "$demo/before.flat" "$demo/after.flat" | sed -n 's/^> /+ /p' |
    grep -E '^. HKLM\\SOFTWARE\\Roamwise\\' | sed 's/^/  /' | or_say "  (none)"

step "Files the apply changed"
changed=0
while IFS= read -r -d '' file; do
    rel=${file#"$c_drive"/}
    case $rel in
    "Program Files/Roamwise/"* | Reports/* | windows/temp/* | users/*/Temp/* | windows/system32/spool/*) continue ;;
    esac
    changed=1
    echo "C:\\${rel//\//\\}"
    if [ -f "$demo/before/$rel" ]; then
        diff -u -B --label before --label after <(tr -d '\r' <"$demo/before/$rel") <(tr -d '\r' <"$file") |
            tail -n +3 | grep -E '^[-+]' | grep -v -E '^[-+][[:space:]]*$' | sed 's/^/    /'
    fi
done < <(find "$c_drive" -type f -newer "$demo/applied-after" -print0 2>/dev/null)
[ $changed = 1 ] || echo "(none besides Roamwise's own log)"

step "The laptop stays for a look around"
echo "  WINEPREFIX=$prefix wine regedit   (a new Wine session renames the computer after the Linux host)"
echo "  less '$install_dir/DEBUG.LOG'"
echo "  the reports: $demo/before.txt and $demo/after.txt"
echo "  the program's log of each run: $demo/run*-DEBUG.LOG"
