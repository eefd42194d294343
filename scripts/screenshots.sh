#!/usr/bin/env bash
# screenshots.sh [--no-build] [--widest]: the README's pictures, taken from the running
# program. Makes the simulated Windows XP laptop (tests/machines/xp-laptop) in
# a fresh Wine prefix with Wine's graphics driver on (the test prefixes use the
# null driver) in a virtual desktop on a virtual X display (Xvfb), opens
# examples/office.rwz in Rwz.exe, shows each tab and the main dialogs, and
# saves them as PNG files under docs/. --widest shows instead a profile with
# 255.255.255.255 in every address field and port 65535, and saves the
# pictures under build/screenshots/widest/ for a look at the fields' widths.
# Environment: RWZ_BUILD_ROOT (default build/), RWZ_SHOT_DISPLAY (default :77),
# RWZ_SHOT_LANGUAGE (a language tag such as de-DE: the pictures in that
# language, under build/screenshots/<tag>/).
set -uo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
build_root=${RWZ_BUILD_ROOT:-$here/build}
tree=$build_root/win64
work=$build_root/screenshots
prefix=$work/prefix
machine=$here/tests/machines/xp-laptop
docs=$here/docs
display=${RWZ_SHOT_DISPLAY:-:77}
export WINEDEBUG=-all

die() {
    echo "screenshots: $*" >&2
    exit 1
}
command -v Xvfb >/dev/null && command -v import >/dev/null || "$here/scripts/install-deps.sh" </dev/null

build=1
widest=0
for argument in "$@"; do
    case $argument in
        --no-build) build=0 ;;
        --widest) widest=1 ;;
        *) die "usage: screenshots.sh [--no-build] [--widest]" ;;
    esac
done
if [ $build = 1 ]; then
    "$here/scripts/build.sh" </dev/null || die "the build failed"
fi
[ -f "$tree/bin/Rwz.exe" ] || die "no $tree/bin/Rwz.exe"
mkdir -p "$work" "$docs"
helper=$work/ShotHelper.exe
x86_64-w64-mingw32-g++ -O1 -static -o "$helper" "$here/scripts/screenshots/ShotHelper.cpp" \
    -lcomctl32 -luser32 || die "cannot build the helper"

# --- The laptop, with a screen ---------------------------------------------
base=${RWZ_BASE_PREFIX:-$tree/wine/base}
"$here/tests/bench/make-base-prefix.sh" --if-missing "$base" </dev/null || die "no base Wine prefix"
if [ -d "$prefix" ]; then
    WINEPREFIX=$prefix wineserver -k >/dev/null 2>&1 </dev/null
    rm -rf "$prefix"
fi
"$here/tests/bench/clone-prefix.sh" "$base" "$prefix" || die "cannot clone $base"
# Before anything runs in it: the X11 driver instead of the null one, and one
# virtual desktop, in which Wine draws the windows' frames itself.
sed -i 's/^"Graphics"="null"/"Graphics"="x11"/' "$prefix/user.reg"
cat >>"$prefix/user.reg" <<'REG'

[Software\\Wine\\Explorer]
"Desktop"="Default"

[Software\\Wine\\Explorer\\Desktops]
"Default"="1024x768"
REG

# Wine's own fonts (Tahoma, and Marlett for the caption buttons), as Windows
# has them: from Debian's fonts-wine, into this prefix only.
fonts=$work/fonts-wine
if [ ! -f /usr/share/wine/fonts/tahoma.ttf ] && [ ! -f "$fonts/usr/share/wine/fonts/tahoma.ttf" ]; then
    rm -rf "$fonts" && mkdir -p "$fonts"
    (cd "$fonts" && apt-get download fonts-wine >/dev/null 2>&1 && dpkg-deb -x fonts-wine_*.deb .) ||
        echo "screenshots: no fonts-wine: Wine draws with substitute fonts"
fi
for font in /usr/share/wine/fonts/*.ttf "$fonts"/usr/share/wine/fonts/*.ttf; do
    [ -f "$font" ] && cp "$font" "$prefix/drive_c/windows/Fonts/"
done

Xvfb "$display" -screen 0 1024x768x24 -nolisten tcp >/dev/null 2>&1 </dev/null &
xvfb=$!
export DISPLAY=$display WINEPREFIX=$prefix
cleanup() {
    wineserver -k >/dev/null 2>&1 </dev/null
    kill "$xvfb" 2>/dev/null
}
trap cleanup EXIT
sleep 1
(
    wineserver -p 600
    wine cmd /c exit
) >/dev/null 2>&1 </dev/null

winpath() { printf 'Z:%s' "${1//\//\\}"; }
for reg in "$machine"/*.reg; do
    wine regedit /s "$(winpath "$reg")" >/dev/null 2>&1 </dev/null || die "regedit failed on $reg"
done
wine reg add 'HKCU\Software\Wine\AppDefaults\Rwz.exe' /v Version /d "$(tr -d ' \r\n' <"$machine/version")" \
    /f >/dev/null 2>&1 </dev/null
c_drive=$prefix/drive_c
[ -d "$machine/files" ] && cp -r --remove-destination "$machine/files/." "$c_drive/"
install_dir=$c_drive/Program\ Files/Roamwise
mkdir -p "$install_dir" "$c_drive/Profiles" "$c_drive/Program Files/Opera7"
cp --remove-destination "$tree/bin/Rwz.exe" "$tree/bin/RwzSysTray.exe" "$install_dir/"
cp --remove-destination "$here"/examples/*.rwz "$c_drive/Profiles/"
cp --remove-destination "$here"/src/localization/*.slf "$install_dir/" 2>/dev/null
if [ -n "${RWZ_SHOT_LANGUAGE:-}" ]; then
    docs=$work/$RWZ_SHOT_LANGUAGE
    mkdir -p "$docs"
    wine reg add 'HKLM\Software\Roamwise\UserInfo' /v Language /d "$RWZ_SHOT_LANGUAGE" /f \
        >/dev/null 2>&1 </dev/null
fi
if [ $widest = 1 ]; then
    docs=$work/widest
    mkdir -p "$docs"
    a=255.255.255.255
    sed -e "s/^\(IPAddress\|IPMask\|DefaultGateway\|NameServer\|NameServer1\|NameServer2\)=.*/\1=$a/" \
        -e "s/^ProxyServer=.*/ProxyServer=http=$a:65535;https=$a:65535;ftp=$a:65535;gopher=$a:65535;socks=$a:65535/" \
        -e "s/^\(NN[A-Z]*ADDRESS\|[A-Za-z]*ProxyAddress\)=.*/\1=$a/" \
        -e "s/^\(NN[A-Z]*PORT\|[A-Za-z]*ProxyPort\)=.*/\1=65535/" \
        "$here/examples/office.rwz" >"$c_drive/Profiles/office.rwz"
fi
[ -f "$tree/tests/FakeOpera.exe" ] &&
    cp --remove-destination "$tree/tests/FakeOpera.exe" "$c_drive/Program Files/Opera7/Opera.exe"
# Netscape Communicator 4.79 too (the bench's stand-in, with the users and
# files of tests/machines/nt40-netscape4), so that its tab can be shown.
netscape=$here/tests/machines/nt40-netscape4
if [ -f "$tree/tests/FakeNetscape479.exe" ]; then
    mkdir -p "$c_drive/Netscape/Communicator/Program"
    cp --remove-destination "$tree/tests/FakeNetscape479.exe" "$c_drive/Netscape/Communicator/Program/netscape.exe"
    cp -r --remove-destination "$netscape/files/." "$c_drive/"
    wine regedit /s "$(winpath "$netscape/netscape.reg")" >/dev/null 2>&1 </dev/null
fi
rwz='C:\Program Files\Roamwise\Rwz.exe'

# --- The pictures ------------------------------------------------------------
# shoot FILE TITLE-PART [TAB]: the window, as the screen shows it.
shoot() {
    local file=$1 rect
    shift
    rect=$(wine "$(winpath "$helper")" "$@" 2>/dev/null </dev/null | tr -d '\r')
    if [ -z "$rect" ]; then
        import -window root "$work/screen.png"
        die "no window \"$1\" for $file (the screen: $work/screen.png)"
    fi
    import -window root -crop "$rect" +repage "$docs/$file" || die "cannot capture $file"
    echo "screenshots: ${docs#"$here"/}/$file ($rect)"
}

wine "$rwz" /load 'C:\Profiles\office.rwz' >/dev/null 2>&1 </dev/null &
tab=0
for name in general internet-explorer netscape opera; do
    shoot "main-$name.png" "office.rwz - Roamwise" $tab
    tab=$((tab + 1))
done
wine taskkill /f /im Rwz.exe >/dev/null 2>&1 </dev/null
sleep 1

wine "$rwz" /about >/dev/null 2>&1 </dev/null &
shoot about.png "About Roamwise"
wine taskkill /f /im Rwz.exe >/dev/null 2>&1 </dev/null
sleep 1

wine "$rwz" /hidden /force /prompt >/dev/null 2>&1 </dev/null &
shoot restart.png "start"  # "Restart", "Neustart"
wine taskkill /f /im Rwz.exe >/dev/null 2>&1 </dev/null

# The tray program's menu: the recent profile, then those of the chosen folder.
wine reg add 'HKLM\Software\Roamwise\Options' /v TrayProfileFolder /d 'C:\Profiles' /f >/dev/null 2>&1 </dev/null
wine "C:\Program Files\Roamwise\RwzSysTray.exe" >/dev/null 2>&1 </dev/null &
shoot tray-menu.png --tray-menu
