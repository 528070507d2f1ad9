#!/usr/bin/env bash
# Soak: the real game on a virtual X server for ten minutes: a tour of every screen, then random
# keys, much of the flight at the highest time factors, with its resident memory (VmRSS) sampled
# every 10 s. The verdict: after the first minute, resident memory must not rise by 2 MB or more
# above the highest it reached within that minute. A measurement, not a test.
# Usage: bench/soak.sh [PATH_TO_APSIS] [SECONDS] [SEED]
set -euo pipefail
cd "$(dirname "$0")/.."
apsis=${1:-build/release/apsis}
duration=${2:-600}
seed=${3:-1}
[ "$duration" -gt 60 ] || { echo "soak: too short to judge (needs more than a minute)"; exit 1; }
source scripts/lib/xvfb.sh
source bench/random_keys.sh
begin_session

start_display
"$apsis" >"$work/apsis.log" 2>&1 &
game=$!
pids+=("$game")
focus_game

{ tour_every_screen; play_random_keys "$duration" "$seed"; } &
pids+=($!)

rss_kb() { awk '/^VmRSS/ { print $2 }' "/proc/$game/status"; }
baseline=0 # kB, the highest within the first minute
peak=0     # kB, the highest after it
echo "  time   VmRSS"
for ((t = 10; t <= duration; t += 10)); do
    sleep 10
    if ! kill -0 "$game" 2>/dev/null; then
        echo "soak: the game ended after about $t s"
        cat "$work/apsis.log"
        exit 1
    fi
    rss=$(rss_kb)
    printf '%5d s  %6.1f MB\n' "$t" "$(awk -v k="$rss" 'BEGIN { print k / 1024 }')"
    if [ "$t" -le 60 ]; then
        [ "$rss" -gt "$baseline" ] && baseline=$rss
    elif [ "$rss" -gt "$peak" ]; then
        peak=$rss
    fi
done

growth=$((peak - baseline))
[ "$growth" -lt 0 ] && growth=0
printf 'at most %.1f MB in the first minute, at most %.1f MB after it: growth %.2f MB\n' \
    "$(awk -v k="$baseline" 'BEGIN { print k / 1024 }')" \
    "$(awk -v k="$peak" 'BEGIN { print k / 1024 }')" \
    "$(awk -v k="$growth" 'BEGIN { print k / 1024 }')"
if [ "$growth" -lt 2048 ]; then
    echo "soak: PASS (grew by less than 2 MB)"
else
    echo "soak: FAIL (grew by 2 MB or more)"
    exit 1
fi
