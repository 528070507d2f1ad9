#!/usr/bin/env bash
# Plays the real game on a virtual X server with real key events and the server's own auto-repeat,
# and checks on screenshots what a player would see: a tap or a 2 s hold of an arrow moves the
# menu's and the set-up screen's highlight once, a held Space counts once, and the engine burns for
# as long as Up is held and stops when it is let go.
# Usage: end_to_end.sh PATH_TO_APSIS
set -euo pipefail
apsis=$1
source "$(dirname "$0")/../../scripts/lib/xvfb.sh"
begin_session
for tool in xwd convert; do
    command -v "$tool" >/dev/null || { echo "end_to_end: $tool is missing (scripts/setup installs it)"; exit 1; }
done
start_display

"$apsis" >"$work/apsis.log" 2>&1 &
pids+=($!)
focus_game

# Screenshots are kept as the server's own dumps: equal pictures are equal files.
shot() { xwd -root -silent >"$work/$1.xwd"; }
# The mean brightness (0..1) of a region WxH+X+Y of a screenshot.
mean() { convert "xwd:$work/$1.xwd" -crop "$2" +repage -colorspace gray -format '%[fx:mean]' info:; }
# Whether two screenshots are the same, in a region WxH+X+Y or as a whole.
same() {
    [ -z "${3:-}" ] && { cmp -s "$work/$1.xwd" "$work/$2.xwd"; return; }
    [ "$(convert "xwd:$work/$1.xwd" "xwd:$work/$2.xwd" -crop "$3" +repage -metric AE -compare -format '%[distortion]' info: 2>/dev/null || true)" = "0" ]
}
fail() {
    echo "end_to_end: $*"
    for dump in "$work"/*.xwd; do convert "xwd:$dump" "/tmp/$(basename "$dump" .xwd).png" || true; done
    exit 1
}
# Waits, up to 20 s on a busy machine, until the screen stops changing; shoots it as $1.
settle() {
    local _
    shot "$1"
    for _ in $(seq 80); do
        sleep 0.25
        shot settle
        same settle "$1" && return 0
        mv "$work/settle.xwd" "$work/$1.xwd"
    done
    fail "the screen never settled for $1"
}
tap() { xdotool key "$1"; settle "$2"; }
hold() { xdotool keydown "$1"; sleep 2; xdotool keyup "$1"; settle "$2"; }

# The menu: the highlight moves from About to Instructions. Band 1 spans the second eighth from
# the top of the window's height, band 2 the third.
sleep 1 # the intro lasts a third of a second; then the menu
settle menu1
tap Down menu2
same menu1 menu2 768x100+256+200 && fail "the About band did not change when the highlight left it"
same menu1 menu2 768x100+256+300 && fail "the Instructions band did not change when the highlight came"
tap Up back
hold Down held
same held menu2 || fail "a 2 s hold of Down on the menu did not move the highlight exactly once"
tap Down menu3
tap Down menu4

# The set-up screen: the same for the level, then a held Space starts the level once, showing
# its briefing as a tap of Space does, and not the flight behind it.
tap space choice1
tap Down choice2
tap Up back
hold Down held
same held choice2 || fail "a 2 s hold of Down on the set-up screen did not move the highlight exactly once"
tap Up back
tap space briefing1
tap Escape back
same back menu4 || fail "Escape on the briefing did not lead back to the menu"
tap space back
hold space briefing2
# The briefing's panel in the middle; the bodies and the craft behind it are placed afresh.
same briefing1 briefing2 310x300+485+230 || fail "a 2 s hold of Space on the set-up screen was more than one press"

# Into the practice level: Practice, Space for the briefing, Space to fly, Space to run.
tap Escape back
tap Up back
same back menu3 || fail "the menu did not come back with New Game highlighted"
for _ in 1 2 3; do
    xdotool key space
    sleep 0.4
done

# Slow time down first (a held), so that the burn below stays a gentle one.
xdotool keydown a
sleep 1.5
xdotool keyup a

# The fuel read-out (right column, fourth line) changes only while the engine burns.
fuel=300x16+970+74
xdotool keydown Up
sleep 0.7
shot burn1
sleep 0.7
shot burn2
xdotool keyup Up
green=$(mean burn1 6x600+1261+110) # the fuel gauge's green bar at the right edge
awk -v g="$green" 'BEGIN { exit !(g > 0.3) }' || fail "no fuel gauge in flight (mean $green)"
same burn1 burn2 "$fuel" && fail "the engine stopped while Up was still held"
# The fuel then stands still: within a few seconds, since a loaded machine may run the game late,
# but an engine that burns on never lets two read-outs half a second apart agree.
coasting=0
for _ in 1 2 3 4 5 6; do
    sleep 0.3
    shot coast1
    sleep 0.5
    shot coast2
    if same coast1 coast2 "$fuel"; then
        coasting=1
        break
    fi
done
[ "$coasting" = 1 ] || fail "the engine burned on after Up was let go"
kill -0 "${pids[1]}" || fail "the game is gone"
echo "end_to_end: one highlight move per tap or 2 s hold, one press per held Space; the engine burned while held and stopped at release"
