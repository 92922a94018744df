#!/usr/bin/env python3
"""scripts/main.sh as a new user meets it: --help lists every option without building, every bad
argument gets one line (and nothing is built), and a run says what it is doing, one line a stage,
before the program's own output. The build itself is left to a stand-in cmake (the test runs on a
tree that is built already)."""
import argparse, os, stat, subprocess, sys, tempfile

sys.dont_write_bytecode = True  # nothing written into the source tree
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from demo_support import Checks, run  # noqa: E402


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--source", required=True, help="the source tree (holds scripts/main.sh)")
    ap.add_argument("--build", required=True, help="a built tree")
    a = ap.parse_args()
    check = Checks()
    script = os.path.join(a.source, "scripts", "main.sh")
    with tempfile.TemporaryDirectory(prefix="main-script-") as tmp:
        calls = os.path.join(tmp, "cmake-calls")
        fake = os.path.join(tmp, "cmake")
        with open(fake, "w") as f:
            f.write(f"#!/bin/sh\necho \"$*\" >> {calls}\necho 'a line of the build nobody needs to see'\n")
        os.chmod(fake, os.stat(fake).st_mode | stat.S_IEXEC)
        env = dict(os.environ, PATH=tmp + os.pathsep + os.environ["PATH"], TOVR_BUILD_DIR=a.build)

        def main_sh(*args):
            if os.path.exists(calls):
                os.remove(calls)
            r = subprocess.run([script, *args], capture_output=True, text=True, env=env, timeout=120)
            built = os.path.exists(calls)
            return r, built

        r, built = main_sh("--help")
        options = ["--port N", "--no-panel", "--no-walk", "--scenario FILE", "--pace MS", "--root DIR", "--time [SECONDS]", "--help"]
        check(r.returncode == 0 and not built, "--help answers at once (exit 0, nothing built)")
        check(r.stdout.startswith("usage: scripts/main.sh") and all(o in r.stdout for o in options) and not r.stderr,
              "--help lists every option: " + ", ".join(options))
        for args, says in [(["--port", "abc"], '--port takes a number from 0 to 65535, not "abc"'),
                           (["--pace", "-5"], '--pace takes a number from 0 to 10000, not "-5"'),
                           (["--port"], "--port needs a value"),
                           (["--scenario", "/no/such.txt"], "there is no scenario file /no/such.txt"),
                           (["--time", "abc"], '--time takes a number of seconds since 1970 (0 to 4294967295), not "abc"'),
                           (["--time", "5", "--port", "1"], "--time is used alone"),
                           (["--frobnicate"], 'unknown option "--frobnicate"'),
                           (["help"], 'unknown option "help"')]:
            r, built = main_sh(*args)
            lines = r.stderr.splitlines()
            check(r.returncode == 2 and not built and not r.stdout and len(lines) == 1
                  and lines[0] == f"scripts/main.sh: {says} (scripts/main.sh --help lists the options)",
                  f"{' '.join(args)}: one line, exit 2, nothing built ({lines[0] if lines else r.stdout[:80]})")

        r, built = main_sh("--time", "86400")
        out = r.stdout.splitlines()
        print("  " + "\n  ".join(out))
        stages = [l for l in out if l.startswith("main: [")]
        check(r.returncode == 0 and built, f"--time 86400 builds and runs (exit {r.returncode}) {r.stderr[-200:]}")
        check([s[:11] for s in stages] == ["main: [1/4]", "main: [2/4]", "main: [3/4]", "main: [4/4]"],
              "one line for each of the four stages")
        check("building" in stages[2] and "first time takes a few minutes" in stages[2] and "main-build.log" in stages[2],
              "the build stage says it may take a few minutes and where its log is")
        check(out.index(stages[-1]) < out.index(next(l for l in out if l.startswith("time 86400"))),
              "the stages come before the program's output")
        check("a line of the build" not in r.stdout + r.stderr and len(out) <= 8, f"no flood ({len(out)} lines in all)")
        check("time 86400 -> 1970-01-02 00:00:00 UTC" in r.stdout, "the program ran")
    return check.result("scripts/main.sh")


if __name__ == "__main__":
    run(main)
