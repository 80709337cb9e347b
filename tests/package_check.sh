#!/usr/bin/env bash
# Makes the Debian package of the build, checks its contents and computed
# dependencies, then installs and removes it in a scratch root.
set -euo pipefail
build=$1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
fail() { echo "package_check: $*" >&2; exit 1; }

cpack --config "$build/CPackConfig.cmake" -B "$scratch/out" >"$scratch/cpack.log" 2>&1 \
  || { cat "$scratch/cpack.log" >&2; fail "cpack failed"; }
deb=$(ls "$scratch"/out/*.deb)
contents=$(dpkg-deb -c "$deb")
for path in ./usr/bin/quva-cfg-editor ./usr/bin/quva-expr ./usr/bin/quva-xmlcat \
            ./usr/bin/quva-desc-open ./usr/lib/quva/quva-cfg-editor \
            ./usr/lib/quva/quva-cfg-editor-gui.so ./usr/lib/quva/QuvaServer \
            ./usr/share/applications/quva-cfg-editor.desktop \
            ./usr/share/mime/packages/quva-cfg-editor.xml \
            ./usr/share/icons/hicolor/scalable/apps/quva-cfg-editor.svg \
            ./usr/share/man/man1/quva-cfg-editor.1; do
  grep -qF " $path" <<<"$contents" || fail "$path is not in the package"
done
depends=$(dpkg-deb -f "$deb" Depends)
for lib in libqt5core5a libqt5widgets5 libqwt-qt5-6 libc6; do
  grep -q "$lib" <<<"$depends" || fail "dependency on $lib not computed: $depends"
done

# A scratch root with an empty package database, the dependencies left aside.
root=$scratch/root
mkdir -p "$root/var/lib/dpkg/info" "$root/var/lib/dpkg/updates" "$root/var/lib/dpkg/triggers"
touch "$root/var/lib/dpkg/status" "$root/var/lib/dpkg/available"
dpkg=(dpkg --root="$root" --force-depends --force-not-root --force-script-chrootless
      --log=/dev/null)
"${dpkg[@]}" -i "$deb" >"$scratch/dpkg.log" 2>&1 || { cat "$scratch/dpkg.log" >&2; fail "dpkg -i"; }
[ -x "$root/usr/lib/quva/quva-cfg-editor" ] || fail "the program was not installed"
"${dpkg[@]}" -r quva-cfg-editor >"$scratch/dpkg.log" 2>&1 || { cat "$scratch/dpkg.log" >&2; fail "dpkg -r"; }
left=$(find "$root/usr" -mindepth 1 \! -type d 2>/dev/null || true)
[ -z "$left" ] || fail "files left after removal: $left"
echo "package_check: built, installed and removed $(basename "$deb")"
