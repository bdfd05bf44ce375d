#!/usr/bin/env python3
"""How cost grows: growth.py BUILD PICTURE.svg. Runs the extension over 30 to 100,000 rows a file and the drawing canvas
over 10 to 1,000 strokes, prints both as tables and draws them as one picture. bench/run --growth prepares the bundles."""

import json
import math
import statistics
import subprocess
import sys
import time

ROUNDS = 5
ROWS = {30: "small", 1_000: "rows-1000", 10_000: "large", 100_000: "rows-100000"}
STROKES = (10, 100, 1_000)
FIGURES = {
    "start_ms": "start (ms)",
    "load_ms": "load pass (ms)",
    "scroll_ms_median": "scrolled frame (ms)",
    "repaint_ms": "full repaint (ms)",
    "choose_ms": "choosing a group (ms)",
    "memory_mb": "peak memory (MB)",
}
DRAWINGS = {
    "canvasFirstDraw": "all strokes for the first time (ms)",
    "canvasRedraw": "all pixels anew (ms)",
    "canvasMove": "a move of the finger (ms)",
}
COLORS = ("#2a7460", "#b4472f", "#3a62a8", "#8a6d1f", "#7a4a96", "#4a4f55")


def figures_of(build, bundle):
    program = f"{build}/bench/bench-screen"
    measured = {}
    for arguments in ([], ["--load"]):
        lines = subprocess.run(
            [program, f"{build}/{bundle}.appex", *arguments],
            env={"TD_BENCH_START": str(time.clock_gettime_ns(time.CLOCK_MONOTONIC))},
            capture_output=True, text=True, check=True,
        ).stdout.splitlines()
        measured.update(json.loads(lines[-1]))
    return measured


def measure_rows(build):
    lines = {figure: [] for figure in FIGURES}
    for bundle in ROWS.values():
        runs = [figures_of(build, bundle) for _ in range(ROUNDS)]
        for figure, values in lines.items():
            values.append(statistics.median(run[figure] for run in runs))
    return {FIGURES[figure]: values for figure, values in lines.items()}


def measure_strokes(build):
    output = subprocess.run(
        [f"{build}/bench/bench-suite", f"{build}/small.appex", f"{build}/large.appex",
         "--benchmark_filter=^canvas", "--benchmark_format=json"],
        capture_output=True, text=True, check=True,
    ).stdout
    found = {}
    for entry in json.loads(output[output.index("{"):])["benchmarks"]:
        name, strokes = entry["name"].split("/")[:2]
        found[name, int(strokes)] = entry["real_time"]
    return {title: [found[name, count] for count in STROKES] for name, title in DRAWINGS.items()}


def print_table(title, counts, lines):
    print(f"| {title} |" + "".join(f" {count:,} |" for count in counts))
    print("|---|" + "---:|" * len(counts))
    for name, values in lines.items():
        print(f"| {name} |" + "".join(f" {value:.3g} |" if value < 100 else f" {value:.0f} |" for value in values))
    print()


def chart(left, title, counts, lines):
    """One chart of 360 x 300 with both axes in powers of ten."""
    low, high = 0.1, 10_000
    first, last = math.log10(counts[0]), math.log10(counts[-1])

    def place(count, value):
        x = left + 50 + 290 * (math.log10(count) - first) / (last - first)
        y = 270 - 230 * (math.log10(max(value, low)) - math.log10(low)) / (math.log10(high) - math.log10(low))
        return x, y

    parts = [f'<text x="{left + 50}" y="22" font-weight="600">{title}</text>']
    for power in range(-1, 5):
        y = place(counts[0], 10**power)[1]
        parts.append(f'<path d="M{left + 50} {y:.1f}h290" stroke="#ddd"/>')
        parts.append(f'<text x="{left + 44}" y="{y + 4:.1f}" text-anchor="end">{10**power:,g}</text>')
    for count in counts:
        parts.append(f'<text x="{place(count, low)[0]:.1f}" y="290" text-anchor="middle">{count:,}</text>')
    for index, ((name, values), color) in enumerate(zip(lines.items(), COLORS)):
        points = " ".join("{:.1f},{:.1f}".format(*place(*pair)) for pair in zip(counts, values))
        parts.append(f'<polyline points="{points}" fill="none" stroke="{color}" stroke-width="2"/>')
        parts.append(f'<text x="{left + 50}" y="{316 + 16 * index}" fill="{color}">{name}</text>')
    return parts


def main():
    build, picture = sys.argv[1:3]
    rows = measure_rows(build)
    strokes = measure_strokes(build)
    print_table("rows a file", ROWS, rows)
    print_table("strokes of 100 points", STROKES, strokes)
    parts = chart(0, "rows a file", list(ROWS), rows) + chart(370, "strokes of 100 points", STROKES, strokes)
    with open(picture, "w", encoding="utf-8") as file:
        file.write('<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 740 410" font-family="sans-serif" '
                   'font-size="12">\n<rect width="740" height="410" fill="#fff"/>\n' + "\n".join(parts) + "\n</svg>\n")


if __name__ == "__main__":
    main()
