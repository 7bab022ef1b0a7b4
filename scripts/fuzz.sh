#!/usr/bin/env bash
# Builds the libFuzzer targets of fuzz/ with clang into build-fuzz and runs each for the
# given number of seconds (default 60) on its corpus, the seed files and the dictionary.
# Exits non-zero when any target finds an input that breaks a check, crashes, hangs or runs
# out of memory; such inputs are kept in build-fuzz/fuzz-run/<target>/.
#   bash scripts/fuzz.sh [seconds]
#   WAYFERN_FUZZ_MERGE=1 bash scripts/fuzz.sh [seconds]
#       afterwards rebuilds fuzz/corpus/<target>/ as the smallest set of the old corpus,
#       the seeds and the new inputs that covers all that they cover together
# fuzz/regressions/<target>/ holds inputs that once found something or that stand for an
# edge case by name; the fuzzer starts from them too, and no merge removes them.
#   WAYFERN_FUZZ_TARGETS="journey config" bash scripts/fuzz.sh   only these targets
set -euo pipefail
top="$(cd "$(dirname "$0")/.." && pwd)"
seconds="${1:-60}"
targets=(${WAYFERN_FUZZ_TARGETS:-journey config laststate recordtools})
build="${WAYFERN_FUZZ_BUILD_DIR:-$top/build-fuzz}"

bash "$top/scripts/setup.sh" fuzz

# A build directory of its own: clang, sanitizers and coverage everywhere, the core alone.
args=(-DWAYFERN_FUZZ=ON -DWAYFERN_BUILD_UI=OFF -DWAYFERN_BUILD_TESTS=OFF
      -DWAYFERN_BUILD_BENCH=OFF -DCMAKE_BUILD_TYPE=RelWithDebInfo)
if [ ! -f "$build/CMakeCache.txt" ]; then
  args+=(-DCMAKE_CXX_COMPILER=clang++)
  if command -v ccache >/dev/null; then args+=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi
fi
cmake -S "$top" -B "$build" "${args[@]}"
cmake --build "$build" --parallel "$(nproc)" --target "${targets[@]/#/fuzz_}"

# Seeds are the files that the program ships and that the tests read; they are linked, not
# copied, so that a new fixture seeds the fuzzer at once.
seeds_of() {
  case "$1" in
    journey) ls "$top"/tests/data/*.wfn "$top"/tests/data/shell/*.wfn "$top"/share/*.wfn ;;
    config) ls "$top"/share/wayfern.cfg ;;
    laststate) ;;
    recordtools) ls "$top"/share/wayfern.cfg "$top"/tests/data/northern.wfn ;;
  esac
}

# The files that the checks write go to memory where there is some.
if [ -d /dev/shm ] && [ -w /dev/shm ]; then export TMPDIR=/dev/shm; fi
# Two frames of each allocation's stack, not thirty: taking the stacks costs a quarter of the
# journey target's time. A finding is run again with whole stacks (replay.log beside it).
export ASAN_OPTIONS="${ASAN_OPTIONS:-detect_leaks=1:malloc_context_size=2}"
export UBSAN_OPTIONS="${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}"

failed=()
for target in "${targets[@]}"; do
  run="$build/fuzz-run/$target"
  rm -rf "$run"
  mkdir -p "$run/new" "$run/seeds" "$top/fuzz/corpus/$target"
  n=0
  for f in $(seeds_of "$target"); do ln -s "$f" "$run/seeds/$((n++))-$(basename "$f")"; done
  # A few inputs (travellers that share their account sections) take a thousand times as
  # long as the rest: the fuzzer gives inputs less of its time the longer they run.
  options=(-max_len=65536 -timeout=25 -rss_limit_mb=2048 -dict="$top/fuzz/wayfern.dict"
           -artifact_prefix="$run/" -print_final_stats=1 -entropic_scale_per_exec_time=1)
  echo "== fuzz_$target: $seconds s"
  start=$(date +%s%N)
  if ! "$build/fuzz/fuzz_$target" "${options[@]}" -max_total_time="$seconds" \
      "$run/new" "$top/fuzz/corpus/$target" "$top/fuzz/regressions/$target" "$run/seeds" \
      2>"$run/log"; then
    failed+=("$target")
    for found in "$run"/crash-* "$run"/leak-* "$run"/oom-* "$run"/timeout-*; do
      [ -f "$found" ] || continue
      ASAN_OPTIONS=detect_leaks=1 "$build/fuzz/fuzz_$target" -timeout=25 -rss_limit_mb=2048 \
        "$found" >>"$run/replay.log" 2>&1 || true
    done
  fi
  end=$(date +%s%N)
  grep -E '^(#[0-9]+[[:space:]]+DONE|stat::|==[0-9]+==ERROR|SUMMARY)|broken promise' "$run/log" \
    | tail -n 20 || true
  # Executions per second over the whole run, the first pass over the corpus included.
  units=$(sed -n 's/^stat::number_of_executed_units: *//p' "$run/log" | tail -n 1)
  awk -v t="$target" -v n="${units:-0}" -v ns="$((end - start))" 'BEGIN {
    s = ns / 1e9; r = s > 0 ? n / s : 0
    printf "   fuzz_%s: %d executions in %.1f s: %.0f per second\n", t, n, s, r }'
  if [ "${WAYFERN_FUZZ_MERGE:-0}" = 1 ]; then
    mkdir -p "$run/merged"
    "$build/fuzz/fuzz_$target" -merge=1 "${options[@]}" "$run/merged" \
      "$top/fuzz/corpus/$target" "$run/seeds" "$run/new" 2>"$run/merge.log"
    rm -f "$top/fuzz/corpus/$target"/*
    cp "$run/merged"/* "$top/fuzz/corpus/$target/" 2>/dev/null || true
    echo "   corpus: $(ls "$top/fuzz/corpus/$target" | wc -l) files"
  fi
done

if [ "${#failed[@]}" -gt 0 ]; then
  echo "fuzz.sh: findings in: ${failed[*]} (see $build/fuzz-run/<target>/log)" >&2
  exit 1
fi
echo "fuzz.sh: no findings"
