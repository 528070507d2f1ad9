#!/usr/bin/env bash
# Measures the real game in a window on a virtual X server, level by level: CPU use over 10 s of
# flight at the level's opening, then again after zoom in (w) was held for 2.5 s, when the followed
# body fills the view; and the peak resident memory after every level was flown, all in one
# process. A developer's measurement, not a test: figures vary with the machine.
# Usage: bench/measure_zoom.sh [PATH_TO_APSIS] [WIDTHxHEIGHT, 1280x800 by default] [LEVELS...]
set -euo pipefail
apsis=${1:-build/release/apsis}
size=${2:-1280x800}
shift $(($# < 2 ? $# : 2))
levels=("${@:-1 3 6}")
read -r -a levels <<<"${levels[*]}"
width=${size%x*}
height=${size#*x}
source "$(dirname "$0")/../scripts/lib/xvfb.sh"
begin_session
start_display "$((width + 40))x$((height + 100))"

source "$(dirname "$0")/process_usage.sh"
# Percent of one core used by process $1 over the next $2 s.
cpu_over() {
    local before
    before=$(cpu_ticks "$1")
    sleep "$2"
    percent "$before" "$(cpu_ticks "$1")" "$2"
}

"$apsis" >/dev/null 2>&1 &
game=$!
pids+=("$game")
focus_game
window=$(xdotool search --onlyvisible --name '^Apsis$' | head -n1)
xdotool windowmove --sync "$window" 0 0 windowsize --sync "$window" "$width" "$height"
sleep 2
# The menu's highlight and the set-up's level stay where they were left: the first time the
# highlight goes down to the new game, and the level down from the last one flown (levels are
# given in rising order).
xdotool key Down Down Down
chosen=1
for level in "${levels[@]}"; do
    # From the menu: the new game's set-up, down to the level, its briefing, the flight, running.
    xdotool key space
    sleep 0.3
    for _ in $(seq "$((chosen + 1))" "$level"); do xdotool key Down; done
    chosen=$level
    xdotool key space
    sleep 0.5
    xdotool key space
    sleep 0.3
    xdotool key space
    sleep 2
    opening=$(cpu_over "$game" 10)
    xdotool keydown w
    sleep 2.5
    xdotool keyup w
    sleep 1
    zoomed=$(cpu_over "$game" 10)
    echo "level $level at $size: opening $opening%, zoomed in $zoomed% of a core;" \
        "resident $(memory "$game" VmRSS), peak so far $(memory "$game" VmHWM)"
    # Back to the menu.
    xdotool key Escape
    sleep 1
done
echo "peak resident memory: $(memory "$game" VmHWM)"
