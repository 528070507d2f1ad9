# Sourced by the scripts that run the real game on a virtual X server: the end-to-end test, the
# window measurements, the soak and the leak check.
#
# After `begin_session`, $work is a scratch folder, and every process id added to the array pids
# is ended, and the folder removed, when the script exits.

begin_session() {
    work=$(mktemp -d)
    pids=()
    trap end_session EXIT
}

end_session() {
    local pid
    for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
    rm -rf "$work"
}

# A virtual X server larger than the game's default window (which then keeps its 1280x800 at the
# top-left), or of the size given (WIDTHxHEIGHT), with the desktop's usual auto-repeat, so that
# held keys arrive as they do for a player: a held key repeats after 250 ms, 30 times a second.
start_display() {
    local tool
    for tool in Xvfb xdotool xset; do
        command -v "$tool" >/dev/null || { echo "$tool is missing (scripts/setup installs it)"; exit 1; }
    done
    exec 3<> "$work/display"
    Xvfb -displayfd 3 -screen 0 "${1:-1600x1000}x24" -nolisten tcp >/dev/null 2>&1 &
    pids+=($!)
    for _ in $(seq 50); do [ -s "$work/display" ] && break; sleep 0.1; done
    export DISPLAY=":$(head -n1 "$work/display")"
    # The server names its display a moment before it takes connections.
    for _ in $(seq 50); do xset q >/dev/null 2>&1 && break; sleep 0.1; done
    xset r on
    xset r rate 250 30
}

# Waits for the game's window and gives it the keyboard.
focus_game() {
    local window
    window=$(timeout 60 xdotool search --sync --onlyvisible --name '^Apsis$' | head -n1)
    xdotool windowfocus --sync "$window" 2>/dev/null || true
}
