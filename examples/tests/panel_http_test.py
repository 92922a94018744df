#!/usr/bin/env python3
"""The front panel's HTTP side without a browser: only its page and interface are served, to
its own Host, origin and token only; slow clients and long work do not hold it up; bad requests
get a clear message and leave the device as it was; what it keeps stays bounded; and it listens
on 127.0.0.1 only. --keep-going runs every check and lists the failures (to see what an older
build fails)."""
import glob, json, os, shutil, socket, statistics, subprocess, sys, time, urllib.parse

sys.dont_write_bytecode = True  # nothing written into the source tree
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from demo_support import Checks, Demo, demo_arguments, request, run  # noqa: E402


def served(check, d):
    check.section("what is served")
    status, headers, text = request(d.port, "GET", "/")
    check(status == 200 and f"127.0.0.1:{d.port}" in text and d.token, "the page is served, names its port, carries a token")
    check("frame-ancestors 'none'" in headers.get("content-security-policy", ""), "the page may not be framed")
    for path in ["/../../../../etc/passwd", "/%2e%2e/%2e%2e/etc/passwd", "/etc/passwd", "/index.html/../../x",
                 "/api/../../etc/hosts", "/panel.html", "/api/state/../../x", "/api/stateX"]:
        status, _, _ = request(d.port, "GET", path)
        check(status == 404, f"GET {path} -> 404")
    status, _, _ = request(d.port, "GET", "/api/action", headers={"X-Panel-Token": d.token})
    check(status == 405, "GET of the action interface is refused (405)")
    status, _, _ = request(d.port, "POST", "/")
    check(status == 405, "POST of the page is refused (405)")


def gate(check, d):
    """Found 1: any Host, any origin, any content type was obeyed."""
    check.section("found 1: only its own Host, origin, JSON and token")
    evil = {"Origin": "http://evil.example", "Content-Type": "text/plain"}
    status, _, text = request(d.port, "POST", "/api/action", "action=card&id=0123456789ABCDEF",
                              headers=evil, host=f"evil.example:{d.port}")
    check(status == 403 and "answers only requests for 127.0.0.1" in text, f"a foreign Host's card login -> 403 ({text.strip()[:90]})")
    status, _, text = request(d.port, "POST", "/api/action", "action=card&id=0123456789ABCDEF", headers=evil)
    check(status == 403 and "Origin" in text, "a foreign origin's text/plain form -> 403")
    status, _, text = request(d.port, "POST", "/api/action", "action=toner&level=empty",
                              headers={"Origin": d.origin, "X-Panel-Token": d.token})
    check(status == 403 and "JSON" in text, "a form from the panel's own origin -> 403 (actions are JSON)")
    body = json.dumps({"action": "toner", "level": "empty"})
    status, _, text = request(d.port, "POST", "/api/action", body,
                              headers={"Origin": d.origin, "Content-Type": "text/plain", "X-Panel-Token": d.token})
    check(status == 403 and "JSON" in text, "JSON sent as text/plain (no preflight) -> 403")
    status, _, text = request(d.port, "POST", "/api/action", body,
                              headers={"Content-Type": "application/json", "X-Panel-Token": d.token})
    check(status == 403 and "Origin was missing" in text, "an action without Origin -> 403")
    status, _, text = request(d.port, "POST", "/api/action", body,
                              headers={"Origin": d.origin, "Content-Type": "application/json"})
    check(status == 403 and "token is missing" in text, "an action without the token -> 403")
    status, _, text = request(d.port, "POST", "/api/action", body,
                              headers={"Origin": d.origin, "Content-Type": "application/json", "X-Panel-Token": "0" * 48})
    check(status == 403 and "token is wrong" in text, "an action with another token -> 403")
    status, _, text = request(d.port, "GET", "/api/state", headers={"X-Panel-Token": d.token}, host=f"rebound.example:{d.port}")
    check(status == 403 and "0123456789ABCDEF" not in text and "user" not in text,
          "the state for a foreign Host (DNS rebinding) -> 403, nothing of it")
    status, _, text = request(d.port, "GET", "/", host=f"rebound.example:{d.port}")
    check(status == 403 and d.token not in text, "the page (and its token) for a foreign Host -> 403")
    status, _, text = request(d.port, "GET", "/api/state")
    check(status == 403 and "token is missing" in text, "the state without the token -> 403")
    status, _, _ = request(d.port, "GET", "/", host=f"127.0.0.1:{d.port + 1}")
    check(status == 403, "another port in the Host -> 403")
    status, _, _ = request(d.port, "GET", "/", host=f"localhost:{d.port}")
    check(status == 200, f"Host localhost:{d.port} is served")
    status, r = d.act(action="toner", level="ok")
    check(status == 200 and r["ok"], "the panel's own JSON with its token is taken")
    s = d.state()
    check(s["app"]["user"] == "" and "empty" not in s["app"]["toner"], "after the refused requests: nobody logged in, toner not empty")


def partial(port, kind):
    s = socket.create_connection(("127.0.0.1", port), timeout=30)
    if kind == "headers":
        s.sendall(f"GET / HTTP/1.1\r\nHost: 127.0.0.1:{port}\r\n".encode())
    elif kind == "line":
        s.sendall(b"GET /api/sta")
    else:
        s.sendall(f"POST /api/action HTTP/1.1\r\nHost: 127.0.0.1:{port}\r\nContent-Length: 100\r\n\r\nabc".encode())
    return s


def slow_clients(check, d):
    """Found 2: four partial requests made the panel unreachable."""
    check.section("found 2: slow clients do not starve the panel")
    held = [partial(d.port, k) for k in ("headers", "line", "body", "body")]
    time.sleep(0.3)
    t0 = time.time()
    try:
        status, _, text = request(d.port, "GET", "/", timeout=2)
        took = time.time() - t0
        check(status == 200 and took < 2, f"a fifth client is answered in {took:.2f} s while four send partial requests")
    except OSError as e:
        check(False, f"a fifth client is answered within 2 s while four send partial requests ({e})")
    for s in held:
        s.close()


def long_work(check, d):
    """Found 3: a slow copy held the application for its whole length; logins waited 30 s,
    failed, then ran anyway; a copy could not be cancelled."""
    check.section("found 3: a slow copy runs in the background, with progress and a cancel")
    t0 = time.time()
    status, r = d.act(timeout=5, action="copy", drive=0, mb=40, rate=1)
    check(status == 200 and r["ok"] and time.time() - t0 < 2, f"a 40 s copy starts at once ({r.get('message') or r.get('error')})")
    for user, pw in [("bob", "bobpw"), ("carol", "carolpw"), ("bob", "bobpw"), ("carol", "carolpw")]:
        t0 = time.time()
        try:
            status, r = d.act(timeout=5, action="login", user=user, pw=pw)
            took = time.time() - t0
            check(status == 200 and r["ok"] and took < 2, f"login {user} meanwhile answered ok in {took:.2f} s")
        except OSError as e:
            check(False, f"login {user} meanwhile answered within 5 s ({e})")
    s = d.wait(lambda s: "%" in s["app"]["copy"] or s["app"]["copy"].startswith("making"), "the copy shows its progress", 20)
    check(s["app"].get("copying"), f"the copy is running: {s['app']['copy']}")
    status, r = d.act(action="copy", drive=1)
    check(status == 400 and "a copy is running" in r["error"], "a second copy meanwhile -> 400 \"a copy is running\"")
    status, r = d.act(action="cancelCopy")
    check(status == 200 and r["ok"], "the copy is cancelled")
    s = d.wait(lambda s: not s["app"].get("copying"), "the copy ends after its cancel", 10)
    check(s["app"]["copy"].startswith("cancelled"), f"the copy says so: {s['app']['copy']}")
    check(any(e["kind"] == "CopyCancelled" for e in s["events"]), "a CopyCancelled event")
    status, r = d.act(action="cancelCopy")
    check(status == 400 and "no copy is running" in r["error"], "cancel with no copy -> 400")
    d.act(action="logout")


def bounded_files(check, d):
    """Found 4: every copy size left a new document on the disk and on the stick."""
    check.section("found 4: the files the panel makes are bounded and reused")
    for mb in (1, 2, 3, 2):
        status, r = d.act(action="copy", drive=0, mb=mb)
        check(status == 200 and r["ok"], f"copy a {mb} MB document")
        d.wait(lambda s: not s["app"].get("copying") and "done" in s["app"]["copy"], f"the {mb} MB copy is done", 30)
    hdd = sorted(os.listdir(os.path.join(d.root, "hdd")))
    usb = sorted(os.listdir(os.path.join(d.root, "usb0")))
    docs_hdd = [f for f in hdd if f.startswith("document")]
    docs_usb = [f for f in usb if f.startswith("document")]
    check(len(docs_hdd) == 1, f"one document on the hard disk after four copies of three sizes: {docs_hdd}")
    check(len(docs_usb) == 1, f"one document on USB memory 0: {docs_usb}")
    size = os.path.getsize(os.path.join(d.root, "hdd", docs_hdd[0])) if docs_hdd else 0
    check(size == 2 * 1024 * 1024, f"it is the last size asked for ({size} bytes)")
    status, r = d.act(action="copy", drive=0, mb=257)
    check(status == 400 and "mb must be a number from 1 to 256" in r["error"], "a document over 256 MB -> 400")


def bad_input(check, d):
    """Found 5: bad input changed things, refusals answered ok, unknown operations were armed."""
    check.section("found 5: bad input gets a message and changes nothing")
    pages = d.state()["app"].get("scanPages")
    status, r = d.act(action="scan", pages=42)
    s = d.state()
    check(status == 400 and "log in first" in r["error"] and s["app"].get("scanPages") == pages,
          f"scan pages=42 while logged out -> 400 \"log in first\", pages still {s['app']['scanPages']}")
    status, r = d.act(action="login", user="alice", pw="secret")
    check(status == 200 and r["ok"], "alice logs in")
    status, r = d.act(action="login", user="bob", pw="wrong")
    s = d.state()
    check(status == 400 and "login refused for bob: wrong password" in r["error"], f"a wrong password -> 400 \"{r.get('error')}\"")
    check(s["app"]["user"] == "alice", "alice is still logged in")
    forced = len(d.events("Forced"))
    status, r = d.act(action="fail", op="no_such_op", code="0x04010005")
    check(status == 400 and "no facade operation is named \"no_such_op\"" in r["error"], "fail next no_such_op -> 400")
    status, r = d.act(action="fail", op="esv_zel_job_kik", code="1")
    check(status == 400 and len(d.events("Forced")) == forced, "a misspelt operation arms nothing")
    bad = [({"action": "card", "id": "../../etc"}, "a card id is 1 to 32 hexadecimal digits"),
           ({"action": "key", "key": "eject"}, 'unknown key "eject"'),
           ({"action": "key", "key": "start", "pages": "0"}, "pages must be a number from 1 to 99"),
           ({"action": "usb", "drive": "5", "plug": "1"}, "drive must be a number from 0 to 1"),
           ({"action": "usb", "drive": "x", "plug": "1"}, "drive must be a number from 0 to 1"),
           ({"action": "fail", "op": "a;rm -rf", "code": "1"}, "no facade operation is named"),
           ({"action": "fail", "op": "esv_zel_job_kick", "code": "zz"}, "code must be a number"),
           ({"action": "fail", "op": "esv_zel_job_kick", "code": "0x100000000"}, "a code is a 32-bit number"),
           ({"action": "toner", "level": "half"}, "toner level is ok, low or empty"),
           ({"action": "scan", "pages": "100"}, "pages must be a number from 1 to 99"),
           ({"action": "paper", "tray": "3", "level": "10"}, "tray must be a number from 1 to 2"),
           ({"action": "destination", "prefix": "Nobody"}, "no address-book entry"),
           ({"action": "teleport"}, 'unknown action "teleport"'),
           ({}, "missing action")]
    for params, message in bad:
        status, r = d.act(**params)
        check(status == 400 and not r["ok"] and message in r["error"], f"{params} -> 400 \"{r.get('error')}\"")
    for body, message in [("{", "not a flat JSON object"), ('{"action":{"x":1}}', "values are texts"),
                          ('{"action":"key","action":"key"}', "appears twice"), ("[1]", "expected {")]:
        status, _, text = request(d.port, "POST", "/api/action", body,
                                  headers={"Origin": d.origin, "Content-Type": "application/json", "X-Panel-Token": d.token})
        check(status == 400 and message in text, f"body {body} -> 400 ({message})")
    status, _, _ = request(d.port, "POST", "/api/action", json.dumps({"action": "card", "id": "A" * 5000}),
                           headers={"Origin": d.origin, "Content-Type": "application/json", "X-Panel-Token": d.token})
    check(status == 413, "an oversized request is refused (413)")
    s = d.state()
    check(s["app"]["user"] == "alice" and s["app"].get("scanPages") == pages, "after the bad requests alice is logged in, pages unchanged")
    d.act(action="logout")
    status, r = d.act(action="card", id="0123456789ABCDEF")
    check(status == 200 and r["ok"], "a good card after the bad requests is taken")
    d.wait(lambda s: s["app"]["user"] == "alice", "alice is logged in by her card", 10)
    status, _, _ = request(d.port, "GET", "/api/state?since=abc&trace=" + "x" * 500, headers={"X-Panel-Token": d.token})
    check(status == 200, "a broken state query is read with defaults")
    d.act(action="logout")
    for params, done in [({"action": "cover", "open": "1"}, "cover opened"), ({"action": "cover", "open": "0"}, "cover closed"),
                         ({"action": "sleep", "on": "1"}, "device asleep"), ({"action": "sleep", "on": "0"}, "device awake"),
                         ({"action": "cover", "open": "2"}, "open must be a number from 0 to 1"),
                         ({"action": "sleep", "on": "x"}, "on must be a number from 0 to 1")]:
        status, r = d.act(**params)
        check(r.get("message", r.get("error")) == done and status == (200 if r["ok"] else 400), f"{params} -> \"{done}\"")


def machine_values(check, d):
    """Found 9: paper levels set on the panel never reached the machine values; counters never moved."""
    check.section("found 9: paper levels and counters reach the machine values")
    status, r = d.act(action="paper", tray=1, level=10)
    check(status == 200 and r["ok"], "paper tray 1 level 10")
    status, r = d.act(action="machine")
    check(status == 200 and r["ok"], f"the machine values are read again on request ({r.get('message') or r.get('error')})")
    s = d.wait(lambda s: s["machine"].get("tray 1") == "10% paper", "the machine values show tray 1 at 10%", 5)
    check(s["machine"]["tray 1"] == "10% paper", "tray 1 reads \"10% paper\"")
    before = int(s["machine"]["counter scan"])
    d.act(action="login", user="alice", pw="secret")
    d.act(action="destination", prefix="Dana")
    status, r = d.act(action="scan", pages=2)
    check(status == 200 and r["ok"], "scan 2 pages")
    s = d.wait(lambda s: any(e["kind"] == "JobEnded" for e in s["events"]) and
               int(s["machine"]["counter scan"]) >= before + 2, "the scan counter moves by the pages scanned", 30)
    check(int(s["machine"]["counter scan"]) == before + 2, f"scan counter {before} -> {s['machine']['counter scan']}")
    d.act(action="logout")


def quiet_polling(check, d):
    """Found 10: the panel's own polling filled the trace within a minute."""
    check.section("found 10: polling the state adds nothing to the trace")
    time.sleep(0.5)
    first = d.state()["trace"]
    for _ in range(60):
        d.state()
        time.sleep(0.05)
    last = d.state()["trace"]
    check(first == last, f"60 polls over 3 s leave the trace as it was ({len(first)} lines before, {len(last)} after)")


def record_and_play(check, d, a):
    """The record switch writes what was done as a scenario that plays back."""
    check.section("record switch: what a person does becomes a scenario that plays back")
    status, r = d.act(action="record", on=1)
    check(status == 200 and r["ok"] and r["file"].endswith(".txt"), f"recording to {r.get('file')}")
    mark = [0]

    def seen(kind, word):
        return lambda s: any(e["kind"] == kind and word in e["text"] and e["seq"] > mark[0] for e in s["events"])

    # Each step, then what the person waited for before the next one.
    steps = [(dict(action="card", id="0123456789ABCDEF"), lambda s: s["app"]["user"] == "alice"),
             (dict(action="destination", prefix="Dana"), lambda s: s["app"]["destination"] == "dana@example.org"),
             (dict(action="key", key="start", pages=2), seen("SendHistory", "dana@example.org")),
             (dict(action="toner", level="low"), seen("Toner", "low")),
             (dict(action="usb", drive=1, plug=1), seen("USB", "drive 1 plugged")),
             (dict(action="box", folder="/Sales"), None),
             (dict(action="fail", op="esv_zel_job_kick", code="0x04010005"), None),
             (dict(action="scan", pages=1), seen("JobFailed", "start result 5")),
             (dict(action="login", user="bob", pw="wrong"), None),
             (dict(action="key", key="reset"), lambda s: s["app"]["user"] == ""),
             (dict(action="cover", open=1), None),
             (dict(action="cover", open=0), None),
             (dict(action="sleep", on=1), None),
             (dict(action="sleep", on=0), None)]
    for step, effect in steps:
        mark[0] = max([e["seq"] for e in d.state()["events"]] or [0])
        status, r = d.act(**step)
        check(status in (200, 400), f"{step} -> {r.get('message') or r.get('error')}")
        if effect:
            d.wait(effect, f"the effect of {step}", 20)
    status, r = d.act(action="record", on=0)
    check(status == 200 and r["ok"], f"recording ends: {r.get('message')}")
    text = open(r["file"]).read()
    print("  ---- recorded ----\n" + "".join("  | " + line + "\n" for line in text.splitlines()) + "  ------------------")
    for line in ["hold card 0123456789ABCDEF", "expect event Login alice", "set pages 2", "press key start",
                 "expect event JobState COMPLETE alice", "expect event SendHistory dana@example.org OK",
                 "toner low", "plug usb 1", "show box /Sales", "expect event BoxListing /Sales 2 entries",
                 "fail next esv_zel_job_kick with 0x04010005", "scan to email", "expect event JobFailed start result 5",
                 "login bob wrong", "expect event LoginFailed bob", "press key reset", "expect event Logout alice",
                 "open cover", "close cover", "sleep", "wake"]:
        check(line in text, f"the file has \"{line}\"")
    play = subprocess.run([a.java, "-Xcheck:jni", f"-Djava.library.path={a.libs}", "-cp", a.classpath,
                           "tarnwick.examples.demo.DeviceDemo", "--scenario", r["file"], "--pace", "20",
                           "--root", os.path.join(a.out, "replay")], capture_output=True, text=True, timeout=120)
    check(play.returncode == 0 and "PASSED" in play.stdout and "WARNING in native method" not in play.stdout + play.stderr,
          f"the recording plays back (exit {play.returncode}): {play.stdout.strip().splitlines()[-1] if play.stdout.strip() else play.stderr[-300:]}")


def loopback_and_latency(check, d):
    check.section("listening on the loopback interface only; key latency")
    others = subprocess.run(["hostname", "-I"], capture_output=True, text=True).stdout.split()
    others = [ip for ip in others if ":" not in ip and not ip.startswith("127.")]
    if others:
        try:
            socket.create_connection((others[0], d.port), timeout=3).close()
            check(False, f"not reachable on {others[0]}")
        except OSError:
            check(True, f"not reachable on {others[0]}:{d.port}")
    else:
        print("  (no non-loopback address on this machine: the binding check is not possible here)")
    lat = []
    for _ in range(200):
        status, r = d.act(action="key", key="home")
        lat.append(r["keyLatencyMicros"])
    print(f"  key event raised -> Java listener over 200 presses: median {statistics.median(lat):.0f} us, "
          f"90th {sorted(lat)[179]:.0f} us, max {max(lat):.0f} us")


def command_line(check, a, busy_port):
    """Found 12: a port in use and bad arguments printed stack traces; --help was an unknown argument."""
    check.section("found 12: the command's arguments get one line each, --help lists them")
    base = [a.java, f"-Djava.library.path={a.libs}", "-Dtovr.command=scripts/main.sh", "-cp", a.classpath]

    def demo(*args):
        return subprocess.run(base + ["tarnwick.examples.demo.DeviceDemo", "--root", os.path.join(a.out, "args"), *args],
                              capture_output=True, text=True, timeout=60)

    r = demo("--no-walk", "--port", str(busy_port))
    check(r.returncode == 2 and r.stderr.strip() == f"scripts/main.sh: port {busy_port} is in use (choose another with "
          f"--port, or --port 0 for a free one) (scripts/main.sh --help lists the options)",
          f"a port in use: one line, exit 2 ({r.stderr.strip()[:100]})")
    r = demo("--help")
    check(r.returncode == 0 and "usage: scripts/main.sh" in r.stdout and "unknown" not in r.stdout + r.stderr
          and all(o in r.stdout for o in ("--port", "--no-panel", "--no-walk", "--scenario", "--pace", "--root")),
          "--help lists the options under the command's own name")
    for args, says in [(["--pace", "abc"], "--pace takes a number from 0 to 10000, not \"abc\""),
                       (["--port", "70000"], "--port takes a number from 0 to 65535"),
                       (["--frobnicate"], "unknown option \"--frobnicate\""),
                       (["--scenario"], "--scenario needs a value"),
                       (["--scenario", "/no/such/file"], "there is no scenario file /no/such/file")]:
        r = demo(*args)
        lines = r.stderr.strip().splitlines()
        check(r.returncode == 2 and len(lines) == 1 and says in lines[0] and "Exception" not in r.stderr,
              f"{' '.join(args)}: one line ({lines[0] if lines else ''})")
    r = subprocess.run(base + ["tarnwick.examples.TimeDemo", "abc"], capture_output=True, text=True, timeout=60)
    lines = r.stderr.strip().splitlines()
    check(r.returncode == 2 and len(lines) == 1 and "\"abc\" is not a number of seconds" in lines[0],
          f"--time abc: one line ({lines[0] if lines else ''})")


def main():
    a = demo_arguments(
        ("--keep-going", dict(action="store_true", help="run every check, list the failures at the end")))
    shutil.rmtree(a.out, ignore_errors=True)
    os.makedirs(a.out)
    check = Checks(a.keep_going)
    d = Demo(a.java, a.classpath, a.libs, a.out, "panel", args=["--pace", "20"])
    try:
        parts = [served, gate, slow_clients, long_work, bounded_files, bad_input, machine_values, quiet_polling,
                 lambda c, d: record_and_play(c, d, a), loopback_and_latency, lambda c, d: command_line(c, a, d.port)]
        for part in parts:
            try:
                part(check, d)
            except (AssertionError, OSError, KeyError, ValueError, TypeError) as e:
                if not a.keep_going:
                    raise
                check(False, f"{getattr(part, '__name__', 'part')}: {type(e).__name__}: {e}")
    finally:
        d.stop()
    return check.result("panel HTTP interface")


if __name__ == "__main__":
    run(main)
