# Sourced by scripts/demo.sh and scripts/bench.sh: turns a fresh clone of the
# bench's base Wine prefix into one of the simulated machines of tests/machines,
# with Roamwise installed in C:\Program Files\Roamwise and the bench's stand-ins
# for what Wine lacks. Needs: here (the source tree), tree (the 64-bit build).

winpath() { printf 'Z:%s' "${1//\//\\}"; }

# machine_prefix PREFIX: a clone of the base prefix at PREFIX, its server
# running (kept alive so that Wine's start-up does not undo the machine), and
# WINEPREFIX, c_drive and install_dir set for it.
machine_prefix() {
    local prefix=$1 base=${RWZ_BASE_PREFIX:-$tree/wine/base}
    "$here/tests/bench/make-base-prefix.sh" --if-missing "$base" </dev/null || return 1
    if [ -d "$prefix" ]; then
        WINEPREFIX=$prefix wineserver -k >/dev/null 2>&1 </dev/null
        rm -rf "$prefix"
    fi
    mkdir -p "$(dirname "$prefix")"
    "$here/tests/bench/clone-prefix.sh" "$base" "$prefix" || return 1
    export WINEPREFIX=$prefix WINEDEBUG=-all
    c_drive=$prefix/drive_c
    install_dir=$c_drive/Program\ Files/Roamwise
    (
        wineserver -p 600
        wine cmd /c exit
    ) >/dev/null 2>&1 </dev/null
}

# machine_load FOLDER: the machine's registry files, Windows version and files.
# A file that came from the base prefix is replaced, never written through its link.
machine_load() {
    local machine=$1 reg
    for reg in "$machine"/*.reg; do
        wine regedit /s "$(winpath "$reg")" >/dev/null 2>&1 </dev/null || {
            echo "regedit failed on $reg" >&2
            return 1
        }
    done
    wine reg add 'HKCU\Software\Wine\AppDefaults\Rwz.exe' /v Version \
        /d "$(tr -d ' \r\n' <"$machine/version")" /f >/dev/null 2>&1 </dev/null
    if [ -d "$machine/files" ]; then cp -r --remove-destination "$machine/files/." "$c_drive/"; fi
}

# machine_install MACHINE-FOLDER: Rwz.exe, the example profiles in C:\Profiles,
# the stand-in Opera where App Paths says, and the networking stand-ins.
# Prints what stands in for the services.
machine_install() {
    local machine=$1 standins=$tree/tests/standins dll
    mkdir -p "$install_dir" "$c_drive/Profiles" "$c_drive/Reports"
    cp --remove-destination "$tree/bin/Rwz.exe" "$install_dir/Rwz.exe"
    cp --remove-destination "$here"/examples/*.rwz "$c_drive/Profiles/"
    mkdir -p "$c_drive/Program Files/Opera7"
    cp --remove-destination "$tree/tests/FakeOpera.exe" "$c_drive/Program Files/Opera7/Opera.exe"
    if [ -f "$standins/netapi32.dll" ] && [ -f "$standins/dhcpcsvc.dll" ]; then
        cp --remove-destination "$standins/netapi32.dll" "$standins/dhcpcsvc.dll" "$install_dir/"
        if [ -f "$machine/network-services.ini" ]; then
            cp --remove-destination "$machine/network-services.ini" "$install_dir/NetworkStandIns.ini"
        fi
        for dll in netapi32 dhcpcsvc; do
            wine reg add 'HKCU\Software\Wine\AppDefaults\Rwz.exe\DllOverrides' /v "$dll" \
                /d native,builtin /f >/dev/null 2>&1 </dev/null
        done
        echo "The domain controller, the server service and the DHCP client are the test bench's"
        echo "stand-ins ($standins)."
    else
        echo "(No network stand-ins built: Wine's own netapi32 and dhcpcsvc answer.)"
    fi
}
