#!/usr/bin/env python3
"""The front panel in a real browser: headless Chromium, driven over its DevTools protocol.

Starts the demo (panel only, on a free port). First a page of another origin tries what a
hostile web page would (an auto-submitted form, a no-cors text/plain fetch, JSON, reading the
state): nothing changes and nothing is read. Then the panel's own page: it loads, presses keys
(each event shown once), holds an IC card, chooses a destination and scans the pages given with
the Start key, shows refusals and failures in red, and says so when its server stops. Asserts
the page's state after each step and saves screenshots under --out. Measures the time from a key
press on the page to the Java listener's call. Exits 77 (skipped) when there is no Chromium.
--keep-going runs every step and lists the failures (to see what an older build fails).
"""
import base64, http.server, json, os, shutil, socket, statistics, struct, subprocess, sys, tempfile, \
    threading, time
import urllib.request

sys.dont_write_bytecode = True  # nothing written into the source tree
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from demo_support import Checks, Demo, demo_arguments, run  # noqa: E402

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


ATTACK = """<!DOCTYPE html><html><body><h1>Not the panel</h1>
<form id="f" method="POST" action="http://127.0.0.1:@PORT@/api/action" target="sink">
<input name="action" value="toner"><input name="level" value="empty"></form>
<iframe name="sink"></iframe>
<script>
const panel='http://127.0.0.1:@PORT@';
const d=document.body.dataset;
document.getElementById('f').submit();
fetch(panel+'/api/action',{method:'POST',mode:'no-cors',headers:{'Content-Type':'text/plain'},
  body:'action=card&id=0123456789ABCDEF'}).then(()=>d.nocors='sent').catch(e=>d.nocors='failed');
fetch(panel+'/api/action',{method:'POST',headers:{'Content-Type':'application/json'},
  body:'{"action":"cover","open":1}'}).then(r=>r.text()).then(t=>d.json='read: '+t).catch(e=>d.json='blocked');
fetch(panel+'/api/state').then(r=>r.text()).then(t=>d.read='read: '+t).catch(e=>d.read='blocked');
fetch(panel+'/').then(r=>r.text()).then(t=>d.page='read: '+t).catch(e=>d.page='blocked');
</script></body></html>"""


def attack_server(panel_port):
    """A web page of another origin (another port of 127.0.0.1) that goes for the panel."""
    page = ATTACK.replace("@PORT@", str(panel_port)).encode()

    class Handler(http.server.BaseHTTPRequestHandler):
        def do_GET(self):
            self.send_response(200)
            self.send_header("Content-Type", "text/html; charset=utf-8")
            self.send_header("Content-Length", str(len(page)))
            self.end_headers()
            self.wfile.write(page)

        def log_message(self, *args):
            pass

    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    return server


def start_browser(chromium, profile, out):
    browser = subprocess.Popen([chromium, "--headless", "--no-sandbox", "--disable-gpu", "--disable-quic",
                                "--no-first-run", "--disable-background-networking", "--disable-component-update",
                                "--disable-sync", f"--user-data-dir={profile}", "--remote-debugging-port=0",
                                "--window-size=1280,1000", "about:blank"],
                               stdout=subprocess.DEVNULL, stderr=open(os.path.join(out, "chromium.log"), "w"))
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
    return browser, page


def hostile_page(check, d, page, out):
    """Found 1: a page of another origin auto-submitted a form and sent a no-cors fetch, and both took effect."""
    check.section("found 1: a page of another origin changes nothing and reads nothing")
    server = attack_server(d.port)
    try:
        page.call("Page.navigate", url=f"http://127.0.0.1:{server.server_address[1]}/")
        page.wait("document.body && document.body.dataset.nocors && document.body.dataset.read && "
                  "document.body.dataset.json && document.body.dataset.page", "the hostile page's requests are done")
        time.sleep(1.0)  # the form's answer, too
        page.screenshot(os.path.join(out, "00-hostile-page.png"))
        read, sent_json, read_page = (page.js(f"document.body.dataset.{k}") for k in ("read", "json", "page"))
        check(read == "blocked", f"reading the state from another origin: {read[:60]}")
        check(read_page == "blocked", f"reading the page (and its token) from another origin: {read_page[:60]}")
        check(sent_json == "blocked", f"JSON from another origin is stopped at its preflight: {sent_json[:60]}")
    finally:
        server.shutdown()
    s = d.state()
    check(s["app"]["user"] == "", f"the no-cors card login did nothing (user \"{s['app']['user']}\")")
    check("empty" not in s["app"]["toner"], f"the auto-submitted form did nothing (toner \"{s['app']['toner']}\")")
    check(s["app"]["cover"] == "closed", f"the JSON request did nothing (cover {s['app']['cover']})")


def loads(check, d, page, out):
    print("step 1: the page loads and shows the device")
    page.call("Page.navigate", url=f"http://127.0.0.1:{d.port}/")
    page.wait("document.readyState === 'complete'", "page loaded")
    page.wait(f"document.getElementById('port').textContent === '{d.port}'", "the page names its port")
    page.wait("document.querySelectorAll('#machine tr').length >= 8", "machine values shown")
    page.wait("document.getElementById('events').textContent.includes('EventManager started')", "start-up events shown")
    check(page.text("user") == "(nobody)", f"nobody logged in ({page.text('user')})")
    check(page.text("power") == "awake", "the device is awake")
    check("counter total" in page.text("machine"), "the counters are shown")
    page.js("document.getElementById('box').click()")
    page.wait("document.getElementById('box-list').textContent.includes('price-list.pdf 482113')", "document box listed")
    page.screenshot(os.path.join(out, "01-loaded.png"))


def keys(check, d, page, out, presses):
    """Found 7: the event list showed every event two or three times."""
    print("step 2: press panel keys; every event is shown once (found 7)")
    page.js("key('home')")
    page.wait("document.getElementById('lastKey').textContent === 'home'", "the key shows as pressed")
    page.wait("document.getElementById('events').textContent.includes('Key home')", "the key event reached the application")
    page.screenshot(os.path.join(out, "02-key.png"))
    # The time from a press on the page to the Java listener's call, over several presses.
    # The page takes the press's wall-clock time, the listener its own; same machine, same clock.
    round_trips, listener, click_to_listener = [], [], []
    for _ in range(presses):
        page.js("key('home')")
        round_trips.append(float(page.js("document.body.dataset.keyRoundTripMs")))
        listener.append(float(page.js("document.body.dataset.keyListenerUs")))
        click_to_listener.append(float(page.js("document.body.dataset.keyClickToListenerMs")))
    print(f"  key press on the page -> Java listener call: median {statistics.median(click_to_listener):.2f} ms "
          f"(min {min(click_to_listener):.2f}, max {max(click_to_listener):.2f}) over {presses} presses; "
          f"of which device key event -> listener median {statistics.median(listener):.0f} us; "
          f"press -> confirmed on the page median {statistics.median(round_trips):.1f} ms")
    check(0 < statistics.median(click_to_listener) < statistics.median(round_trips) + 1, "times in order")
    # Presses that do not wait for each other: their refreshes overlap.
    page.js("Promise.all([...Array(12)].map(()=>key('home')))")
    want = 1 + presses + 12
    page.wait(f"document.getElementById('events').textContent.split('Key home').length - 1 >= {want}",
              f"{want} key events shown", 10)
    time.sleep(1.5)  # a few timer refreshes more
    lines = page.js("document.getElementById('events').innerText.split(String.fromCharCode(10)).filter(l => l)")
    twice = sorted({l for l in lines if lines.count(l) > 1})
    homes = sum(1 for l in lines if "Key home" in l)
    check(not twice, f"no event is shown twice ({len(lines)} lines{'; twice: ' + twice[0] if twice else ''})")
    check(homes == want, f"{want} presses, {homes} key events shown")


def card_and_scan(check, d, page, out):
    """Found 8: the Start key ignored the pages field."""
    print("step 3: hold alice's IC card to the reader")
    page.js("document.getElementById('card').value='0123456789ABCDEF'")
    page.js("document.getElementById('hold-card').click()")
    page.wait("document.getElementById('user').textContent.startsWith('alice')", "alice is logged in", 10)
    check(page.text("destination") == "alice@example.com", f"her own address is the destination ({page.text('destination')})")
    page.screenshot(os.path.join(out, "03-card.png"))

    print("step 4: choose Dana from the address book; the Start key scans the pages given (found 8)")
    page.js("document.getElementById('prefix').value='Dana'")
    page.js("document.getElementById('search').click()")
    page.wait("document.getElementById('found').options.length === 1", "one address found")
    page.js("const s=document.getElementById('found');s.selectedIndex=0;s.dispatchEvent(new Event('change'))")
    page.wait("document.getElementById('destination').textContent === 'dana@example.org'", "Dana chosen")
    page.js("document.getElementById('pages').value='2'")
    page.js("document.getElementById('key-start').click()")
    page.wait("document.getElementById('job-101') !== null", "job 101 listed", 10)
    page.wait("document.getElementById('job-101').textContent.includes('COMPLETE')", "job 101 complete", 20)
    pages = page.js("document.getElementById('job-101').cells[2].textContent")
    check(pages == "2", f"the Start key scanned the 2 pages given ({pages})")
    page.wait("document.getElementById('sendhistory').textContent.includes('dana@example.org OK')", "send history read")
    check("result OK" in page.text("joblog"), f"job log: {page.text('joblog')}")
    page.js("document.getElementById('pages').value='1'")
    page.js("document.getElementById('scan').click()")
    page.wait("document.getElementById('job-102') !== null && "
              "document.getElementById('job-102').textContent.includes('COMPLETE')", "job 102 complete", 20)
    check(page.js("document.getElementById('job-102').cells[2].textContent") == "1", "the scan button scanned 1 page")
    page.screenshot(os.path.join(out, "04-scan.png"))


def message(page):
    return page.js("[document.getElementById('message').textContent, document.getElementById('message').className]")


def failures(check, d, page, out):
    """Found 8: failures were shown in green as done (a wrong password, a copy to unplugged USB)."""
    print("step 5: refusals and failures show in red (found 8); a forced failure shows")
    page.js("document.getElementById('fail-code').value='zz'")
    page.js("document.getElementById('fail').click()")
    page.wait("document.getElementById('message').textContent.includes('code must be a number')", "bad code refused")
    check(message(page)[1] == "err", "the refusal is red")
    page.js("document.getElementById('login-user').value='bob'")
    page.js("document.getElementById('login-pw').value='wrong'")
    page.js("document.getElementById('login').click()")
    page.wait("document.getElementById('message').textContent.startsWith('login')", "the login answered", 10)
    text, cls = message(page)
    check("login refused for bob" in text and cls == "err", f"a wrong password is a red failure: \"{text}\" ({cls})")
    check(page.text("user").startswith("alice"), "alice is still logged in")
    page.js("document.getElementById('copy-drive').value='1'")
    page.js("document.getElementById('copy').click()")
    page.wait("document.getElementById('message').textContent.startsWith('copy')", "the copy answered", 10)
    text, cls = message(page)
    check("not plugged in" in text and cls == "err", f"a copy to unplugged USB memory 1 is a red failure: \"{text}\" ({cls})")
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
    page.screenshot(os.path.join(out, "05-failures.png"))


def server_gone(check, d, page, out):
    """Found 11: with the server stopped the page kept showing the old state, and keys showed nothing."""
    print("step 6: the server stops; the page says so (found 11)")
    d.stop()
    try:
        page.wait("document.getElementById('offline') && getComputedStyle(document.getElementById('offline')).display !== 'none'",
                  "the page says the server does not answer", 5)
        check(True, "the page says the server does not answer")
    except AssertionError as e:
        check(False, str(e))
    page.js("key('home')")
    time.sleep(0.5)
    text, cls = message(page)
    check("does not answer" in text and cls == "err", f"a key press says the server does not answer: \"{text}\" ({cls})")
    page.screenshot(os.path.join(out, "06-server-gone.png"))


def main():
    a = demo_arguments(
        ("--presses", dict(type=int, default=20)),
        ("--keep-going", dict(action="store_true", help="run every step, list the failures at the end")))

    chromium = find_chromium()
    if chromium is None:
        print("SKIPPED: no Chromium on this machine (Debian package 'chromium'; scripts/setup.sh installs it)")
        return SKIP

    shutil.rmtree(a.out, ignore_errors=True)
    os.makedirs(a.out)
    check = Checks(a.keep_going)
    d = Demo(a.java, a.classpath, a.libs, a.out, "panel", args=["--pace", "100"])
    print(f"panel at http://127.0.0.1:{d.port}/")
    profile = tempfile.mkdtemp(prefix="panel-chromium-")
    browser = None
    try:
        browser, page = start_browser(chromium, profile, a.out)
        steps = [hostile_page, loads, lambda c, d, p, o: keys(c, d, p, o, a.presses), card_and_scan, failures, server_gone]
        for step in steps:
            try:
                step(check, d, page, a.out)
            except (AssertionError, RuntimeError, TypeError) as e:
                if not a.keep_going:
                    raise
                check(False, f"{getattr(step, '__name__', 'step')}: {e}")
        return check.result("panel in headless Chromium")
    finally:
        if browser is not None:
            browser.terminate()
            try:
                browser.wait(10)
            except subprocess.TimeoutExpired:
                browser.kill()
        d.stop()
        shutil.rmtree(profile, ignore_errors=True)


if __name__ == "__main__":
    run(main)
