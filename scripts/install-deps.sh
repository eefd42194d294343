#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the demo need, when any is missing.
# Survives an `apt-get update` that fails on one mirror index.
set -uo pipefail
packages=(cmake ninja-build googletest g++-mingw-w64-x86-64 g++-mingw-w64-i686
          binutils-mingw-w64 wine wine64 xvfb xauth imagemagick
          cups printer-driver-cups-pdf poppler-utils fonts-liberation ccache)
missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
sudo=""
[ "$(id -u)" -ne 0 ] && sudo=sudo
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -q >/dev/null 2>&1 || echo "apt-get update reported errors; going on with the lists we have"
if ! $sudo apt-get install -y -q --no-install-recommends "${missing[@]}" >/tmp/rwz-apt.log 2>&1; then
    # One failing index can leave a package unresolvable; retry once after a fresh update.
    $sudo apt-get update -q >/dev/null 2>&1 || true
    $sudo apt-get install -y -q --no-install-recommends "${missing[@]}" >>/tmp/rwz-apt.log 2>&1 || {
        tail -n 30 /tmp/rwz-apt.log
        echo "install-deps: could not install ${missing[*]}" >&2
        exit 1
    }
fi
