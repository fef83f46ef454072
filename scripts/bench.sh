#!/usr/bin/env bash
# Builds a release and runs the benchmarks; prints the ratios that docs/performance.md keeps.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/install-dependencies.sh check

cmake --preset release >/dev/null
cmake --build --preset release --target korvane_bench korvane-cli >/dev/null

out=$(mktemp)
trap 'rm -f "$out"' EXIT
build/release/bench/korvane_bench --benchmark_repetitions=5 --benchmark_report_aggregates_only=true \
    --benchmark_out="$out" --benchmark_out_format=json
python3 - "$out" <<'PYTHON'
import json, sys
rows = {r["run_name"].split("/")[0]: r for r in json.load(open(sys.argv[1]))["benchmarks"] if r["aggregate_name"] == "median"}
life, whole, dice = rows["AutomaticLife"]["real_time"], rows["SelectionAndLife"]["cpu_time"], rows["DiceOfALife"]["per_life"] * 1e9
print(f"\nautomatic life {life:.0f} ns, its dice {dice:.0f} ns: {life / dice:.2f} times its dice")
print(f"with its selection {whole:.0f} ns: {whole / dice:.2f} times its dice")
print(f"allocations a life: {rows['AutomaticLife']['allocations']:.4f}")
print(f"loading all rule files: {rows['LoadAllRuleFiles']['cpu_time'] / rows['ReadAllRuleFiles']['cpu_time']:.2f} times reading their bytes")
print(f"replaying a journal: {rows['ReplayJournal']['cpu_time'] / rows['ReplayJournal']['lines']:.0f} ns a line")
PYTHON
echo
time build/release/src/korvane-cli generate --data rules --count 100000 --format none --seed 1
