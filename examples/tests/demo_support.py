"""What the demo's tests share: starting the demo, talking HTTP to its panel, named checks."""
import json, os, re, socket, subprocess, sys, time, urllib.parse


class Checks:
    """Named checks. With keep_going every failure is collected (to show what an older build
    fails); otherwise the first one ends the test."""

    def __init__(self, keep_going=False):
        self.keep_going = keep_going
        self.failed = []

    def __call__(self, cond, what):
        if cond:
            print(f"  ok: {what}")
            return True
        print(f"  FAILED: {what}")
        self.failed.append(what)
        if not self.keep_going:
            raise AssertionError(what)
        return False

    def section(self, title):
        print(title)

    def result(self, name):
        if self.failed:
            print(f"FAILED: {name}: {len(self.failed)} check(s) failed:")
            for f in self.failed:
                print(f"  - {f}")
            return 1
        print(f"PASSED: {name}")
        return 0


class Demo:
    """The demo (DeviceDemo) in a process of its own, its panel on a free port."""

    def __init__(self, java, classpath, libs, out, name, args=(), jvm=()):
        self.out = os.path.join(out, name)
        os.makedirs(self.out, exist_ok=True)
        port_file = os.path.join(self.out, "port")
        if os.path.exists(port_file):
            os.remove(port_file)
        self.root = os.path.join(self.out, "device")
        self.log_path = os.path.join(self.out, "demo.log")
        self.log = open(self.log_path, "w")
        self.proc = subprocess.Popen([java, *jvm, "-Xcheck:jni", f"-Djava.library.path={libs}", "-cp", classpath,
                                      "tarnwick.examples.demo.DeviceDemo", "--no-walk", "--port", "0",
                                      "--port-file", port_file, "--root", self.root, *args],
                                     stdout=self.log, stderr=subprocess.STDOUT)
        end = time.time() + 90
        while not (os.path.exists(port_file) and open(port_file).read().strip()):
            if self.proc.poll() is not None or time.time() > end:
                raise AssertionError(f"the demo did not start its panel; see {self.log_path}")
            time.sleep(0.1)
        self.port = int(open(port_file).read().strip())
        self.origin = f"http://127.0.0.1:{self.port}"
        page = request(self.port, "GET", "/")[2]
        m = re.search(r'name="panel-token" content="([0-9a-f]+)"', page)
        self.token = m.group(1) if m else ""

    def act(self, timeout=10, **params):
        """(status, answer) of an action sent as the panel's page sends it (as a form to a panel
        of an older build, whose page has no token: to show what such a build fails)."""
        if not self.token:
            status, _, text = request(self.port, "POST", "/api/action", urllib.parse.urlencode(params), timeout=timeout)
        else:
            status, _, text = request(self.port, "POST", "/api/action", json.dumps(params), timeout=timeout,
                                      headers={"Origin": self.origin, "Content-Type": "application/json",
                                               "X-Panel-Token": self.token})
        try:
            return status, json.loads(text)
        except ValueError:
            return status, {"ok": False, "error": text}

    def state(self, query=""):
        status, _, text = request(self.port, "GET", "/api/state" + query, headers={"X-Panel-Token": self.token})
        if status != 200:
            raise AssertionError(f"state: {status} {text}")
        return json.loads(text)

    def wait(self, predicate, what, timeout=15):
        end = time.time() + timeout
        s = None
        while time.time() < end:
            s = self.state()
            if predicate(s):
                return s
            time.sleep(0.1)
        raise AssertionError(f"{what} (not so after {timeout} s)")

    def events(self, kind=None):
        return [e for e in self.state()["events"] if kind is None or e["kind"] == kind]

    def rss_kib(self):
        with open(f"/proc/{self.proc.pid}/status") as f:
            for line in f:
                if line.startswith("VmRSS:"):
                    return int(line.split()[1])
        return 0

    def stop(self):
        if self.proc.poll() is None:
            self.proc.terminate()
            try:
                self.proc.wait(10)
            except subprocess.TimeoutExpired:
                self.proc.kill()
        if not self.log.closed:
            self.log.close()
            # -Xcheck:jni reports go to the test's own output, where CTest looks for them.
            for line in open(self.log_path, errors="replace"):
                if "WARNING in native method" in line:
                    print(f"demo.log: {line.rstrip()}")


def request(port, method, path, body=None, headers=None, host=None, timeout=10):
    """(status, headers, text) of one request; the path goes out exactly as given. Host is the
    panel's own unless given; a body goes as a form unless a Content-Type is given."""
    s = socket.create_connection(("127.0.0.1", port), timeout=timeout)
    data = body.encode() if isinstance(body, str) else (body or b"")
    head = {"Host": host or f"127.0.0.1:{port}", "Connection": "close", "Content-Length": str(len(data))}
    if body is not None:
        head["Content-Type"] = "application/x-www-form-urlencoded"
    for k, v in (headers or {}).items():
        if v is None:
            head.pop(k, None)
        else:
            head[k] = v
    text = f"{method} {path} HTTP/1.1\r\n" + "".join(f"{k}: {v}\r\n" for k, v in head.items()) + "\r\n"
    s.sendall(text.encode() + data)
    out = b""
    while True:
        chunk = s.recv(65536)
        if not chunk:
            break
        out += chunk
    s.close()
    head_part, _, payload = out.partition(b"\r\n\r\n")
    lines = head_part.decode(errors="replace").split("\r\n")
    status = int(lines[0].split(" ", 2)[1])
    got = {}
    for line in lines[1:]:
        k, _, v = line.partition(":")
        got[k.strip().lower()] = v.strip()
    return status, got, payload.decode(errors="replace")


def demo_arguments(*extra):
    """The arguments of every test that starts the demo (java, class path, library path, output
    folder) and the test's own, each given as (name, argparse keywords)."""
    import argparse
    ap = argparse.ArgumentParser()
    for name in ("--java", "--classpath", "--libs", "--out"):
        ap.add_argument(name, required=True)
    for name, kw in extra:
        ap.add_argument(name, **kw)
    return ap.parse_args()


def run(main):
    try:
        sys.exit(main())
    except (AssertionError, RuntimeError) as e:
        print(f"FAILED: {e}")
        sys.exit(1)
