#!/usr/bin/env bash
# Installs the build into a temporary DESTDIR and checks what a desktop needs of it:
# the two programs, the launcher, the icons, the metainfo, the type of the line files
# and the manual pages, each checked by the desktop's own validators where there is
# one. $1 is the build folder, $2 the version.
set -euo pipefail
build=$1
version=$2
dest=$(mktemp -d)
trap 'rm -rf "$dest"' EXIT
fail() { echo "install test: $*" >&2; exit 1; }

DESTDIR="$dest" cmake --install "$build" --prefix /usr >/dev/null
usr="$dest/usr"
id=org.morvane.Morvane

for file in bin/morvane bin/morvane-cli; do
  [ -x "$usr/$file" ] || fail "$file is missing or not executable"
done
"$usr/bin/morvane" --help | grep -q '^Usage: morvane \[FILE.mrv\]' || fail "morvane --help"
[ "$("$usr/bin/morvane" --version)" = "morvane $version" ] || fail "morvane --version"
"$usr/bin/morvane-cli" --version >/dev/null || fail "morvane-cli --version"

desktop="$usr/share/applications/$id.desktop"
[ -f "$desktop" ] || fail "the .desktop file is missing"
command -v desktop-file-validate >/dev/null || fail "desktop-file-validate (desktop-file-utils) is not installed"
desktop-file-validate "$desktop" || fail "desktop-file-validate refuses $desktop"
grep -qx 'MimeType=application/x-morvane-line;' "$desktop" || fail "the .desktop file has no MimeType"
grep -qx "Icon=$id" "$desktop" || fail "the .desktop file names another icon"
grep -qx 'Exec=morvane %f' "$desktop" || fail "the .desktop file starts something else"

metainfo="$usr/share/metainfo/$id.metainfo.xml"
[ -f "$metainfo" ] || fail "the metainfo file is missing"
appstreamcli validate --no-net "$metainfo" >/dev/null || fail "appstreamcli refuses $metainfo"

mime="$usr/share/mime/packages/$id.xml"
[ -f "$mime" ] || fail "the shared-mime-info entry is missing"
xmllint --noout "$mime" || fail "the shared-mime-info entry is no XML"
update-mime-database "$usr/share/mime" || fail "update-mime-database refuses the entry"
grep -q '^application/x-morvane-line:\*\.mrv$' "$usr/share/mime/globs" ||
  fail "*.mrv is not application/x-morvane-line"

[ -f "$usr/share/icons/hicolor/scalable/apps/$id.svg" ] || fail "the SVG icon is missing"
xmllint --noout "$usr/share/icons/hicolor/scalable/apps/$id.svg" || fail "the SVG icon is no XML"
for size in 16 22 24 32 48 64 128 256; do
  png="$usr/share/icons/hicolor/${size}x${size}/apps/$id.png"
  [ -f "$png" ] || fail "the ${size}x${size} icon is missing"
  # The width and height of the PNG's header.
  read -r w h < <(od -An -tu1 -j16 -N8 "$png" |
    awk '{print $1*16777216+$2*65536+$3*256+$4, $5*16777216+$6*65536+$7*256+$8}')
  [ "$w" = "$size" ] && [ "$h" = "$size" ] || fail "the ${size}x${size} icon is ${w}x${h}"
done

for page in morvane morvane-cli; do
  man="$usr/share/man/man1/$page.1"
  [ -f "$man" ] || fail "the manual page of $page is missing"
  head -1 "$man" | grep -qi "^\.TH $page 1" || fail "the manual page of $page has no title line"
done
echo "install test: every file is in place and valid"
