#!/usr/bin/env bash
# Plays the real game on a virtual X server with real key events, and checks on screenshots what a
# player would see: the menu highlight follows the arrows, and the engine burns for as long as Up
# is held, through the X server's own auto-repeat, and stops when it is let go.
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
sleep 1 # the intro lasts a third of a second; then the menu

shot() { xwd -root -silent | convert xwd:- -crop 1280x800+0+0 +repage "$work/$1.png"; }
# The mean brightness (0..1) of a region WxH+X+Y of a screenshot.
mean() { convert "$work/$1.png" -crop "$2" +repage -colorspace gray -format '%[fx:mean]' info:; }
same() { [ "$(convert "$work/$1.png" "$work/$2.png" -crop "$3" +repage -metric AE -compare -format '%[distortion]' info: 2>/dev/null || true)" = "0" ]; }
fail() { echo "end_to_end: $*"; cp "$work"/*.png /tmp/ 2>/dev/null || true; exit 1; }

# The menu: the highlight moves from About to Instructions. Band 1 spans the second eighth from
# the top of the window's height, band 2 the third.
band1=768x100+256+200
band2=768x100+256+300
shot menu1
xdotool key Down
sleep 0.3
shot menu2
same menu1 menu2 "$band1" && fail "the About band did not change when the highlight left it"
same menu1 menu2 "$band2" && fail "the Instructions band did not change when the highlight came"

# Into the practice level: Down to Practice, Space for the briefing, Space to fly, Space to run.
xdotool key Down
sleep 0.2
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
sleep 0.3
shot coast1
sleep 0.5
shot coast2
green=$(mean burn1 6x600+1261+110) # the fuel gauge's green bar at the right edge
awk -v g="$green" 'BEGIN { exit !(g > 0.3) }' || fail "no fuel gauge in flight (mean $green)"
same burn1 burn2 "$fuel" && fail "the engine stopped while Up was still held"
same coast1 coast2 "$fuel" || fail "the engine burned on after Up was let go"
kill -0 "${pids[1]}" || fail "the game is gone"
echo "end_to_end: menu highlight moved; engine burned while held and stopped at release"
