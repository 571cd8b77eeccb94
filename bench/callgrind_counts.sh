#!/bin/sh
# Instructions per call of one routine inside one benchmark, counted by
# callgrind: a figure that does not depend on the machine's load.
#   bench/callgrind_counts.sh <benchmark filter> <routine, as callgrind names it>
# e.g. bench/callgrind_counts.sh 'BM_Compile/1000$' 'tarvo::CompileProject'
set -eu
filter=$1
routine=$2
bench=${TARVO_BENCH:-build/bench/bin/tarvo-bench}
out=$(mktemp)
trap 'rm -f "$out"' EXIT
valgrind --tool=callgrind --callgrind-out-file="$out" --toggle-collect="$routine*" \
    "$bench" --benchmark_filter="$filter" --benchmark_min_time=0.000001 >/dev/null 2>&1
callgrind_annotate --tree=caller --inclusive=yes "$out" 2>/dev/null | awk -v r="$routine" '
    !done && /^ *[0-9,]+ .*< / { n = $0; sub(/.*\(/, "", n); sub(/x\).*/, "", n); calls += n; next }
    index($0, "* ") && index($0, r) && !done {
        ir = $1; gsub(",", "", ir); done = 1 }
    /^$/ { if (!done) calls = 0 }
    END { if (calls == 0) calls = 1;
          printf "%s: %.0f instructions per call (%d calls)\n", r, ir / calls, calls }'
