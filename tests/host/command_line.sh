#!/usr/bin/env bash
# The game's command line: --help and --version answer and end, anything else is refused with
# status 2 before Qt sees it, and with no display the game says so in one line and fails
# without a core dump.
# Usage: command_line.sh PATH_TO_APSIS VERSION
set -uo pipefail
apsis=$1
version=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failed=0
# Runs the game with the given arguments, and checks its status and how many lines it printed
# on stdout and on stderr.
expect() {
    local status=$1 out=$2 err=$3
    shift 3
    "$apsis" "$@" >"$work/out" 2>"$work/err" </dev/null
    local got=$? got_out got_err
    got_out=$(wc -l <"$work/out")
    got_err=$(wc -l <"$work/err")
    if [ "$got" != "$status" ] || { [ "$out" != any ] && [ "$got_out" != "$out" ]; } || [ "$got_err" != "$err" ]; then
        echo "command_line: apsis $*: status $got, $got_out/$got_err lines out/err (want $status, $out/$err)"
        cat "$work/out" "$work/err"
        failed=1
    fi
}
expect 0 any 0 --help
grep -q "^Usage: apsis" "$work/out" && grep -q "$version" "$work/out" || { echo "command_line: --help names no usage or version"; failed=1; }
expect 0 1 0 --version
[ "$(cat "$work/out")" = "Apsis $version" ] || { echo "command_line: --version printed $(cat "$work/out")"; failed=1; }
expect 2 0 1 -stylesheet /etc/passwd
expect 2 0 1 -platform x
expect 2 0 1 --help extra # a second word is refused, not ignored
expect 2 0 1 level1
# No display at all: one line and an ordinary failure, not Qt's abort.
env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM "$apsis" >"$work/out" 2>"$work/err"
status=$?
if [ "$status" = 0 ] || [ "$status" -gt 125 ] || [ "$(wc -l <"$work/err")" != 1 ]; then
    echo "command_line: with no display: status $status, and:"
    cat "$work/err"
    failed=1
fi
[ "$failed" = 0 ] && echo "command_line: --help, --version, refused arguments and no display as expected"
exit "$failed"
