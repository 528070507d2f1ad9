#!/usr/bin/env bash
# Every screen of the game drawn as on a high-density display, two pixels per point, beside the
# same screens at one: each doubled screen has twice the pixels each way, and halved again it is
# the plain one, give or take the finer edges of text, lines and pictures. A screen drawn in the
# wrong place or at the wrong size at that density, even by one point, is caught here.
# The PNGs stay in OUT_DIR (1x/ and 2x/) for looking at.
# Usage: hidpi_snapshot.sh PATH_TO_APSIS_SNAPSHOT OUT_DIR
set -euo pipefail
snapshot=$1
out=$2
for tool in convert compare identify; do
    command -v "$tool" >/dev/null || { echo "hidpi_snapshot: $tool is missing (scripts/setup installs it)"; exit 1; }
done
rm -rf "$out/1x" "$out/2x"
"$snapshot" "$out/1x" 800x500 >/dev/null
"$snapshot" "$out/2x" 800x500@2 >/dev/null

failed=0
count=0
worst=0
for plain in "$out"/1x/*.png; do
    name=$(basename "$plain")
    dense="$out/2x/$name"
    count=$((count + 1))
    if [ "$(identify -format '%wx%h' "$dense" 2>/dev/null)" != 1600x1000 ]; then
        echo "hidpi_snapshot: $name at 2x is $(identify -format '%wx%h' "$dense" 2>/dev/null || echo missing), not 1600x1000"
        failed=1
        continue
    fi
    # The root of the mean squared difference, 0 to 1. The finer drawing at 2x differs by up to
    # 0.03; the plain screen moved by one point differs from itself by 0.05 and more.
    # compare's status says whether the pictures differ at all, which they do.
    difference=$(convert "$dense" -scale 50% png:- | { compare -metric RMSE "$plain" - null: 2>&1 || true; } |
        sed -n 's/.*(\(.*\)).*/\1/p')
    if ! awk -v d="$difference" 'BEGIN { exit !(d != "" && d < 0.04) }'; then
        echo "hidpi_snapshot: $name at 2x, halved, differs from the plain one by ${difference:-?} (at most 0.04)"
        failed=1
    fi
    worst=$(awk -v d="${difference:-0}" -v w="$worst" 'BEGIN { print (d > w ? d : w) }')
done
[ "$count" -ge 40 ] || { echo "hidpi_snapshot: only $count screens rendered"; failed=1; }
[ "$failed" = 0 ] && echo "hidpi_snapshot: $count screens at 2 pixels per point match the plain ones (worst difference $worst); PNGs in $out"
exit "$failed"
