#!/usr/bin/env bash
# Leaks of the real game: about a minute of play on a virtual X server (a tour of every screen,
# then random keys), then Ctrl+Q, so that the leak checker sees the game end as a player ends it.
# Either LeakSanitizer in the sanitized build (the default), or valgrind's memcheck on any build.
# Prints the checker's summary; fails when a leak comes from the game's own code. A measurement,
# not a test.
# Usage: bench/leak_check.sh [asan|valgrind] [PATH_TO_APSIS] [SECONDS]
set -euo pipefail
cd "$(dirname "$0")/.."
checker=${1:-asan}
duration=${3:-40}
source scripts/lib/xvfb.sh
source bench/random_keys.sh
begin_session

report=$work/report.txt
case "$checker" in
asan)
    apsis=${2:-build/asan/apsis}
    export ASAN_OPTIONS=detect_leaks=1:halt_on_error=1
    export LSAN_OPTIONS="suppressions=$PWD/tests/sanitizer/lsan.supp:print_suppressions=1"
    run=("$apsis")
    ;;
valgrind)
    apsis=${2:-build/release/apsis}
    run=(valgrind --tool=memcheck --leak-check=full --show-leak-kinds=definite,indirect
         --errors-for-leak-kinds=definite --num-callers=30 "$apsis")
    ;;
*)
    echo "usage: bench/leak_check.sh [asan|valgrind] [PATH_TO_APSIS] [SECONDS]" >&2
    exit 2
    ;;
esac

start_display
"${run[@]}" >"$report" 2>&1 &
game=$!
pids+=("$game")
focus_game
tour_every_screen
play_random_keys "$duration" 1
xdotool key ctrl+q
status=0
for _ in $(seq 3000); do kill -0 "$game" 2>/dev/null || break; sleep 0.1; done
if kill -0 "$game" 2>/dev/null; then
    echo "leak_check: the game did not end within five minutes of Ctrl+Q"
    exit 1
fi
wait "$game" || status=$?

# The checker's findings: every leak with the stack that allocated it.
grep -E "LeakSanitizer|SUMMARY|definitely lost|indirectly lost|possibly lost|ERROR SUMMARY|Direct leak|Indirect leak|Suppressions used|^ *[0-9]+ +[0-9]+ " "$report" || true
# A leak is the game's when the first frame past the allocator is the game's own code: a block
# that a library allocates for itself is the library's, whoever called into it.
ours=$(sed -E 's/^==[0-9]+== ?//' "$report" | awk '
    /(Direct|Indirect) leak|definitely lost|indirectly lost/ { inLeak = 1; judged = 0; next }
    inLeak && /^ *$/ { inLeak = 0 }
    inLeak && !judged && /^ *(#[0-9]+|at|by) / {
        if ($0 ~ /malloc|calloc|realloc|operator new|__interceptor|vg_replace|memalign/) next
        judged = 1
        if ($0 ~ /apsis::|\/src\/(assets|physics|world|presentation|control|platform|host)\//) n++
    }
    END { print n + 0 }')
echo "leak_check: the game exited with status $status; leaks allocated by the game's own code: $ours"
if [ "$ours" -gt 0 ]; then
    grep -A30 -E "(Direct|Indirect) leak|definitely lost|indirectly lost" "$report" | head -200
    exit 1
fi
