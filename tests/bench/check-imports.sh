#!/usr/bin/env bash
# check-imports.sh EXE [--list]
# The 32-bit Rwz.exe and RwzSysTray.exe must load on Windows 95, 98, ME, NT 4, 2000, XP and Server
# 2003: the loader refuses an exe whose import table names a function or DLL
# that the running system lacks. Fails when the import table names a DLL
# outside the allowed list, or a function from the list below (each one is
# missing on at least one supported system; such functions are looked up at
# run time with GetProcAddress). --list prints the whole import table.
set -uo pipefail
exe=${1:?usage: check-imports.sh EXE [--list]}
objdump=${OBJDUMP:-i686-w64-mingw32-objdump}

allowed_dlls=" kernel32.dll user32.dll gdi32.dll advapi32.dll comdlg32.dll comctl32.dll"
# ole32: the shell's link object (Create Desktop Shortcut), there from Windows 95 and NT 4 on.
allowed_dlls+=" shell32.dll version.dll winspool.drv wsock32.dll msvcrt.dll ole32.dll "

# Functions that some supported system lacks, with the first systems that have them.
missing_somewhere="
GetComputerNameExA        2000
GetComputerNameExW        2000
SetComputerNameExA        2000
SetComputerNameExW        2000
NetJoinDomain             2000 (netapi32)
NetUnjoinDomain           2000 (netapi32)
NetGetJoinInformation     2000 (netapi32)
NetServerSetInfo          NT (netapi32; svrapi on 9x)
NetApiBufferFree          NT (netapi32)
NetWkstaGetInfo           NT (netapi32)
DhcpNotifyConfigChange    NT, undocumented (dhcpcsvc)
RasEnumEntriesA           needs Dial-Up Networking installed (rasapi32)
SHGetFolderPathA          2000, ME (shfolder.dll elsewhere)
DllGetVersion             shell32 4.71 (IE 4 shell)
Shell_NotifyIconW         NT only (9x has the A form)
CoInitializeEx            95 with DCOM, NT 4
SHGetSpecialFolderPathA   98, NT 4 with IE 4 shell
SHGetFolderLocation       2000, ME
SHCreateDirectoryExA      2000, ME
GetLongPathNameA          98, 2000
GetFileAttributesExA      98, NT 4
GetFileSizeEx             2000
SetFilePointerEx          2000
FindFirstFileExA          NT 4 (not 9x)
CopyFileExA               NT 4 (not 9x)
GetDiskFreeSpaceExA       95 OSR2, NT 4
IsDebuggerPresent         98, NT 4
InitializeCriticalSectionAndSpinCount  98, NT 4 SP3
SetCriticalSectionSpinCount            98, NT 4 SP3
TryEnterCriticalSection   NT 4 (not 9x)
SwitchToThread            NT 4 (not 9x)
SignalObjectAndWait       NT 4 (not 9x)
InterlockedCompareExchange  98, NT 4
InterlockedExchangeAdd    98, NT 4
QueueUserAPC              98, NT 4
CreateWaitableTimerA      98, NT 4
SetWaitableTimer          98, NT 4
IsProcessorFeaturePresent 98, NT 4
GetModuleHandleExA        XP
GetModuleHandleExW        XP
AddVectoredExceptionHandler     XP
RemoveVectoredExceptionHandler  XP
GetNativeSystemInfo       XP
GetProcessId              XP SP1
GetThreadId               Vista
SetDllDirectoryA          XP SP1
GetSystemWindowsDirectoryA  2000
GetUserDefaultUILanguage  2000, ME
GetSystemDefaultUILanguage  2000, ME
GetTickCount64            Vista
FlsAlloc                  2003
FlsFree                   2003
FlsGetValue               2003
FlsSetValue               2003
QueryFullProcessImageNameA  Vista
GetAncestor               98, 2000
AllowSetForegroundWindow  98, 2000
LockSetForegroundWindow   ME, 2000
GetWindowInfo             98, NT 4 SP3
GetGUIThreadInfo          98, NT 4 SP3
RealGetWindowClassA       98, NT 4 SP3
FlashWindowEx             98, 2000
GetMenuInfo               98, 2000
SetMenuInfo               98, 2000
GetComboBoxInfo           98, NT 4 SP6
GetLastInputInfo          2000
SendInput                 98, NT 4 SP3
AnimateWindow             98, 2000
SetLayeredWindowAttributes  2000
MonitorFromWindow         98, 2000
GetMonitorInfoA           98, 2000
PrintWindow               XP
IsHungAppWindow           2000
RegOpenCurrentUser        2000
RegGetValueA              Vista (XP x64)
RegDeleteKeyExA           Vista (XP x64)
RegDeleteTreeA            Vista
RegSetKeyValueA           Vista
CheckTokenMembership      2000
ConvertStringSidToSidA    2000
GetDCBrushColor           2000
SetDCBrushColor           2000
AddFontResourceExA        2000
TaskDialog                Vista (comctl32 6)
TaskDialogIndirect        Vista (comctl32 6)
SetWindowSubclass         XP (comctl32 6)
DefSubclassProc           XP (comctl32 6)
RemoveWindowSubclass      XP (comctl32 6)
_aligned_malloc           XP (msvcrt 7)
_aligned_free             XP (msvcrt 7)
__iob_func                XP (msvcrt 7)
___lc_codepage_func       XP (msvcrt 7)
___mb_cur_max_func        XP (msvcrt 7)
__pctype_func             XP (msvcrt 7)
_strtoi64                 XP (msvcrt 7)
_strtoui64                XP (msvcrt 7)
_time64                   XP (msvcrt 7)
_localtime64              XP (msvcrt 7)
_gmtime64                 XP (msvcrt 7)
_mktime64                 XP (msvcrt 7)
_fstat64                  XP (msvcrt 7)
_stat64                   XP (msvcrt 7)
_findfirst64              XP (msvcrt 7)
_fseeki64                 Vista (msvcrt)
_ftelli64                 Vista (msvcrt)
_get_output_format        Vista (msvcrt)
_set_output_format        Vista (msvcrt)
_vsnprintf_s              Vista (msvcrt)
_snprintf_s               Vista (msvcrt)
sprintf_s                 Vista (msvcrt)
strcpy_s                  Vista (msvcrt)
memcpy_s                  Vista (msvcrt)
_get_errno                Vista (msvcrt)
_set_errno                Vista (msvcrt)
_localtime64_s            Vista (msvcrt)
_gmtime64_s               Vista (msvcrt)
"

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
