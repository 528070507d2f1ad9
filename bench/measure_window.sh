#!/usr/bin/env bash
# Measures the real game in a window on a virtual X server: time from start to the first frame on
# screen, CPU use idling on the menu, CPU use over 20 s of flight with the world running, and peak
# resident memory. With KSpaceDuel installed (Debian package kspaceduel, another 2-D game of
# gravity and ships, in Qt), it plays a round in a window of the same size beside the game, over
# the same 20 s, as a peer to compare with. A developer's measurement, not a test: figures vary
# with the machine.
# Usage: bench/measure_window.sh [PATH_TO_APSIS] [WIDTHxHEIGHT, 1280x800 by default]
set -euo pipefail
apsis=${1:-build/release/apsis}
size=${2:-1280x800}
width=${size%x*}
height=${size#*x}
source "$(dirname "$0")/../scripts/lib/xvfb.sh"
begin_session
# Room for both windows side by side, so that neither hides the other.
start_display "$((2 * width + 40))x$((height + 100))"

source "$(dirname "$0")/process_usage.sh"
# Whether the game's window, at the top-left corner, is still all black.
is_black() {
    local geometry
    geometry=$(xdotool search --onlyvisible --name '^Apsis$' getwindowgeometry --shell 2>/dev/null |
        awk -F= '/WIDTH|HEIGHT|^X|^Y/ { v[$1] = $2 } END { printf "%dx%d+%d+%d", v["WIDTH"], v["HEIGHT"], v["X"], v["Y"] }')
    [ -n "$geometry" ] && [ "${geometry%%+*}" != "0x0" ] || return 0
    [ "$(xwd -root -silent | convert xwd:- -crop "$geometry" -format '%[fx:maxima]' info:)" = "0" ]
}

# Time to the first frame: one screenshot a fixed delay after start, in fresh runs at growing
# delays, so that taking screenshots does not slow the start it measures.
for delay in 0.05 0.10 0.15 0.20 0.25 0.30 0.40 0.50; do
    "$apsis" >/dev/null 2>&1 &
    probe=$!
    sleep "$delay"
    if ! is_black; then
        kill "$probe"
        wait "$probe" 2>/dev/null || true
        echo "first frame on screen within $delay s of start"
        break
    fi
    kill "$probe"
    wait "$probe" 2>/dev/null || true
done

# A small window manager, when there is one: the peer starts its rounds only in an active window.
if command -v openbox >/dev/null; then
    openbox >/dev/null 2>&1 &
    pids+=($!)
    sleep 1
fi

"$apsis" >/dev/null 2>&1 &
game=$!
pids+=("$game")
focus_game
game_window=$(xdotool search --onlyvisible --name '^Apsis$' | head -n1)
xdotool windowmove --sync "$game_window" 0 0 windowsize --sync "$game_window" "$width" "$height"
sleep 2
before=$(cpu_ticks "$game")
sleep 10
echo "menu, idle: $(percent "$before" "$(cpu_ticks "$game")" 10)% of a core"

# The practice level, running, at its own time factor.
xdotool key Down Down space
sleep 0.3
xdotool key space
sleep 0.3
xdotool key space
sleep 2

peer=
kspaceduel=$(PATH="$PATH:/usr/games" command -v kspaceduel || true)
if [ -n "$kspaceduel" ]; then
    # It leaves at once without a session bus.
    dbus-run-session "$kspaceduel" >/dev/null 2>&1 &
    pids+=($!)
    peer_window=$(timeout 60 xdotool search --sync --onlyvisible --class kspaceduel | tail -n1)
    peer=$(pgrep -n -x kspaceduel)
    xdotool windowmove --sync "$peer_window" "$((width + 20))" 0
    xdotool windowsize --sync "$peer_window" "$width" "$height"
    xdotool windowactivate --sync "$peer_window"
    sleep 1
    # A new game (Ctrl+N); Space starts its first round.
    xdotool key ctrl+n 2>/dev/null || true
    sleep 1
    xdotool key space
    sleep 3
fi

game_before=$(cpu_ticks "$game")
[ -n "$peer" ] && peer_before=$(cpu_ticks "$peer")
sleep 20
echo "flight at $size, world running: $(percent "$game_before" "$(cpu_ticks "$game")" 20)% of a core"
if [ -n "$peer" ]; then
    echo "KSpaceDuel at $size, in the same 20 s: $(percent "$peer_before" "$(cpu_ticks "$peer")" 20)% of a core"
fi
echo "peak resident memory: $(memory "$game" VmHWM)"

# The same flight with the navigation aids drawn, once they have looked a whole orbit ahead.
xdotool windowactivate --sync "$game_window"
xdotool key F2
sleep 5
game_before=$(cpu_ticks "$game")
sleep 20
echo "flight at $size, world running, aids on: $(percent "$game_before" "$(cpu_ticks "$game")" 20)% of a core"
