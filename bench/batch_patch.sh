#!/usr/bin/env bash
# Whole-process time of a batch patch on a generated 20,000-column
# configuration, beside xmlstarlet setting one root attribute of the same file.
#
#   bench/batch_patch.sh [BUILD_DIR]     (default: build)
#
# Needs the targets quva-cfg-editor and gen_batch_config built in BUILD_DIR,
# and hyperfine and xmlstarlet (used here as the comparison point only).
# QUVA_EDITOR_BINARY points the script at another build of the editor;
# RUNS sets the number of timed runs (default 30).
# Two files are timed: "dense", a Var element for every column, and
# "sparse", one for every tenth column. Each run starts from a fresh copy.
# Both read the same 750 KB description, which xmlstarlet never touches.
# A last line times start-up alone.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
build=$(cd "${1:-$root/build}" && pwd)
editor=${QUVA_EDITOR_BINARY:-$build/app/quva-cfg-editor}
generator=$build/bench/gen_batch_config
runs=${RUNS:-30}
columns=20000

for tool in hyperfine xmlstarlet jq; do
    command -v "$tool" >/dev/null || { echo "batch_patch.sh: $tool is not installed" >&2; exit 2; }
done
for program in "$editor" "$generator"; do
    [ -x "$program" ] || { echo "batch_patch.sh: $program is not built" >&2; exit 2; }
done

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export QT_QPA_PLATFORM=offscreen

# Median wall time and mean CPU time (user + system) of one command, in ms.
times_ms() { # json file, command name
    jq -r --arg n "$2" '.results[] | select(.command == $n)
        | "\((.median * 10000 | round) / 10) \(((.user + .system) * 10000 | round) / 10)"' "$1"
}

echo "Wall: median of $runs runs; cpu: mean user + system time; all in ms."
printf '%-8s %12s %12s %8s %12s %12s  %s\n' file "editor wall" "xmlst. wall" ratio \
    "editor cpu" "xmlst. cpu" "configuration"
for variant in dense sparse; do
    dir=$work/$variant
    mkdir -p "$dir"
    "$generator" "$dir" "$columns" "$variant"
    cp "$dir/bench.CfgXML" "$dir/original.CfgXML"

    # Both commands must do their job before they are timed.
    "$editor" "$dir/bench.CfgXML" -seed=7 '-I=*.Dummy.*' 2>"$dir/editor.err" \
        || { echo "batch_patch.sh: the editor failed:" >&2; cat "$dir/editor.err" >&2; exit 1; }
    grep -q "randomSeed='7'" "$dir/bench.CfgXML" \
        || { echo "batch_patch.sh: the editor did not patch the file" >&2; exit 1; }
    ignored=$(grep -o "fi='I'" "$dir/bench.CfgXML" | wc -l)
    cp "$dir/original.CfgXML" "$dir/bench.CfgXML"
    xmlstarlet ed -L -u /QUV_Config/@randomSeed -v 7 "$dir/bench.CfgXML"
    grep -q 'randomSeed="7"' "$dir/bench.CfgXML" \
        || { echo "batch_patch.sh: xmlstarlet did not patch the file" >&2; exit 1; }

    hyperfine --style none -N --warmup 3 --runs "$runs" \
        --prepare "cp $dir/original.CfgXML $dir/bench.CfgXML" \
        --export-json "$dir/times.json" \
        -n editor "$editor $dir/bench.CfgXML -seed=7 -I=*.Dummy.*" \
        -n xmlstarlet "xmlstarlet ed -L -u /QUV_Config/@randomSeed -v 7 $dir/bench.CfgXML" \
        >/dev/null
    read -r ewall ecpu < <(times_ms "$dir/times.json" editor)
    read -r xwall xcpu < <(times_ms "$dir/times.json" xmlstarlet)
    printf '%-8s %12s %12s %8s %12s %12s  %s\n' "$variant" "$ewall" "$xwall" \
        "$(awk -v e="$ewall" -v x="$xwall" 'BEGIN { printf "%.2f", e / x }')" "$ecpu" "$xcpu" \
        "$(stat -c %s "$dir/original.CfgXML") bytes, $ignored columns ignored"
done

# The floor of both: starting the program and doing nothing.
hyperfine --style none -N --warmup 3 --runs "$runs" --export-json "$work/start.json" \
    -n editor "$editor --version" -n xmlstarlet "xmlstarlet --version" >/dev/null
read -r ewall ecpu < <(times_ms "$work/start.json" editor)
read -r xwall xcpu < <(times_ms "$work/start.json" xmlstarlet)
printf '%-8s %12s %12s %8s %12s %12s  %s\n' start-up "$ewall" "$xwall" \
    "$(awk -v e="$ewall" -v x="$xwall" 'BEGIN { printf "%.2f", e / x }')" "$ecpu" "$xcpu" \
    "--version, nothing read"
