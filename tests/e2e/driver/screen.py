"""A virtual display of one monitor."""
import dataclasses
import os
import select
import subprocess

from driver import processes

START_SECONDS = 20


class ScreenError(Exception):
    """A screen that can't be had; the text says why."""


@dataclasses.dataclass(frozen=True)
class Screen:
    """A monitor at the origin, in pixels, and its scale."""

    width: int = 1920
    height: int = 1080
    work: tuple = (0, 0, 1920, 1040)
    dpi: int = 96

    @classmethod
    def of(cls, desktop):
        """The screen that a scenario's desktop asks for; ScreenError where a display can't be it."""
        monitors = desktop.get("monitors")
        if monitors is None:
            return cls()
        if len(monitors) != 1:
            raise ScreenError("more than one monitor")
        left, top, right, bottom = monitors[0]["bounds"]
        if (left, top) != (0, 0):
            raise ScreenError("a monitor away from the origin")
        return cls(right, bottom, tuple(monitors[0].get("work", monitors[0]["bounds"])), monitors[0].get("dpi", 96))


class Display:
    """Xvfb on the first free display number, with the work area of the screen's task bar."""

    def __init__(self, screen):
        self.screen = screen
        self.name = None
        self._server = None

    def __enter__(self):
        reader, writer = os.pipe()
        command = ["Xvfb", "-displayfd", str(writer), "-noreset", "-nolisten", "tcp", "-dpi", str(self.screen.dpi),
                   "-screen", "0", f"{self.screen.width}x{self.screen.height}x24"]
        self._server = processes.start(command, pass_fds=[writer], stdout=subprocess.DEVNULL,
                                       stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as numbers:
            ready, _, _ = select.select([numbers], [], [], START_SECONDS)
            number = numbers.readline().strip() if ready else ""
        if not number:
            self.__exit__()
            raise ScreenError("Xvfb didn't start")
        self.name = ":" + number
        self._set_work_area()
        return self

    def _set_work_area(self):
        left, top, right, bottom = self.screen.work
        area = f"{left}, {top}, {right - left}, {bottom - top}"
        subprocess.run(["xprop", "-root", "-display", self.name, "-f", "_NET_WORKAREA", "32c",
                        "-set", "_NET_WORKAREA", area], check=True, stdin=subprocess.DEVNULL)

    def take_picture(self, file):
        """A picture of the whole screen."""
        subprocess.run(["import", "-display", self.name, "-window", "root", str(file)], check=True,
                       stdin=subprocess.DEVNULL)

    def __exit__(self, *_):
        if self._server is not None:
            processes.end(self._server)
