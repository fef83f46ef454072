#!/usr/bin/env bash
# Generates characters with both players, both methods and each option, journals them, replays every journal with the command and
# compares the documents. The argument is the number of seeds for each combination (default 100).
set -euo pipefail
cd "$(dirname "$0")/.."

seeds=${1:-100}
cli=$PWD/build/release/src/korvane-cli
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

options=("" "Force no Ejection on Mishap" "Select Skill Package" "Add 2 skills for Connections" "Random Skills" "Force Promote"
    "Cap Skills at 4" "Sort Skills by Value" "Force Academic Success" all)

check() {  # player, method, option
    local arguments=(--data rules --seed 7 --count "$seeds" --player "$1" --method "$2" --format json)
    if [ "$3" = all ]; then
        for option in "${options[@]:1:8}"; do arguments+=(--option "$option"); done
    elif [ -n "$3" ]; then
        arguments+=(--option "$3")
    fi
    rm -rf "${work:?}/"*
    "$cli" generate "${arguments[@]}" --journal "$work/journals" >"$work/generated" 2>"$work/errors" || true
    find "$work/journals" -name '*.jsonl' | sort | xargs -n 1 "$cli" replay --data rules --format json \
        >"$work/replayed" 2>"$work/replay-errors" || true
    cmp "$work/generated" "$work/replayed"
    if [ "$(wc -l <"$work/errors")" -ne "$(wc -l <"$work/replay-errors")" ]; then
        echo "lives that ended in an error differ"
        exit 1
    fi
    total=$((total + $(wc -l <"$work/generated")))
}

total=0
for player in automatic random; do
    for method in "Roll 3 drop 1" "True 2D"; do
        for option in "${options[@]}"; do
            check "$player" "$method" "$option"
        done
    done
done
echo "$total documents equal ($seeds seeds for each of 40 combinations)"
