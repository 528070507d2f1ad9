#!/usr/bin/env bash
# Installs the build into a fresh prefix and checks that everything a player needs is there, and
# that the installed game starts and finds its resources.
# Usage: install_test.sh BUILD_DIR
set -euo pipefail
build=$1
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT

cmake --install "$build" --prefix "$prefix" >/dev/null
missing=0
id=io.github.apsis.Apsis
icons=()
for size in 16 22 24 32 48 64 128 256 512; do
    icons+=("share/icons/hicolor/${size}x$size/apps/$id.png")
done
for file in bin/apsis share/applications/$id.desktop share/metainfo/$id.metainfo.xml "${icons[@]}" \
    share/man/man6/apsis.6.gz share/doc/apsis/{copyright,changelog.gz} \
    share/apsis/levels.txt share/apsis/level{0,1,2,3,4,5,6,7,8}.txt \
    share/apsis/{sun,venus,earth,moon,mars,jupiter,asteroid}.jpg \
    share/apsis/{satellite,station,ship}.gif \
    share/apsis/{splash,menu,menuAbout,menuInstructions,menuPractice,menuNew,about,instructions}.jpg; do
    if [ ! -s "$prefix/$file" ]; then
        echo "install_test: $file is missing"
        missing=1
    fi
done
stray=$(find "$prefix/share/apsis" -type f ! -name '*.txt' ! -name '*.jpg' ! -name '*.gif')
if [ -n "$stray" ]; then
    echo "install_test: files that are not the game's in share/apsis: $stray"
    missing=1
fi
[ "$missing" = 0 ] || exit 1

# The installed game, headless for two seconds: it must find its resources and keep running.
log="$prefix/run.log"
QT_QPA_PLATFORM=offscreen timeout 2 "$prefix/bin/apsis" >"$log" 2>&1 && status=0 || status=$?
if [ "$status" != 124 ]; then
    echo "install_test: the installed game ended by itself (status $status):"
    cat "$log"
    exit 1
fi
if grep -q "no resource folder" "$log"; then
    echo "install_test: the installed game did not find its resources"
    exit 1
fi
echo "install_test: installed and started from $prefix"
