#!/usr/bin/env bash
# check-imports.sh EXE [--list]
# The 32-bit Rwz.exe, RwzSysTray.exe and RwzHosts.dll must load on Windows 95,
# 98, ME, NT 4, 2000, XP and Server 2003: the loader refuses a module whose
# import table names a function or DLL
# that the running system lacks. Fails when the import table names a DLL
# outside the allowed list, or a function of missing-imports.txt (each one is
# missing on at least one supported system; such functions are looked up at
# run time with GetProcAddress). --list prints the whole import table.
set -uo pipefail
exe=${1:?usage: check-imports.sh EXE [--list]}
objdump=${OBJDUMP:-i686-w64-mingw32-objdump}

allowed_dlls=" kernel32.dll user32.dll gdi32.dll advapi32.dll comdlg32.dll comctl32.dll"
# ole32: the shell's link object (Create Desktop Shortcut), there from Windows 95 and NT 4 on.
allowed_dlls+=" shell32.dll version.dll winspool.drv wsock32.dll msvcrt.dll ole32.dll"
# oleaut32: OLE Automation (BSTR, VARIANT), which every add-in needs, is there as well.
allowed_dlls+=" oleaut32.dll "

# Functions that some supported system lacks, with the first systems that have them.
missing_somewhere=$(grep -v '^#' "$(dirname "$0")/missing-imports.txt")

[ -f "$exe" ] || {
    echo "check-imports: no $exe (is the 32-bit tree built?)" >&2
    exit 1
}
dump=$("$objdump" -p "$exe") || {
    echo "check-imports: $objdump could not read $exe" >&2
    exit 1
}
# "DLL name<TAB>function" for every import (ordinal imports as "#ordinal").
imports=$(awk '
    /^[ \t]*DLL Name:/ { dll = tolower($3); next }
    /^[ \t]*$/ { dll = "" }
    dll != "" && $1 ~ /^[0-9a-f]+$/ && NF >= 3 && $2 ~ /^[0-9]+$/ {
        name = ($3 == "<none>") ? "#" $2 : $3
        print dll "\t" name
    }
    dll != "" { seen[dll] = 1 }
    END { for (d in seen) print d "\t" }' <<<"$dump" | sort -u)

if [ "${2:-}" = --list ]; then
    echo "$imports" | awk -F'\t' '$2 != ""'
fi

status=0
dlls=$(echo "$imports" | cut -f1 | sort -u)
for dll in $dlls; do
    if [[ $allowed_dlls != *" $dll "* ]]; then
        echo "check-imports: $exe imports $dll, which is not on the allowed list"
        status=1
    fi
done
while read -r name since; do
    [ -n "$name" ] || continue
    if echo "$imports" | cut -f2 | grep -qx "$name"; then
        dll=$(echo "$imports" | awk -F'\t' -v n="$name" '$2 == n { print $1; exit }')
        echo "check-imports: $exe imports $name from $dll; it needs $since: look it up at run time"
        status=1
    fi
done <<<"$missing_somewhere"

count=$(echo "$imports" | awk -F'\t' '$2 != ""' | wc -l)
echo "check-imports: $(basename "$exe"): $count functions from $(echo "$dlls" | tr '\n' ',' | sed 's/,$//')" \
    "$([ $status = 0 ] && echo "- all present on Windows 95 and NT 4" || echo "- FAILED")"
exit $status
