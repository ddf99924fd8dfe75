"""Headless Chromium, spoken to over a pipe."""
import base64
import json
import os
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path

NAMES = ("chromium", "chromium-browser")
FLAGS = ("--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
         "--disable-background-networking", "--disable-component-update", "--disable-sync", "--disable-dev-shm-usage",
         "--hide-scrollbars", "--remote-debugging-pipe")
ANSWER_SECONDS = 30


class BrowserError(Exception):
    """The browser isn't there, or didn't do what it was asked; the text says why."""


def find():
    """The path of the browser."""
    for name in NAMES:
        path = shutil.which(name)
        if path is not None:
            return path
    raise BrowserError("Chromium isn't there (Debian's package chromium)")


class Browser:
    """As a context: one browser with one page; it ends with the context."""

    def __init__(self):
        self._program = find()
        self._number = 0
        self._buffer = b""
        self.events = []

    def __enter__(self):
        self._profile = tempfile.mkdtemp(prefix="orvane-page-")
        to_child, self._write = os.pipe()
        self._read, from_child = os.pipe()

        def lay_pipes():
            # The browser reads descriptor 3 and writes descriptor 4.
            inward, outward = os.dup(to_child), os.dup(from_child)
            os.dup2(inward, 3)
            os.dup2(outward, 4)

        self._process = subprocess.Popen(
            [self._program, *FLAGS, f"--user-data-dir={self._profile}", "about:blank"], stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, close_fds=False, preexec_fn=lay_pipes,
            start_new_session=True)
        os.close(to_child)
        os.close(from_child)
        os.set_blocking(self._read, False)
        try:
            self._session = None
            targets = self.ask("Target.getTargets")["targetInfos"]
            page = next(target for target in targets if target["type"] == "page")
            self._session = self.ask("Target.attachToTarget", targetId=page["targetId"], flatten=True)["sessionId"]
            for domain in ("Page", "Runtime", "Log", "Network"):
                self.ask(f"{domain}.enable")
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        os.close(self._write)
        os.close(self._read)
        try:
            self._process.wait(3)
        except subprocess.TimeoutExpired:
            os.killpg(self._process.pid, signal.SIGKILL)
            self._process.wait()
        shutil.rmtree(self._profile, ignore_errors=True)

    def ask(self, method, **parameters):
        """One question of the devtools protocol, and its answer. Events that come meanwhile are kept."""
        self._number += 1
        message = {"id": self._number, "method": method, "params": parameters}
        if self._session is not None:
            message["sessionId"] = self._session
        os.write(self._write, json.dumps(message).encode() + b"\0")
        deadline = time.monotonic() + ANSWER_SECONDS
        while True:
            answer = self._next(deadline, method)
            if answer.get("id") != self._number:
                self.events.append(answer)
            elif "error" in answer:
                raise BrowserError(f"{method}: {answer['error']['message']}")
            else:
                return answer["result"]

    def _next(self, deadline, method):
        while b"\0" not in self._buffer:
            try:
                read = os.read(self._read, 1 << 16)
                if not read:
                    raise BrowserError(f"{method}: the browser has ended")
                self._buffer += read
            except BlockingIOError:
                if time.monotonic() > deadline:
                    raise BrowserError(f"{method}: no answer in {ANSWER_SECONDS} s") from None
                time.sleep(0.005)
        message, self._buffer = self._buffer.split(b"\0", 1)
        return json.loads(message)

    def open(self, file):
        """Loads a file and waits until it stands."""
        self.events.clear()
        self.ask("Page.navigate", url=Path(file).resolve().as_uri())
        deadline = time.monotonic() + ANSWER_SECONDS
        while not any(event.get("method") == "Page.loadEventFired" for event in self.events):
            if time.monotonic() > deadline:
                raise BrowserError(f"{file}: didn't load")
            self.run("0")
            time.sleep(0.01)

    def run(self, expression):
        """The value of a script's expression."""
        answer = self.ask("Runtime.evaluate", expression=expression, returnByValue=True, awaitPromise=True)
        if "exceptionDetails" in answer:
            raise BrowserError(f"{expression}: {answer['exceptionDetails']}")
        return answer["result"].get("value")

    def press(self, key, code=0):
        """A key goes down and up."""
        for kind in ("keyDown", "keyUp"):
            self.ask("Input.dispatchKeyEvent", type=kind, key=key, code=key, windowsVirtualKeyCode=code)

    def look(self, width=1280, height=900, scheme="light", media="", motion="no-preference"):
        """The size of the page's window and what its style is asked to suit."""
        self.ask("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1, mobile=False)
        self.ask("Emulation.setEmulatedMedia", media=media, features=[
            {"name": "prefers-color-scheme", "value": scheme}, {"name": "prefers-reduced-motion", "value": motion}])

    def take_picture(self, file):
        """The whole page, as PNG."""
        size = self.ask("Page.getLayoutMetrics")["cssContentSize"]
        clip = {"x": 0, "y": 0, "width": size["width"], "height": min(size["height"], 16000), "scale": 1}
        data = self.ask("Page.captureScreenshot", format="png", captureBeyondViewport=True, clip=clip)["data"]
        Path(file).write_bytes(base64.b64decode(data))

    def print(self):
        """The page as PDF."""
        return base64.b64decode(self.ask("Page.printToPDF", printBackground=True, paperWidth=8.27, paperHeight=11.69)["data"])

    def complaints(self):
        """What the console was told, errors and warnings of the page among it."""
        kinds = ("Runtime.consoleAPICalled", "Runtime.exceptionThrown", "Log.entryAdded")
        return [event["params"] for event in self.events if event.get("method") in kinds]

    def requests(self):
        """The addresses that were asked for."""
        return [event["params"]["request"]["url"] for event in self.events if event.get("method") == "Network.requestWillBeSent"]
