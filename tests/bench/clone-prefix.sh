#!/usr/bin/env bash
# clone-prefix.sh BASE CLONE
# Makes CLONE a fresh copy of the Wine prefix BASE in well under a second:
# files are hard links, except those Wine writes in place (the registry files,
# the Windows .ini files, and the spooler's files, which Wine rewrites whenever
# a program loads the spooler while a printer is installed): those are copied,
# so that nothing done in the clone changes the base. CLONE must not exist or
# be empty. Stop the base's wineserver before cloning.
set -euo pipefail
base=${1:?usage: clone-prefix.sh BASE CLONE}
clone=${2:?usage: clone-prefix.sh BASE CLONE}
spool=drive_c/windows/system32/spool

mkdir -p "$clone"
cp -al "$base/." "$clone/"
rm -rf "$clone"/*.reg "$clone"/drive_c/windows/*.ini "${clone:?}/$spool"
cp "$base"/*.reg "$clone/"
cp "$base"/drive_c/windows/*.ini "$clone/drive_c/windows/"
if [ -d "$base/$spool" ]; then cp -a "$base/$spool" "$clone/$spool"; fi
