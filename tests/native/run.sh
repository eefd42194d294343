#!/usr/bin/env bash
# Builds the parsers and their tests for the host with clang and runs them:
# the table tests and the replay of tests/native/regressions. A few seconds.
set -euo pipefail
here=$(cd "$(dirname "$0")/../.." && pwd)
build=${RWZ_BUILD_ROOT:-$here/build}/native
if ! command -v clang++ >/dev/null || [ ! -d /usr/src/googletest ]; then
    apt-get install -y --no-install-recommends clang googletest cmake ninja-build >/dev/null
fi
if [ ! -f "$build/build.ninja" ]; then
    CXX=clang++ cmake -S "$here/tests/native" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug >/dev/null
fi
cmake --build "$build" -j "${RWZ_JOBS:-1}" --target native_tests >/dev/null
"$build/native_tests" --gtest_brief=1 "$@"
