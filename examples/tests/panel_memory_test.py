#!/usr/bin/env python3
"""The panel's memory while it is used: rounds of address searches (with key presses and state
polls between them) through the panel's interface, the resident size of the demo's JVM after each.
The heap is fixed and touched at start and only the first JIT tier compiles, so the resident size
moves with native memory only (the simulated device's call record among it). The test asserts on sizes, never on times: after the
warm-up rounds the resident size stays within --limit-mb. Longer runs: --rounds 200 --no-limit
prints the table only."""
import os, shutil, sys, time

sys.dont_write_bytecode = True  # nothing written into the source tree
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from demo_support import Checks, Demo, demo_arguments, run  # noqa: E402

PREFIXES = ["Dana", "Person 001", "Person 0", "A", "Bob", "Person 00042", "E", "Carol", "Nobody", ""]


def main():
    a = demo_arguments(
        ("--warmup", dict(type=int, default=4, help="rounds before the measured ones (the JIT settles)")),
        ("--rounds", dict(type=int, default=4, help="measured rounds after the warm-up")),
        ("--searches", dict(type=int, default=600, help="address searches a round")),
        ("--limit-mb", dict(type=float, default=8.0, help="growth allowed after the warm-up")),
        ("--no-limit", dict(action="store_true", help="print the table only")))
    shutil.rmtree(a.out, ignore_errors=True)
    os.makedirs(a.out)
    check = Checks()
    d = Demo(a.java, a.classpath, a.libs, a.out, "memory", args=["--pace", "0"],
             jvm=["-Xms96m", "-Xmx96m", "-XX:+AlwaysPreTouch", "-XX:TieredStopAtLevel=1"])
    try:
        sizes = []
        t0 = time.time()
        print(f"{'round':>5} {'searches':>9} {'events':>7} {'RSS MiB':>8} {'since warm-up':>14} {'s':>6}")
        for r in range(a.warmup + a.rounds):
            for i in range(a.searches):
                status, answer = d.act(action="search", prefix=PREFIXES[i % len(PREFIXES)])
                if status != 200:
                    raise AssertionError(f"search answered {status}: {answer}")
                if i % 50 == 0:
                    d.act(action="key", key="home")
                    d.state()
            rss = d.rss_kib() / 1024.0
            sizes.append(rss)
            base = sizes[min(len(sizes), a.warmup) - 1]
            print(f"{r:>5} {(r + 1) * a.searches:>9} {d.state().get('lastSeq', '-'):>7} {rss:>8.1f} {rss - base:>+14.1f} "
                  f"{time.time() - t0:>6.1f}")
        growth = max(sizes[a.warmup:]) - sizes[a.warmup - 1]
        if not a.no_limit:
            check(growth < a.limit_mb, f"after the warm-up the resident size grew {growth:.1f} MiB over "
                  f"{a.rounds * a.searches} searches (limit {a.limit_mb} MiB)")
    finally:
        d.stop()
    return check.result("the panel's memory")


if __name__ == "__main__":
    run(main)
