"""A Windows of Wine's that is kept from run to run, set up once for each scale."""
import fcntl
import os
import shutil
import subprocess
from pathlib import Path

from driver import processes

SET_UP_SECONDS = 180
# In twentieths of a point, below zero: 8 pixels and 31 at the top at 96 dpi, 12 and 47 at 144.
FRAMES = {96: {"padded_border": -60, "caption": -330}, 144: {"padded_border": -70, "caption": -340}}
# A change of what a prefix holds makes it anew.
EDITION = 5

SETTINGS = r"""REGEDIT4

[HKEY_CURRENT_USER\Software\Wine\X11 Driver]
"Managed"="N"

[HKEY_CURRENT_USER\Software\Wine\WineDbg]
"ShowCrashDialog"=dword:00000000

[HKEY_CURRENT_USER\Control Panel\Desktop]
"LogPixels"=dword:{dpi:08x}

; Frames as wide as those of Windows.
[HKEY_CURRENT_USER\Control Panel\Desktop\WindowMetrics]
"PaddedBorderWidth"="{padded_border}"
"CaptionHeight"="{caption}"

; Addresses that a scenario opens go nowhere.
[HKEY_LOCAL_MACHINE\Software\Classes\http\shell\open\command]
@="C:\\windows\\system32\\cmd.exe /c exit"

[HKEY_LOCAL_MACHINE\Software\Classes\https\shell\open\command]
@="C:\\windows\\system32\\cmd.exe /c exit"
"""

SERVER = r"""
[HKEY_LOCAL_MACHINE\Software\Classes\CLSID\{class_id}\InprocServer32]
@="{path}"
"ThreadingModel"="Both"
"""

SERVERS = {
    "{FF48DBA4-60EF-4201-AA87-54103EEF594E}": "orvane_automation.dll",
    "{7AB36653-1796-484B-BDFA-E74F1DB7C1DC}": "orvane_spelling.dll",
}


class PrefixError(Exception):
    """A prefix that can't be set up; the text says why."""


class Prefix:
    """One prefix, held by one driver at a time, with its server running meanwhile."""

    def __init__(self, folder, dpi, standins):
        self.folder = Path(folder) / f"prefix-{dpi}"
        self._dpi = dpi
        self._standins = standins
        self._lock = None

    def environment(self, display):
        kept = {name: value for name, value in os.environ.items() if not name.startswith(("WINE", "ORVANE_"))}
        return kept | {
            "WINEPREFIX": str(self.folder),
            "WINEARCH": "win64",
            "WINEDEBUG": "-all",
            # The compositor beside the program, no debugger on a crash, no packages that a prefix would fetch.
            "WINEDLLOVERRIDES": "dwmapi=n,b;winedbg.exe=d;mscoree=;mshtml=",
            "DISPLAY": display,
            "LC_ALL": "C.UTF-8",
        }

    def hold(self, display, say):
        """Waits until no other driver uses the prefix, then makes it ready."""
        self.folder.parent.mkdir(parents=True, exist_ok=True)
        self._lock = open(self.folder.with_suffix(".lock"), "w")
        try:
            fcntl.flock(self._lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except BlockingIOError:
            say("Waiting for another run …")
            fcntl.flock(self._lock, fcntl.LOCK_EX)
        environment = self.environment(display)
        # What an ended driver may have left behind.
        self._end_server(environment)
        is_made = self._mark("made") == str(EDITION)
        if not is_made:
            shutil.rmtree(self.folder, ignore_errors=True)
            self.folder.mkdir()
        self._start_server(environment)
        if not is_made:
            say("Setting up Wine …")
            self._make(environment)
        self._register(environment)

    def release(self, display):
        if self._lock is not None:
            self._end_server(self.environment(display))
            self._lock.close()

    def _make(self, environment):
        self._run(["wineboot", "-i"], environment)
        self._run(["winecfg", "-v", "win10"], environment)
        self._import(SETTINGS.format(dpi=self._dpi, **FRAMES[self._dpi]), environment)
        self._set_mark("made", str(EDITION))

    def _register(self, environment):
        """Puts the stand-ins of COM classes in the place of Wine's."""
        servers = "REGEDIT4\n" + "".join(
            SERVER.format(class_id=class_id,
                          path=processes.windows_path(self._standins / name).replace("\\", "\\\\"))
            for class_id, name in SERVERS.items())
        if self._mark("servers") != servers:
            self._import(servers, environment)
            self._set_mark("servers", servers)

    def _import(self, text, environment):
        file = self.folder / "orvane.reg"
        file.write_text(text, encoding="ascii")
        self._run(["regedit", "/S", processes.windows_path(file)], environment)

    def _run(self, command, environment):
        process = processes.start(["wine", *command], env=environment, stdout=subprocess.DEVNULL,
                                  stderr=subprocess.DEVNULL)
        try:
            if process.wait(SET_UP_SECONDS) != 0:
                raise PrefixError(f"wine {command[0]} ended with status {process.returncode}")
        except subprocess.TimeoutExpired as error:
            raise PrefixError(f"wine {command[0]} didn't end") from error
        finally:
            processes.end(process)

    @staticmethod
    def _start_server(environment):
        # Otherwise the server ends with its last client, and each run starts it anew.
        subprocess.run(["wineserver", "-p"], env=environment, check=True, stdin=subprocess.DEVNULL)

    @staticmethod
    def _end_server(environment):
        if Path(environment["WINEPREFIX"]).is_dir():
            subprocess.run(["wineserver", "-k"], env=environment, check=False, stdin=subprocess.DEVNULL,
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            subprocess.run(["wineserver", "-w"], env=environment, check=False, stdin=subprocess.DEVNULL, timeout=30)

    def _mark(self, name):
        file = self.folder / f"orvane-{name}"
        return file.read_text(encoding="utf-8") if file.is_file() else None

    def _set_mark(self, name, text):
        (self.folder / f"orvane-{name}").write_text(text, encoding="utf-8")
