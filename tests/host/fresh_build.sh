#!/usr/bin/env bash
# What scripts/play does on a fresh clone: configure a new build folder as the release preset does
# and build the target apsis alone. Every picture and text the game reads must then be in the
# build's resource folder, and the game must start and find them.
# Usage: fresh_build.sh SOURCE_DIR
set -euo pipefail
source_dir=$1
build=$(mktemp -d)
trap 'rm -rf "$build"' EXIT

cmake -S "$source_dir" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release >"$build/configure.log" ||
    { cat "$build/configure.log"; exit 1; }
cmake --build "$build" --target apsis >"$build/build.log" || { tail -n 30 "$build/build.log"; exit 1; }

missing=0
for file in levels.txt level{0,1,2,3,4,5,6,7,8}.txt \
    {sun,venus,earth,moon,mars,jupiter,asteroid}.jpg {satellite,station,ship}.gif \
    {splash,menu,menuAbout,menuInstructions,menuPractice,menuNew,about,instructions}.jpg; do
    if [ ! -s "$build/resources/$file" ]; then
        echo "fresh_build: building apsis alone left resources/$file out"
        missing=1
    fi
done
[ "$missing" = 0 ] || exit 1

QT_QPA_PLATFORM=offscreen timeout 2 "$build/apsis" >"$build/run.log" 2>&1 && status=0 || status=$?
if [ "$status" != 124 ] || grep -q "no resource folder" "$build/run.log"; then
    echo "fresh_build: the freshly built game did not run with its resources (status $status):"
    cat "$build/run.log"
    exit 1
fi
echo "fresh_build: building apsis alone gave the game all its pictures and texts"
