#!/usr/bin/env bash
# package.sh [--amd64]
# Builds the 32-bit programs and from them build/package/RoamwiseSetup.exe, the
# installer users get (NSIS, Target x86-ansi: it runs on Windows 95 to Server
# 2003). With --amd64 it builds the 64-bit tree's installer instead,
# build/package/RoamwiseSetup-amd64.exe (Target amd64-unicode), which runs
# under wine64: the installer test uses it. Installs NSIS when missing.
# Environment: RWZ_BUILD_ROOT (default: build/), RWZ_JOBS.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
build_root=${RWZ_BUILD_ROOT:-$here/build}

amd64=0
case ${1:-} in
    --amd64) amd64=1 ;;
    "") ;;
    *)
        echo "usage: package.sh [--amd64]" >&2
        exit 2
        ;;
esac

if ! command -v makensis >/dev/null 2>&1; then
    apt-get update -qq && apt-get install -y -qq --no-install-recommends nsis >/dev/null
fi

if [ $amd64 = 1 ]; then
    tree=$build_root/win64
    defines=(-DAMD64)
    out=$build_root/package/RoamwiseSetup-amd64.exe
else
    tree=$build_root/win32
    defines=()
    out=$build_root/package/RoamwiseSetup.exe
fi
# Only what the installer ships: the test programs are not needed here.
if [ ! -f "$tree/build.ninja" ]; then
    "$here/scripts/build.sh"
else
    cmake --build "$tree" -j "${RWZ_JOBS:-2}" --target Rwz RwzSysTray RwzHosts
fi

mkdir -p "$(dirname "$out")"
makensis -V2 -NOCD "${defines[@]}" -DBINDIR="$tree/bin" -DSRCDIR="$here" -DOUTFILE="$out" \
    "$here/installer/Roamwise.nsi"
echo "package: $out"
