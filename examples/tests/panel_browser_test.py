#!/usr/bin/env python3
"""The front panel in a real browser: headless Chromium, driven over its DevTools protocol.

Starts the demo (panel only, on a free port), loads the page, presses a key, holds an IC card,
chooses a destination and starts a scan to e-mail, asserting the page's state after each step
and saving a screenshot of each under --out. Measures the time from a key press on the page to
the Java listener's call. Exits 77 (skipped) when there is no Chromium.
"""
import argparse, base64, json, os, shutil, socket, statistics, struct, subprocess, sys, tempfile, time
import urllib.request

SKIP = 77


class WebSocket:
    """Just enough of a WebSocket client for the DevTools protocol (text frames, no extensions)."""

    def __init__(self, url):
        assert url.startswith("ws://")
        hostport, path = url[5:].split("/", 1)
        host, port = hostport.split(":")
        self.sock = socket.create_connection((host, int(port)), timeout=30)
        key = base64.b64encode(os.urandom(16)).decode()
        self.sock.sendall((f"GET /{path} HTTP/1.1\r\nHost: {hostport}\r\nUpgrade: websocket\r\n"
                           f"Connection: Upgrade\r\nSec-WebSocket-Key: {key}\r\nSec-WebSocket-Version: 13\r\n\r\n").encode())
        head = b""
        while b"\r\n\r\n" not in head:
            chunk = self.sock.recv(1)
            if not chunk:
                raise RuntimeError("DevTools closed the connection during the handshake")
            head += chunk
        if b" 101 " not in head.split(b"\r\n", 1)[0]:
            raise RuntimeError("DevTools refused the WebSocket: " + head.decode(errors="replace"))

    def _read(self, n):
        data = b""
        while len(data) < n:
            chunk = self.sock.recv(n - len(data))
            if not chunk:
                raise RuntimeError("DevTools connection closed")
            data += chunk
        return data

    def send(self, text):
        payload = text.encode()
        header = bytearray([0x81])
        n = len(payload)
        if n < 126:
            header.append(0x80 | n)
        elif n < 65536:
            header.append(0x80 | 126)
            header += struct.pack(">H", n)
        else:
            header.append(0x80 | 127)
            header += struct.pack(">Q", n)
        mask = os.urandom(4)
        header += mask
        self.sock.sendall(bytes(header) + bytes(b ^ mask[i % 4] for i, b in enumerate(payload)))

    def recv(self):
        message = b""
        while True:
            b0, b1 = self._read(2)
            n = b1 & 0x7F
            if n == 126:
                n = struct.unpack(">H", self._read(2))[0]
            elif n == 127:
                n = struct.unpack(">Q", self._read(8))[0]
            payload = self._read(n)
            opcode = b0 & 0x0F
            if opcode == 8:
                raise RuntimeError("DevTools closed the connection")
            if opcode in (0, 1, 2):
                message += payload
                if b0 & 0x80:
                    return message.decode()


class Page:
    def __init__(self, ws):
        self.ws = ws
        self.next_id = 0

    def call(self, method, **params):
        self.next_id += 1
        self.ws.send(json.dumps({"id": self.next_id, "method": method, "params": params}))
        while True:
            m = json.loads(self.ws.recv())
            if m.get("id") == self.next_id:
                if "error" in m:
                    raise RuntimeError(f"{method}: {m['error']}")
                return m["result"]

    def js(self, expression):
        r = self.call("Runtime.evaluate", expression=expression, returnByValue=True, awaitPromise=True)
        if "exceptionDetails" in r:
            raise RuntimeError(f"script failed: {expression}: {r['exceptionDetails']}")
        return r["result"].get("value")

    def wait(self, expression, what, timeout=15):
        end = time.time() + timeout
        while time.time() < end:
            if self.js(expression):
                return
            time.sleep(0.1)
        raise AssertionError(f"page state: {what} (not true after {timeout} s: {expression})")

    def text(self, element_id):
        return self.js(f"document.getElementById({json.dumps(element_id)}).textContent")

    def screenshot(self, path):
        data = self.call("Page.captureScreenshot", format="png")["data"]
        with open(path, "wb") as f:
            f.write(base64.b64decode(data))
        print(f"  screenshot {path}")


def find_chromium():
    # TOVR_CHROMIUM names the browser to use (a path that is not there: no browser).
    chosen = os.environ.get("TOVR_CHROMIUM")
    if chosen is not None:
        return chosen if os.access(chosen, os.X_OK) else None
    for name in ("chromium", "chromium-browser", "google-chrome"):
        p = shutil.which(name)
        if p:
            return p
    return None


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--java", required=True)
    ap.add_argument("--classpath", required=True)
    ap.add_argument("--libs", required=True)
    ap.add_argument("--out", required=True)
    ap.add_argument("--presses", type=int, default=20)
    a = ap.parse_args()

    chromium = find_chromium()
    if chromium is None:
        print("SKIPPED: no Chromium on this machine (Debian package 'chromium'; scripts/setup.sh installs it)")
        return SKIP

    shutil.rmtree(a.out, ignore_errors=True)
    os.makedirs(a.out)
    port_file = os.path.join(a.out, "port")
    demo_log = open(os.path.join(a.out, "demo.log"), "w")
    demo = subprocess.Popen([a.java, "-Xcheck:jni", f"-Djava.library.path={a.libs}", "-cp", a.classpath,
                             "tarnwick.examples.demo.DeviceDemo", "--no-walk", "--port", "0", "--port-file", port_file,
                             "--root", os.path.join(a.out, "device"), "--pace", "100"],
                            stdout=demo_log, stderr=subprocess.STDOUT)
    profile = tempfile.mkdtemp(prefix="panel-chromium-")
    browser = None
    try:
        end = time.time() + 60
        while not (os.path.exists(port_file) and open(port_file).read().strip()):
            if demo.poll() is not None or time.time() > end:
                raise RuntimeError("the demo did not start its panel; see " + demo_log.name)
            time.sleep(0.1)
        port = int(open(port_file).read().strip())
        url = f"http://127.0.0.1:{port}/"
        print(f"panel at {url}")

        browser = subprocess.Popen([chromium, "--headless", "--no-sandbox", "--disable-gpu", "--disable-quic",
                                    "--no-first-run", "--disable-background-networking", "--disable-component-update",
                                    "--disable-sync", f"--user-data-dir={profile}", "--remote-debugging-port=0",
                                    "--window-size=1280,1000", "about:blank"],
                                   stdout=subprocess.DEVNULL, stderr=open(os.path.join(a.out, "chromium.log"), "w"))
        active = os.path.join(profile, "DevToolsActivePort")
        end = time.time() + 60
        while not (os.path.exists(active) and len(open(active).read().split()) >= 2):
            if browser.poll() is not None or time.time() > end:
                raise RuntimeError("Chromium did not open its DevTools port; see chromium.log")
            time.sleep(0.1)
        devtools_port = open(active).read().split()[0]
        targets = json.load(urllib.request.urlopen(f"http://127.0.0.1:{devtools_port}/json/list", timeout=10))
        target = next(t for t in targets if t.get("type") == "page")
        page = Page(WebSocket(target["webSocketDebuggerUrl"]))
        page.call("Page.enable")
        page.call("Emulation.setDeviceMetricsOverride", width=1280, height=1000, deviceScaleFactor=1, mobile=False)
        page.call("Page.navigate", url=url)

        print("step 1: the page loads and shows the device")
        page.wait("document.readyState === 'complete'", "page loaded")
        page.wait(f"document.getElementById('port').textContent === '{port}'", "the page names its port")
        page.wait("document.querySelectorAll('#machine tr').length >= 8", "machine values shown")
        page.wait("document.getElementById('events').textContent.includes('EventManager started')", "start-up events shown")
        assert page.text("user") == "(nobody)", page.text("user")
        assert page.text("power") == "awake", page.text("power")
        assert "counter total" in page.text("machine"), page.text("machine")
        page.js("document.getElementById('box').click()")
        page.wait("document.getElementById('box-list').textContent.includes('price-list.pdf 482113')", "document box listed")
        page.screenshot(os.path.join(a.out, "01-loaded.png"))

        print("step 2: press a panel key")
        page.js("key('home')")
        page.wait("document.getElementById('lastKey').textContent === 'home'", "the key shows as pressed")
        page.wait("document.getElementById('events').textContent.includes('Key home')", "the key event reached the application")
        page.screenshot(os.path.join(a.out, "02-key.png"))
        # The time from a press on the page to the Java listener's call, over several presses.
        # The page takes the press's wall-clock time, the listener its own; same machine, same clock.
        round_trips, listener, click_to_listener = [], [], []
        for _ in range(a.presses):
            page.js("key('home')")
            round_trips.append(float(page.js("document.body.dataset.keyRoundTripMs")))
            listener.append(float(page.js("document.body.dataset.keyListenerUs")))
            click_to_listener.append(float(page.js("document.body.dataset.keyClickToListenerMs")))
        print(f"  key press on the page -> Java listener call: median {statistics.median(click_to_listener):.2f} ms "
              f"(min {min(click_to_listener):.2f}, max {max(click_to_listener):.2f}) over {a.presses} presses; "
              f"of which device key event -> listener median {statistics.median(listener):.0f} us; "
              f"press -> confirmed on the page median {statistics.median(round_trips):.1f} ms")
        assert 0 < statistics.median(click_to_listener) < statistics.median(round_trips) + 1, "times in order"

        print("step 3: hold alice's IC card to the reader")
        page.js("document.getElementById('card').value='0123456789ABCDEF'")
        page.js("document.getElementById('hold-card').click()")
        page.wait("document.getElementById('user').textContent.startsWith('alice')", "alice is logged in", 10)
        assert page.text("destination") == "alice@example.com", page.text("destination")
        page.screenshot(os.path.join(a.out, "03-card.png"))

        print("step 4: choose Dana from the address book, start a scan to e-mail")
        page.js("document.getElementById('prefix').value='Dana'")
        page.js("document.getElementById('search').click()")
        page.wait("document.getElementById('found').options.length === 1", "one address found")
        page.js("const s=document.getElementById('found');s.selectedIndex=0;s.dispatchEvent(new Event('change'))")
        page.wait("document.getElementById('destination').textContent === 'dana@example.org'", "Dana chosen")
        page.js("document.getElementById('pages').value='2'")
        page.js("document.getElementById('scan').click()")
        page.wait("document.getElementById('job-101') !== null", "job 101 listed", 10)
        page.wait("document.getElementById('job-101').textContent.includes('COMPLETE')", "job 101 complete", 20)
        assert page.js("document.getElementById('job-101').cells[2].textContent") == "2", "two pages scanned"
        page.wait("document.getElementById('sendhistory').textContent.includes('dana@example.org OK')", "send history read")
        assert "result OK" in page.text("joblog"), page.text("joblog")
        page.screenshot(os.path.join(a.out, "04-scan.png"))

        print("step 5: bad input is refused with a message; a forced failure shows")
        page.js("document.getElementById('fail-code').value='zz'")
        page.js("document.getElementById('fail').click()")
        page.wait("document.getElementById('message').textContent.includes('code must be a number')", "bad code refused")
        page.js("document.getElementById('fail-op').value='esv_zel_job_kick'")
        page.js("document.getElementById('fail-code').value='0x04010005'")
        page.js("document.getElementById('fail').click()")
        page.wait("document.getElementById('events').textContent.includes('Forced esv_zel_job_kick')", "forcing shown")
        page.js("key('start')")
        page.wait("document.getElementById('events').textContent.includes('JobFailed start result 5')", "the start failed", 10)
        page.js("document.getElementById('trace-filter').value='zel_fnd_job_proxy'")
        page.wait("document.getElementById('trace').textContent.includes('zel_fnd_job_proxy')", "trace filtered")
        page.js("document.getElementById('usb0-unplug').click()")
        page.wait("document.getElementById('status').textContent.includes('drive 0 removed')", "USB memory removed")
        page.js("document.getElementById('toner-low').click()")
        page.wait("document.getElementById('status').textContent.includes('low')", "toner low shown")
        page.screenshot(os.path.join(a.out, "05-failures.png"))
        print("PASSED: panel in headless Chromium")
        return 0
    finally:
        if browser is not None:
            browser.terminate()
            try:
                browser.wait(10)
            except subprocess.TimeoutExpired:
                browser.kill()
        demo.terminate()
        try:
            demo.wait(10)
        except subprocess.TimeoutExpired:
            demo.kill()
        shutil.rmtree(profile, ignore_errors=True)


if __name__ == "__main__":
    try:
        sys.exit(main())
    except (AssertionError, RuntimeError) as e:
        print(f"FAILED: {e}")
        sys.exit(1)
