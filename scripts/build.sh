#!/usr/bin/env bash
# Installs what the build needs (on a fresh machine), then configures and builds
#   $RWZ_BUILD_ROOT/win64  - the 64-bit program and tests (run under wine64)
#   $RWZ_BUILD_ROOT/win32  - the 32-bit program for Windows 95 to Server 2003 (never run here)
# Idempotent and incremental.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
build_root=${RWZ_BUILD_ROOT:-$here/build}

"$here/scripts/install-deps.sh"

# A compiler cache, when the machine has one, makes rebuilds of other checkouts cheap.
launcher=()
if command -v ccache >/dev/null 2>&1; then
    export CCACHE_BASEDIR=${CCACHE_BASEDIR:-$(dirname "$here")}
    launcher=(-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
fi

configure() {  # tree toolchain extra-args...
    local tree=$1 toolchain=$2
    shift 2
    if [ ! -f "$build_root/$tree/build.ninja" ]; then
        cmake -S "$here" -B "$build_root/$tree" -G Ninja -DCMAKE_BUILD_TYPE=Release \
            -DCMAKE_TOOLCHAIN_FILE="$here/cmake/$toolchain" "${launcher[@]}" "$@" >/dev/null
    fi
}

configure win64 toolchain-x86_64.cmake -DRWZ_BUILD_TESTS=ON
configure win32 toolchain-i686.cmake -DRWZ_BUILD_TESTS=OFF
jobs=${RWZ_JOBS:-2}
cmake --build "$build_root/win64" -j "$jobs"
cmake --build "$build_root/win32" -j "$jobs"
