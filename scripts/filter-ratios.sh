#!/bin/sh
# Runs the filter benchmarks once and prints their table for docs/performance.md.
#
# Usage: scripts/filter-ratios.sh [OPTION OF THE BENCHMARK]...     needs the release build
set -eu
cd "$(dirname "$0")/.."

QT_QPA_PLATFORM=offscreen build/release/bench/vellora_bench --benchmark_filter='^(Filter|Limit)/' \
    --benchmark_min_time=0.2 --benchmark_format=csv "$@" 2>/dev/null |
awk -F, '
function against(filter, limit, goal) {
    order[++filters] = filter
    yardstick[filter] = limit
    goals[filter] = goal
}
function number(value) {
    return value == "" ? "-" : sprintf("%.2f", value)
}
function ratio(above, below) {
    return above == "" || below == "" ? "-" : number(above / below)
}
BEGIN {
    against("Color Matrix", "copy", "2.5")
    against("Black&White", "copy", "2.5")
    against("Inverse", "copy and bitwise_not", "1.2")
    against("Grey", "grey and merge", "1.2")
    against("Brightness Contrast", "LUT", "1.2")
    against("HSL", "HLS and back; LUT", "1.2")
    against("Rotate", "warpAffine", "2")
    against("Carve", "copy", "3")
    against("Embossment", "copy", "3")
    against("Sharpen", "copy", "3")
    against("Wood", "copy", "3")
    against("Gauss Smooth", "GaussianBlur", "1.1")
    against("Canvas", "two random numbers a pixel", "")
    against("Contour", "Contour calls", "1.5")
    against("Depth Dim", "integral and copy", "3")
    against("Snow", "", "")
    against("Rain", "", "")
    against("Wax Paint", "", "")
    against("Oil Paint", "", "")
    against("Oil Paint 100", "", "")
    against("Oil Paint 1", "", "")
}
/^"(Filter|Limit)\// {
    gsub(/"/, "", $1)
    split($1, name, "/")
    time[name[1], name[2], name[3]] = $NF * 1000
}
END {
    if (!length(time)) {
        print "no benchmark was run" >"/dev/stderr"
        exit 1
    }
    print "| Filter | 2 MP | 4 MP | 12 MP | 24 MP | 24 to 4 MP | Yardstick | its time at 12 MP | Ratio at 12 MP | Goal |"
    print "|---|---|---|---|---|---|---|---|---|---|"
    for (i = 1; i <= filters; ++i) {
        f = order[i]
        y = yardstick[f]
        printf "| %s | %s | %s | %s | %s | %s | %s | %s | %s | %s |\n", f,
            number(time["Filter", f, 2]), number(time["Filter", f, 4]),
            number(time["Filter", f, 12]), number(time["Filter", f, 24]),
            ratio(time["Filter", f, 24], time["Filter", f, 4]), y == "" ? "-" : y,
            number(time["Limit", y, 12]), ratio(time["Filter", f, 12], time["Limit", y, 12]),
            goals[f] == "" ? "-" : goals[f]
    }
}'
