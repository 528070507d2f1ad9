#!/usr/bin/env bash
# The game's command line: --help and --version answer and end, anything else is refused with
# status 2 before Qt sees it, and when no window can be opened the game says why in one line and
# fails without a core dump: no display, a platform asked for that does not exist, or a Wayland
# desktop without Qt's Wayland plugin.
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
# No window: one line that names the cause, and an ordinary failure, not Qt's abort.
no_window() {
    local what=$1 cause=$2
    shift 2
    env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM "$@" >"$work/out" 2>"$work/err"
    local status=$?
    if [ "$status" = 0 ] || [ "$status" -gt 125 ] || [ "$(wc -l <"$work/err")" != 1 ] ||
        ! grep -q "^apsis: cannot open the game's window: .*$cause" "$work/err"; then
        echo "command_line: $what: status $status (want 1 to 125), one line naming '$cause' wanted, got:"
        cat "$work/err"
        failed=1
    fi
}
no_window "with no display" "neither WAYLAND_DISPLAY nor DISPLAY is set" "$apsis"
no_window "with an unknown platform" 'QT_QPA_PLATFORM asks for "nonexistent": Qt has no platform' \
    QT_QPA_PLATFORM=nonexistent "$apsis"
# A Wayland desktop where Qt finds no platform plugins: a copy of the game beside a qt.conf that
# sends Qt to an empty plugin folder. The display need not exist: the plugin is missed first.
mkdir -p "$work/bin" "$work/plugins"
cp "$apsis" "$work/bin/apsis"
printf '[Paths]\nPlugins=%s\n' "$work/plugins" >"$work/bin/qt.conf"
no_window "on Wayland without Qt's Wayland plugin" '"wayland" platform plugin is not installed (Debian package qt6-wayland)' \
    WAYLAND_DISPLAY=apsis-test-nowhere "$work/bin/apsis"
[ "$failed" = 0 ] && echo "command_line: --help, --version, refused arguments and a window that cannot open as expected"
exit "$failed"
