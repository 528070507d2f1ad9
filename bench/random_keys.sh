# Sourced by the soak and leak scripts: plays the game with random keys through xdotool, on the
# virtual X server that scripts/lib/xvfb.sh starts.

# Every screen once, from the menu as the game opens on it: the about and instruction pages,
# practice flown fast, zoomed in and out, and each level of the set-up screen in flight with the
# world running. What the game keeps for later frames (decoded pictures, scaled copies, faces) is
# then in memory before any measurement starts. About half a minute.
tour_every_screen() {
    local level
    tap() { xdotool key "$1"; sleep 0.4; }
    hold() { xdotool keydown "$1"; sleep "$2"; xdotool keyup "$1"; sleep 0.2; }
    sleep 1                             # the intro
    tap space; tap space                # about, and back
    tap Down; tap space; tap space      # instructions, and back
    tap Down; tap space; tap space; tap space # practice, running
    hold s 2; hold w 2; hold q 3; hold a 1
    tap Tab; sleep 0.5                  # the fade, and the briefing again
    tap Escape; tap Down; tap space     # the set-up screen, on level 1
    for level in 1 2 3 4 5 6 7 8; do
        tap space; tap space; tap space # briefing, flight, running
        hold s 1
        tap Escape; tap space; tap Down # the set-up screen, on the next level
    done
}

# Random keys for $1 seconds from seed $2: taps of every key the game reads and a few it does not,
# keys held down and let go at random, and long holds of s, so that much of the flight runs at the
# highest time factors.
play_random_keys() {
    local until=$((SECONDS + $1))
    RANDOM=$2
    local taps=(Up Down Left Right Up Down space space space Tab Escape w q s a x z W S Return b 0)
    local holds=(Up Left Right w q a x z)
    local held=()
    while [ "$SECONDS" -lt "$until" ]; do
        local roll=$((RANDOM % 100))
        if [ "$roll" -lt 35 ]; then
            xdotool key "${taps[RANDOM % ${#taps[@]}]}"
        elif [ "$roll" -lt 55 ]; then
            local key=${holds[RANDOM % ${#holds[@]}]}
            xdotool keydown "$key"
            held+=("$key")
        elif [ "$roll" -lt 75 ] && [ ${#held[@]} -gt 0 ]; then
            xdotool keyup "${held[@]}"
            held=()
        elif [ "$roll" -lt 90 ]; then
            xdotool keydown s
            sleep "$((2 + RANDOM % 8))"
            xdotool keyup s
        else
            sleep "0.$((RANDOM % 10))"
        fi
        sleep 0.05
    done
    [ ${#held[@]} -eq 0 ] || xdotool keyup "${held[@]}"
}
