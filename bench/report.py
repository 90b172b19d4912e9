#!/usr/bin/env python3
"""report.py [--quick] [--plot FILE] [--into FILE] FOLDER: prints the goals of the client's speed and
size with what the benchmarks measured (their JSON results are in FOLDER), and draws the message
view's growth. Fails if a goal lacks its figure; a missed goal is reported, but is not a failure."""

import argparse
import json
import math
import pathlib
import platform
import re
import sys
from typing import Callable, NamedTuple, Optional


class Figure(NamedTuple):
    """Where a figure is: a benchmark, without what the library appends to its name, and a field or
    counter of it; `scale` takes it to the unit shown."""

    benchmark: str
    field: str
    scale: float
    unit: str


class Goal(NamedTuple):
    what: str  # "{measured}" in it is the number of things measured one by one
    goal: str  # empty where there is none; then `met` does not count
    measured: Figure
    yardstick: Optional[Figure]
    yardstick_name: str
    met: Callable[[float, float], bool]  # of the measured figure and its ratio to the yardstick


def key_to_line(lines, field):
    return Figure(f"KeyToLine/lines_a_second:{lines}", field, 1, "ms")


def held(lines, field):
    return Figure(f"EventLoopHeld/lines_a_second:{lines}", field, 1, "ms")


def microseconds_a_line(benchmark):
    return Figure(benchmark, "per_line", 1e6, "µs")


def milliseconds(benchmark, unit_in_ms=1):
    return Figure(benchmark, "cpu_time", unit_in_ms, "ms")


def megabytes_a_second(benchmark):
    return Figure(benchmark, "bytes_per_second", 1e-6, "MB/s")


ROAD = "Road/clean/1048576"
AS_MANY_LINES = 131072  # that the toolkit's widget takes in a reasonable time

GOALS = [
    Goal("chat line of 75 characters: received bytes → message view's text, filter on",
         "≤ 0.5 µs",
         microseconds_a_line(ROAD), microseconds_a_line("CopyBytes"), "memcpy",
         lambda value, ratio: value <= 0.5),
    Goal(f"the same, {AS_MANY_LINES:,} lines", "", microseconds_a_line(f"Road/clean/{AS_MANY_LINES}"),
         microseconds_a_line(f"TextEdit/{AS_MANY_LINES}"), "QTextEdit", lambda value, ratio: True),
    Goal("adding a line to 10,000,000 costs what it costs at 1,000", "≤ 1.25 × yardstick",
         microseconds_a_line("AppendLine/10000000"), microseconds_a_line("AppendLine/1000"),
         "at 1,000 lines", lambda value, ratio: ratio <= 1.25),
    Goal("memory per line beyond its text, at 1,000,000 lines in the message view", "≤ 24 bytes",
         Figure("Memory/1000000", "bytes_a_line_over_text", 1, "bytes"), None, "",
         lambda value, ratio: value <= 24),
    Goal("a frame of the message view at 1,000,000 lines, at the end", "≤ 4 ms and ≤ 1.25 × yardstick",
         milliseconds("Frame/end/1000000", 1e-3), milliseconds("Frame/end/1000", 1e-3),
         "at 1,000 lines", lambda value, ratio: value <= 4 and ratio <= 1.25),
    Goal("the same in the middle", "≤ 4 ms and ≤ 1.25 × yardstick",
         milliseconds("Frame/middle/1000000", 1e-3), milliseconds("Frame/middle/1000", 1e-3),
         "at 1,000 lines", lambda value, ratio: value <= 4 and ratio <= 1.25),
    Goal("inserting a line at a caret in the middle of 1,000,000", "≤ 2 × yardstick",
         microseconds_a_line("InsertInto/caret"), microseconds_a_line("InsertInto/end"),
         "at the end", lambda value, ratio: ratio <= 2),
    Goal("language filter, clean lines", "≥ 300 MB/s",
         megabytes_a_second("Run/clean"), megabytes_a_second("Run/clean_in_sixteen_passes"),
         "16 searches", lambda value, ratio: value >= 300),
    Goal("language filter, lines full of hits", "≥ 1 × yardstick",
         megabytes_a_second("Run/hits"), megabytes_a_second("Run/hits_in_sixteen_passes"),
         "16 searches", lambda value, ratio: ratio >= 1),
    Goal("online list of 50,000 players: message → rebuilt", "≤ 15 ms",
         milliseconds("Refill/rebuilt"), milliseconds("Split"), "splitting alone",
         lambda value, ratio: value <= 15),
    Goal("the same → painted", "≤ 25 ms",
         milliseconds("Refill/painted"), milliseconds("RefillListWidget/painted"), "QListWidget",
         lambda value, ratio: value <= 25),
    Goal("flood of 1,000,000 chat lines over loopback, until the message after them is answered",
         "≥ 1,000,000 lines/s",
         Figure("Flood/1000000", "lines_a_second", 1, "lines/s"),
         Figure("FloodDiscarded/1000000", "lines_a_second", 1, "lines/s"), "read and discarded",
         lambda value, ratio: value >= 1e6),
    Goal("the same, per second of the client's processor time", "≥ 1,000,000 lines/s",
         Figure("Flood/1000000", "lines_a_cpu_second", 1, "lines/s"), None, "",
         lambda value, ratio: value >= 1e6),
    Goal("key pressed → line sent, with 2,000 lines/s arriving, median of {measured}",
         "≤ 5 ms",
         key_to_line(2000, "median_ms"), key_to_line(0, "median_ms"), "no lines arriving",
         lambda value, ratio: value <= 5),
    Goal("the same, worst of {measured}", "≤ 20 ms",
         key_to_line(2000, "worst_ms"), key_to_line(0, "worst_ms"), "no lines arriving",
         lambda value, ratio: value <= 20),
    Goal("longest turn of the event loop, lines as fast as the socket accepts them, by the clock",
         "≤ 8 ms", held(0, "lasted_ms"), None, "", lambda value, ratio: value <= 8),
    Goal("the same, by processor time", "≤ 8 ms",
         held(0, "worked_ms"), None, "", lambda value, ratio: value <= 8),
    Goal("the same at 10,000 lines/s", "≤ 8 ms",
         held(10000, "worked_ms"), None, "", lambda value, ratio: value <= 8),
    Goal("process start → splash painted, median of {measured}", "≤ 120 ms",
         Figure("StartToSplash", "median_ms", 1, "ms"),
         Figure("StartToEmptyWindow", "median_ms", 1, "ms"), "empty Qt window",
         lambda value, ratio: value <= 120),
    Goal("the same, by the process's processor time", "≤ 120 ms",
         Figure("StartToSplash", "worked_ms", 1, "ms"),
         Figure("StartToEmptyWindow", "worked_ms", 1, "ms"), "empty Qt window",
         lambda value, ratio: value <= 120),
    Goal("idle for a minute, logged in, no clock running", "no wake-up",
         Figure("Idle/seconds:60", "wakeups", 1, "wake-ups"), None, "",
         lambda value, ratio: value == 0),
    Goal("processor time meanwhile", "0.0 %",
         Figure("Idle/seconds:60", "cpu_percent", 1, "%"), None, "",
         lambda value, ratio: value < 0.05),
    Goal("memory at rest, logged in (proportional share)", "≤ 1.25 × yardstick",
         Figure("MemoryAtRest", "pss_megabytes", 1, "MB"),
         Figure("MemoryOfWindow/empty", "pss_megabytes", 1, "MB"), "empty Qt window of its size",
         lambda value, ratio: ratio <= 1.25),
    Goal("the same", "",
         Figure("MemoryAtRest", "pss_megabytes", 1, "MB"),
         Figure("MemoryOfWindow/plain", "pss_megabytes", 1, "MB"),
         "window of plain Qt controls and a socket", None),
]

SIZES = [10**power for power in range(3, 8)]


def plain_name(name):
    return re.sub(r"/(iterations:\d+|repeats:\d+|real_time|manual_time|process_time)", "", name)


def read_results(folder):
    results, context = {}, {}
    for file in sorted(folder.glob("*.json")):
        document = json.loads(file.read_text())
        context = document["context"]
        for run in document["benchmarks"]:
            if run.get("error_occurred"):
                sys.exit(f"{run['name']}: {run['error_message']}")
            if run["run_type"] != "iteration":
                continue
            # What else the machine did can only have added to the time.
            name = plain_name(run["name"])
            if name not in results or run["cpu_time"] < results[name]["cpu_time"]:
                results[name] = run
    return results, context


def value_of(results, figure):
    run = results.get(figure.benchmark) if figure else None
    return run[figure.field] * figure.scale if run and figure.field in run else None


def number(value):
    """Three significant digits, or all of those before the point."""
    digits = max(0, 2 - math.floor(math.log10(abs(value)))) if value else 0
    return f"{value:,.{digits}f}"


def shown(value, unit):
    return f"{number(value)} {unit}"


def name_of(goal, results):
    run = results.get(goal.measured.benchmark, {})
    return goal.what.replace("{measured}", f"{run.get('measured', 0):.0f}")


def processor():
    for line in pathlib.Path("/proc/cpuinfo").read_text().splitlines():
        if line.startswith("model name"):
            return line.split(":", 1)[1].strip()
    return "unknown processor"


def memory_gigabytes():
    total = pathlib.Path("/proc/meminfo").read_text().split(None, 2)[1]
    return round(int(total) / 1024**2)


def table(results, context):
    """The table as Markdown, and the number of goals without a figure."""
    lines = [
        f"Measured {context['date'][:10]} on {context['num_cpus']} × {processor()}, "
        f"{memory_gigabytes()} GB, Linux {'.'.join(platform.release().split('.')[:2])}; load "
        f"{context['load_avg'][0]:.1f} before the last of the benchmarks.", "",
        "| what | goal | measured | yardstick | ratio | met |", "|---|---|---|---|---|---|"]
    missing = 0
    for goal in GOALS:
        what = name_of(goal, results)
        value = value_of(results, goal.measured)
        yardstick = value_of(results, goal.yardstick)
        if value is None or (goal.yardstick and yardstick is None):
            missing += 1
            lines.append(f"| {what} | {goal.goal} | not measured | | | |")
            continue
        ratio = value / yardstick if yardstick else float("nan")
        beside = f"{goal.yardstick_name}: {shown(yardstick, goal.yardstick.unit)}" if yardstick else ""
        verdict = "" if not goal.goal else "yes" if goal.met(value, ratio) else "**no**"
        lines.append(f"| {what} | {goal.goal} | {shown(value, goal.measured.unit)} | {beside} | "
                     f"{number(ratio) if yardstick else ''} | {verdict} |")
    return "\n".join(lines) + "\n", missing


def replace_figures(file, text):
    """Puts the text between the two marks in a document."""
    head, mark, rest = file.read_text().partition("<!-- figures -->\n")
    _, end, tail = rest.partition("<!-- end of figures -->\n")
    if not (mark and end):
        sys.exit(f"{file} lacks the marks that figures go between")
    file.write_text(head + mark + text + end + tail)


class Curve(NamedTuple):
    name: str
    colour: str
    values: list  # one for each of SIZES


def round_step(most):
    """The least 1, 2 or 5 times a power of ten that needs at most five steps."""
    power = 10 ** math.floor(math.log10(most / 5))
    return next(power * factor for factor in (1, 2, 5, 10) if power * factor * 5 >= most)


def draw_panel(left, title, curves):
    """One set of axes, 400 × 260, as the text of SVG elements."""
    top, width, height = 60, 400, 260
    highest = max(max(curve.values) for curve in curves)
    step = round_step(highest)
    steps = math.ceil(highest / step)
    most = step * steps
    def x(i): return left + width * i / (len(SIZES) - 1)
    def y(value): return top + height * (1 - value / most)
    parts = [f'<text x="{left}" y="{top - 24}" class="title">{title}</text>']
    for value in (step * i for i in range(steps + 1)):
        parts.append(f'<path d="M{left} {y(value):.1f}h{width}" class="grid"/>'
                     f'<text x="{left - 8}" y="{y(value) + 4:.1f}" text-anchor="end">{value:g}</text>')
    for i, size in enumerate(SIZES):
        parts.append(f'<text x="{x(i):.1f}" y="{top + height + 20}" text-anchor="middle">{size:,}</text>')
    for curve in curves:
        points = " ".join(f"{x(i):.1f},{y(value):.1f}" for i, value in enumerate(curve.values))
        parts.append(f'<polyline points="{points}" stroke="{curve.colour}" class="curve"/>')
        parts += [f'<circle cx="{x(i):.1f}" cy="{y(value):.1f}" r="3.5" fill="{curve.colour}"/>'
                  for i, value in enumerate(curve.values)]
        parts.append(f'<text x="{left + 12}" y="{y(curve.values[0]) - 12:.1f}" '
                     f'fill="{curve.colour}" class="name">{curve.name}</text>')
    parts.append(f'<text x="{left + width / 2}" y="{top + height + 42}" '
                 'text-anchor="middle">lines in the view</text>')
    return "\n".join(parts)


def draw(results, file):
    def curve(name, colour, benchmark, field, scale):
        values = [value_of(results, Figure(f"{benchmark}/{size}", field, scale, "")) for size in SIZES]
        if None in values:
            sys.exit(f"{benchmark} was not measured at every size; no plot")
        return Curve(name, colour, values)

    panels = [
        draw_panel(70, "Time to add a line, nanoseconds", [
            curve("message view", "#8a6500", "AppendLine", "per_line", 1e9),
            curve("the same bytes copied", "#5c606b", "CopyLine", "per_line", 1e9)]),
        draw_panel(560, "Memory of a line beyond its text, bytes", [
            curve("message view", "#8a6500", "Memory", "bytes_a_line_over_text", 1)]),
    ]
    file.write_text(
        '<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 1000 380" font-family="sans-serif" '
        'font-size="12" fill="#141518">\n<style>.title{font-size:15px;font-weight:bold}'
        '.grid{stroke:#d5d7dd;fill:none}.curve{fill:none;stroke-width:2}'
        '.name{font-weight:bold}</style>\n<path d="M0 0h1000v380h-1000z" fill="#fff"/>\n'
        + "\n".join(panels) + "\n</svg>\n")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--quick", action="store_true")
    parser.add_argument("--plot", type=pathlib.Path)
    parser.add_argument("--into", type=pathlib.Path)
    parser.add_argument("folder", type=pathlib.Path)
    arguments = parser.parse_args()
    results, context = read_results(arguments.folder)
    if not results:
        sys.exit("no benchmark gave a result")
    if arguments.quick:
        print(f"{len(results)} benchmarks ran")
        return
    text, missing = table(results, context)
    print(text)
    if missing:
        sys.exit(f"{missing} goals lack their figures")
    if arguments.plot:
        draw(results, arguments.plot)
    if arguments.into:
        replace_figures(arguments.into, text)


if __name__ == "__main__":
    main()
