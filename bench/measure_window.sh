#!/usr/bin/env bash
# Measures the real game in a 1280x800 window on a virtual X server: time from start to the first
# frame on screen, CPU use idling on the menu, CPU use over 20 s of flight with the world running,
# and peak resident memory. A developer's measurement, not a test: figures vary with the machine.
# Usage: bench/measure_window.sh PATH_TO_APSIS
set -euo pipefail
apsis=${1:-build/release/apsis}
source "$(dirname "$0")/../scripts/lib/xvfb.sh"
begin_session
start_display

ticks_per_second=$(getconf CLK_TCK)
cpu_ticks() { awk '{ print $14 + $15 }' "/proc/$1/stat"; }
# Percent of one core used by process $1 over $2 seconds.
cpu_percent() {
    local before after
    before=$(cpu_ticks "$1")
    sleep "$2"
    after=$(cpu_ticks "$1")
    awk -v b="$before" -v a="$after" -v t="$ticks_per_second" -v s="$2" \
        'BEGIN { printf "%.1f", 100 * (a - b) / t / s }'
}
is_black() { [ "$(xwd -root -silent | convert xwd:- -crop 1280x800+0+0 -format '%[fx:maxima]' info:)" = "0" ]; }

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

"$apsis" >/dev/null 2>&1 &
game=$!
pids+=("$game")
focus_game
sleep 2
echo "menu, idle: $(cpu_percent "$game" 10)% of a core"

# The practice level, running, at its own time factor.
xdotool key Down Down space
sleep 0.3
xdotool key space
sleep 0.3
xdotool key space
sleep 2
echo "flight, world running: $(cpu_percent "$game" 20)% of a core"
# The same flight with the navigation aids drawn, once they have looked a whole orbit ahead.
xdotool key F2
sleep 5
echo "flight, world running, aids on: $(cpu_percent "$game" 20)% of a core"
echo "peak resident memory: $(awk '/VmHWM/ { printf "%.1f MB", $2 / 1024 }' "/proc/$game/status")"
