#!/usr/bin/env python3
"""The front panel's HTTP side without a browser: only its page and interface are served, bad
requests get a clear message and leave the device as it was, and it listens on 127.0.0.1 only."""
import argparse, json, os, shutil, socket, statistics, subprocess, sys, time, urllib.error, urllib.parse, urllib.request


def request(port, method, path, body=None):
    """(status, text) of one request; the path goes out exactly as given."""
    s = socket.create_connection(("127.0.0.1", port), timeout=10)
    data = body.encode() if isinstance(body, str) else (body or b"")
    head = f"{method} {path} HTTP/1.1\r\nHost: 127.0.0.1\r\nConnection: close\r\nContent-Length: {len(data)}\r\n"
    if body is not None:
        head += "Content-Type: application/x-www-form-urlencoded\r\n"
    s.sendall((head + "\r\n").encode() + data)
    out = b""
    while True:
        chunk = s.recv(65536)
        if not chunk:
            break
        out += chunk
    s.close()
    status = int(out.split(b" ", 2)[1])
    return status, out.split(b"\r\n\r\n", 1)[1].decode(errors="replace")


def act(port, **params):
    status, text = request(port, "POST", "/api/action", urllib.parse.urlencode(params))
    return status, json.loads(text)


def check(cond, what):
    if not cond:
        raise AssertionError(what)
    print(f"  ok: {what}")


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--java", required=True)
    ap.add_argument("--classpath", required=True)
    ap.add_argument("--libs", required=True)
    ap.add_argument("--out", required=True)
    a = ap.parse_args()
    shutil.rmtree(a.out, ignore_errors=True)
    os.makedirs(a.out)
    port_file = os.path.join(a.out, "port")
    log = open(os.path.join(a.out, "demo.log"), "w")
    demo = subprocess.Popen([a.java, "-Xcheck:jni", f"-Djava.library.path={a.libs}", "-cp", a.classpath,
                             "tarnwick.examples.demo.DeviceDemo", "--no-walk", "--port", "0", "--port-file", port_file,
                             "--root", os.path.join(a.out, "device"), "--pace", "20"], stdout=log, stderr=subprocess.STDOUT)
    try:
        end = time.time() + 60
        while not (os.path.exists(port_file) and open(port_file).read().strip()):
            if demo.poll() is not None or time.time() > end:
                raise AssertionError("the demo did not start its panel")
            time.sleep(0.1)
        port = int(open(port_file).read().strip())

        status, text = request(port, "GET", "/")
        check(status == 200 and f"127.0.0.1:{port}" in text, "the page is served and names its port")
        for path in ["/../../../../etc/passwd", "/%2e%2e/%2e%2e/etc/passwd", "/etc/passwd", "/index.html/../../x",
                     "/api/../../etc/hosts", "/panel.html", "/api/state/../../x", "/api/stateX"]:
            status, _ = request(port, "GET", path)
            check(status == 404, f"GET {path} -> 404")
        status, _ = request(port, "GET", "/api/action")
        check(status == 405, "GET of the action interface is refused (405)")
        status, _ = request(port, "POST", "/")
        check(status == 405, "POST of the page is refused (405)")

        bad = [({"action": "card", "id": "../../etc"}, "a card id is 1 to 32 hexadecimal digits"),
               ({"action": "key", "key": "eject"}, 'unknown key "eject"'),
               ({"action": "usb", "drive": "5", "plug": "1"}, "drive must be a number from 0 to 1"),
               ({"action": "usb", "drive": "x", "plug": "1"}, "drive must be a number from 0 to 1"),
               ({"action": "fail", "op": "a;rm -rf", "code": "1"}, "an operation is a facade member name"),
               ({"action": "fail", "op": "esv_zel_job_kick", "code": "zz"}, "code must be a number"),
               ({"action": "fail", "op": "esv_zel_job_kick", "code": "0x100000000"}, "a code is a 32-bit number"),
               ({"action": "toner", "level": "half"}, "toner level is ok, low or empty"),
               ({"action": "scan"}, "log in first"),
               ({"action": "login", "user": "alice", "pw": "wrong"}, "login refused for alice"),
               ({"action": "destination", "prefix": "Nobody"}, "no address-book entry"),
               ({"action": "teleport"}, 'unknown action "teleport"'),
               ({}, "missing action")]
        for params, message in bad:
            status, r = act(port, **params)
            check(status == 400 and not r["ok"] and message in r["error"], f"{params} -> 400 \"{r.get('error')}\"")
        status, text = request(port, "POST", "/api/action", "action=card&id=" + "A" * 5000)
        check(status == 413, "an oversized request is refused (413)")

        status, r = act(port, action="card", id="0123456789ABCDEF")
        check(status == 200 and r["ok"], "a good card after the bad requests is taken")
        end = time.time() + 10
        state = {}
        while time.time() < end:
            state = json.loads(request(port, "GET", "/api/state")[1])
            if state["app"]["user"] == "alice":
                break
            time.sleep(0.1)
        check(state["app"]["user"] == "alice", "alice is logged in: the device is consistent")
        status, text = request(port, "GET", "/api/state?since=abc&trace=" + "x" * 500)
        check(status == 200, "a broken state query is read with defaults")

        # Listening on the loopback interface only.
        others = subprocess.run(["hostname", "-I"], capture_output=True, text=True).stdout.split()
        others = [ip for ip in others if ":" not in ip and not ip.startswith("127.")]
        if others:
            try:
                socket.create_connection((others[0], port), timeout=3).close()
                check(False, f"not reachable on {others[0]}")
            except OSError:
                check(True, f"not reachable on {others[0]}:{port}")
        else:
            print("  (no non-loopback address on this machine: the binding check is not possible here)")

        # Key press to the Java listener, through the interface (no browser).
        lat = []
        for _ in range(200):
            status, r = act(port, action="key", key="home")
            lat.append(r["keyLatencyMicros"])
        print(f"  key event raised -> Java listener over 200 presses: median {statistics.median(lat):.0f} us, "
              f"90th {sorted(lat)[179]:.0f} us, max {max(lat):.0f} us")
        print("PASSED: panel HTTP interface")
        return 0
    finally:
        demo.terminate()
        try:
            demo.wait(10)
        except subprocess.TimeoutExpired:
            demo.kill()


if __name__ == "__main__":
    try:
        sys.exit(main())
    except AssertionError as e:
        print(f"FAILED: {e}")
        sys.exit(1)
