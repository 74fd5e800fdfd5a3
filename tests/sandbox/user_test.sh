#!/usr/bin/env bash
# An ordinary user, nobody where root runs the tests, has a sandbox with all in it: user_test.sh BUILD_DIRECTORY
set -euo pipefail
sandbox=$(readlink -f "$(dirname "$0")/../../scripts/sandbox")
build=$1 as_user=()
[ "$(id -u)" != 0 ] || as_user=(setpriv --reuid=65534 --regid=65534 --clear-groups)

skipped() { echo "skipped: $*"; exit 77; }

"${as_user[@]}" test -r "$sandbox" -a -r "$build/bin/zelm_outctl" || skipped "users can't read this checkout"
"${as_user[@]}" "$sandbox" --check || skipped "users have no namespaces"
"${as_user[@]}" "$sandbox" --build "$build" sh -ec '
  zelm_outctl -c create -o main
  zelm_outctl -c list --name-only | grep -qx main
  cat /usr/share/man/man1/zelm_outctl.1 /usr/share/tavorn4/arglist/zelm_out_x11.al >/dev/null'
