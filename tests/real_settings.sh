#!/bin/sh
# record STATE | compare STATE: the editor's settings files in the real home
# of the user running the suite, before and after every test. Each test runs
# with a home of its own, so nothing may change here.
set -eu
home=$(getent passwd "$(id -u)" | cut -d: -f6)
files="$home/.config/Brandolin/QUV.conf $home/.config/Brandolin/Quva.conf"
state() {
  for f in $files; do
    if [ -e "$f" ]; then echo "$f $(cksum < "$f")"; else echo "$f absent"; fi
  done
}
case "$1" in
  record) state > "$2" ;;
  compare)
    if ! state | cmp -s - "$2"; then
      echo "the suite changed the user's own settings:" >&2
      state | diff "$2" - >&2 || true
      exit 1
    fi ;;
esac
