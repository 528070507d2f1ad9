#!/usr/bin/env bash
# Runs the real game natively on a real Wayland compositor, weston's headless backend, with no X
# server to fall back on. That compositor has no keyboard, so this checks what it can show: the
# window opens with its title and its app id, at the output's scale, with a minimum size that fits
# the output; the menu is drawn with its pictures; and the game ends cleanly when asked to.
# Usage: end_to_end_wayland.sh PATH_TO_APSIS
set -euo pipefail
apsis=$1
source "$(dirname "$0")/../../scripts/lib/xvfb.sh" # for begin_session: a scratch folder, cleaned up
begin_session
for tool in weston weston-screenshooter convert identify; do
    command -v "$tool" >/dev/null || { echo "end_to_end_wayland: $tool is missing (scripts/setup installs it)"; exit 1; }
done
# No step ends this script without saying which one.
trap 'echo "end_to_end_wayland: the step at line $LINENO failed"' ERR
fail() {
    echo "end_to_end_wayland: $*"
    cp "$work"/*.png /tmp/ 2>/dev/null || true
    exit 1
}

# A private runtime folder for the compositor's socket; no X display, and Qt on Wayland only.
export XDG_RUNTIME_DIR="$work/runtime"
mkdir -m 700 "$XDG_RUNTIME_DIR"
unset DISPLAY
export QT_QPA_PLATFORM=wayland WAYLAND_DISPLAY=apsis-test
# Under the sanitizers a leak is still reported; the table of suppressed ones is not news.
[ -n "${LSAN_OPTIONS:-}" ] && export LSAN_OPTIONS="$LSAN_OPTIONS:print_suppressions=0"

# Starts weston on an output of WIDTHxHEIGHT points at SCALE pixels per point, with its usual
# desktop; the screenshooter needs --debug.
start_weston() {
    local size=$1 scale=$2
    rm -f "$XDG_RUNTIME_DIR/$WAYLAND_DISPLAY" "$XDG_RUNTIME_DIR/$WAYLAND_DISPLAY.lock"
    weston --backend=headless-backend.so --use-pixman --width="${size%x*}" --height="${size#*x}" \
        --scale="$scale" --socket="$WAYLAND_DISPLAY" --no-config \
        --idle-time=0 --debug >"$work/weston.log" 2>&1 &
    weston_pid=$!
    pids+=("$weston_pid")
    for _ in $(seq 100); do
        [ -S "$XDG_RUNTIME_DIR/$WAYLAND_DISPLAY" ] && return 0
        kill -0 "$weston_pid" 2>/dev/null || break
        sleep 0.1
    done
    # Only here is a skip honest: weston is installed but cannot run on this machine.
    echo "end_to_end_wayland: SKIPPED: weston's headless backend did not start here:"
    tail -n 5 "$work/weston.log"
    exit 77
}
stop_weston() {
    kill "$weston_pid" 2>/dev/null || true
    wait "$weston_pid" 2>/dev/null || true
}

# Starts the game with the protocol traffic logged, and waits until its window has a title.
start_game() {
    WAYLAND_DEBUG=1 "$apsis" >"$work/out.log" 2>"$work/err.log" &
    game=$!
    pids+=("$game")
    for _ in $(seq 200); do
        grep -q 'xdg_toplevel@[0-9]*\.set_title' "$work/err.log" && return 0
        kill -0 "$game" 2>/dev/null || fail "the game ended at start: $(grep -v '^\[' "$work/err.log")"
        sleep 0.1
    done
    fail "no window within 20 s"
}
# Asks the game to end as a session does, and checks that it ends at once, in order, and says
# nothing but the protocol log.
end_game() {
    kill -TERM "$game"
    local status=0 _
    for _ in $(seq 50); do kill -0 "$game" 2>/dev/null || break; sleep 0.1; done
    kill -0 "$game" 2>/dev/null && fail "the game did not end within 5 s of SIGTERM"
    wait "$game" || status=$?
    [ "$status" = 0 ] || fail "the game ended with status $status: $(grep -v '^\[' "$work/err.log")"
    grep -q 'wl_display@[0-9]*\.error' "$work/err.log" && fail "the compositor reported a protocol error: $(grep 'wl_display@[0-9]*\.error' "$work/err.log")"
    local said
    said=$(grep -v '^\[ *[0-9.]*\] ' "$work/err.log" "$work/out.log" || true)
    [ -z "$said" ] || fail "the game said: $said"
}
# The colours (0..255) of a screenshot's middle, where the window is wherever weston puts it
# (1152x720 points on 1280x800 beneath the panel), each the mean of a band of 20 rows.
rows() {
    convert "$1" -crop 2048x1240+256+240 +repage -scale 1x62! -depth 8 txt:- |
        sed -n 's/.*(\([0-9]*\),\([0-9]*\),\([0-9]*\).*/\1 \2 \3/p'
}

# A high-density laptop screen: 1280x800 points at 2 pixels each.
start_weston 1280x800 2
start_game
grep -q 'xdg_toplevel@[0-9]*\.set_title("Apsis")' "$work/err.log" || fail "the window's title is not Apsis"
grep -q 'xdg_toplevel@[0-9]*\.set_app_id("io.github.apsis.Apsis")' "$work/err.log" ||
    fail "the window's app id is not io.github.apsis.Apsis"
grep -q 'wl_surface@[0-9]*\.set_buffer_scale(2)' "$work/err.log" || fail "the window is not drawn at the output's scale 2"
# The menu, once the intro is over: the backdrop's nebula and stars (not black), and the first
# entry's band, blue across the window. A busy machine may take several seconds to draw it.
drawn=0
sleep 0.5 # the intro lasts a third of a second
for _ in $(seq 40); do
    sleep 0.5
    rm -f "$work"/wayland-screenshot*.png
    (cd "$work" && weston-screenshooter >/dev/null 2>&1) || continue
    mv "$work"/wayland-screenshot*.png "$work/shot.png" 2>/dev/null || continue
    seen=$(rows "$work/shot.png" | awk '{ sum += ($1 + $2 + $3) / 3; if ($3 >= 45 && $3 >= 2 * $1) blue++ }
        END { printf "mean %.1f, %d blue rows", sum / NR, blue; exit !(sum / NR >= 8 && blue >= 3) }') &&
        { drawn=1; break; }
done
[ "$(identify -format '%wx%h' "$work/shot.png" 2>/dev/null)" = 2560x1600 ] || fail "the screenshot is not of the whole 2560x1600 output"
[ "$drawn" = 1 ] || fail "no menu on screen ($seen; see /tmp/shot.png)"
end_game
stop_weston

# The screen that made the window overflow: 2560x1600 pixels at scale 4, 640x400 points.
start_weston 640x400 4
start_game
# The minimum is sent again once the window knows its screen, which on a busy machine may come
# after the title: the last one sent, once the compositor has had time to tell the window its size.
min_size() {
    sed -n 's/.*xdg_toplevel@[0-9]*\.set_min_size(\([0-9]*\), \([0-9]*\)).*/\1 \2/p' "$work/err.log" | tail -n1
}
for _ in $(seq 100); do
    grep -q 'xdg_surface@[0-9]*\.ack_configure' "$work/err.log" && [ -n "$(min_size)" ] && break
    sleep 0.1
done
sleep 0.5
read -r width height < <(min_size) || true
[ -n "${width:-}" ] && [ "$width" -le 640 ] && [ "$height" -le 400 ] ||
    fail "the window's minimum size ${width:-?}x${height:-?} exceeds the 640x400 output"
end_game
stop_weston

echo "end_to_end_wayland: native on weston: titled Apsis, app id io.github.apsis.Apsis, drawn at scale 2 with the menu on screen ($seen), minimum ${width}x$height on a 640x400 output, ended cleanly by SIGTERM"
