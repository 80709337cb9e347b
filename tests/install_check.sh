#!/usr/bin/env bash
# Installs the build into a temporary prefix under DESTDIR and tries the
# installed programs there: --version, the batch path on a copy of the
# example, the tools, and the desktop entry, MIME types, icon and manual
# pages with their validators.
set -euo pipefail
build=$1
source=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
fail() { echo "install_check: $*" >&2; exit 1; }

DESTDIR="$scratch/root" cmake --install "$build" --prefix /opt/quva >/dev/null
prefix=$scratch/root/opt/quva

out=$("$prefix/bin/quva-cfg-editor" --version)
[ "$out" = "quva-cfg-editor $(sed -n 's/^project(quva_cfg_editor VERSION \([0-9.]*\).*/\1/p' "$source/CMakeLists.txt")" ] \
  || fail "unexpected --version: $out"
# The program lies in the private folder, reached through the link.
[ -L "$prefix/bin/quva-cfg-editor" ] || fail "bin/quva-cfg-editor is no link"
for f in quva-cfg-editor quva-cfg-editor-gui.so QuvaServer quva xml2html; do
  [ -e "$prefix/lib/quva/$f" ] || fail "lib/quva/$f missing"
done

# The batch path, with no display, on a copy of the example.
mkdir "$scratch/work"
cp "$source"/examples/credit.* "$scratch/work/"
env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM \
  "$prefix/bin/quva-cfg-editor" "$scratch/work/credit.CfgXML" -seed=7 -cpu=3 \
  || fail "the batch path failed"
grep -q "randomSeed='7'" "$scratch/work/credit.CfgXML" || fail "the seed was not written"
grep -q "cpuCount='3'" "$scratch/work/credit.CfgXML" || fail "the processors were not written"

"$prefix/bin/quva-expr" -n age=31 'age > 25' | grep -q '^value: d 1$' || fail "quva-expr"
"$prefix/bin/quva-xmlcat" "$scratch/work/credit.DescXML" >/dev/null 2>&1 || fail "quva-xmlcat"
bash -n "$prefix/bin/quva-desc-open" || fail "quva-desc-open is no valid script"

# The stand-in, installed under the engine's name, runs from the private folder.
( cd "$scratch/work" && QUVA_STANDIN_DELAY_MS=1 "$prefix/lib/quva/quva" -m credit.CfgXML >/dev/null ) \
  || fail "the stand-in engine failed"
[ -d "$scratch/work/credit_001" ] || fail "the stand-in wrote no output folder"

apps=$prefix/share/applications
for entry in quva-cfg-editor.desktop quva-cfg-editor-description.desktop; do
  [ -f "$apps/$entry" ] || fail "$entry not installed"
  desktop-file-validate "$apps/$entry" || fail "$entry does not validate"
done

# The MIME types: the database is built from them, which checks them.
mime=$prefix/share/mime
update-mime-database "$mime" || fail "update-mime-database refused the MIME types"
for type in x-quva-cfgxml x-quva-descxml; do
  [ -f "$mime/application/$type.xml" ] || fail "MIME type $type not in the database"
done
grep -q "quva-cfg-editor.desktop" <(grep -l "x-quva-cfgxml" "$apps"/*.desktop) \
  || fail "the desktop entry does not claim the configuration type"

icons=$prefix/share/icons/hicolor
[ -f "$icons/scalable/apps/quva-cfg-editor.svg" ] || fail "SVG icon missing"
for size in 16 24 32 48 64 128 256; do
  png=$icons/${size}x${size}/apps/quva-cfg-editor.png
  [ -f "$png" ] || fail "icon $size missing"
  file "$png" | grep -q "$size x $size" || fail "icon $size has the wrong size"
done

# Each manual page says what the program's --help says.
for tool in quva-cfg-editor quva-expr quva-xmlcat; do
  page=$prefix/share/man/man1/$tool.1
  [ -f "$page" ] || fail "manual page of $tool missing"
  rendered=$(MANWIDTH=200 man -l "$page" 2>/dev/null | col -b | tr -s ' \n' ' ')
  help=$("$prefix/bin/$tool" --help)
  while read -r word; do
    case "$rendered" in *"$word"*) ;; *) fail "$tool: '$word' of --help is not in the page" ;; esac
  done < <(grep -oE '(^| )--?[A-Za-z][A-Za-z0-9-]*=?' <<<"$help" | tr -d ' ' | sort -u)
done
echo "install_check: all installed pieces work"
