#!/usr/bin/env python3
"""A scenario with several bad lines: the player names every one of them (file and line), lists
the steps and the event kinds, exits 2 and runs nothing."""
import os, subprocess, sys

sys.dont_write_bytecode = True  # nothing written into the source tree
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from demo_support import Checks, demo_arguments, run  # noqa: E402


def main():
    a = demo_arguments()
    check = Checks()
    scenario = os.path.join(os.path.dirname(os.path.abspath(__file__)), "bad-step.txt")
    r = subprocess.run([a.java, f"-Djava.library.path={a.libs}", "-cp", a.classpath, "tarnwick.examples.demo.DeviceDemo",
                        "--scenario", scenario, "--root", a.out], capture_output=True, text=True, timeout=120)
    print(r.stdout + r.stderr)
    check(r.returncode == 2, f"exit 2 for a file with bad lines (exit {r.returncode})")
    for line, why in [(4, 'unknown step: "frobnicate the toner"'),
                      (5, 'set pages <1-99>: "set pages 500"'),
                      (6, 'no facade operation is named "esv_zel_job_kik"'),
                      (7, 'no event is of kind "Logn"'),
                      (8, 'copy to usb <0|1> [size <1-256> MB]')]:
        check(f"bad-step.txt:{line}: {why}" in r.stdout, f"line {line} is named: {why}")
    check("bad-step.txt:2:" not in r.stdout and "bad-step.txt:9:" not in r.stdout, "the good lines are not named")
    check("kinds: Init EventManager ICCard" in r.stdout, "the event kinds are listed")
    check("Login alice" not in r.stdout.split("steps:")[-1] and "PASSED" not in r.stdout, "nothing ran")
    return check.result("a scenario with bad lines")


if __name__ == "__main__":
    run(main)
