"""Processes of a session: each in a process group of its own, ended by it."""
import os
import signal
import subprocess

END_SECONDS = 3


def start(command, **options):
    return subprocess.Popen(command, start_new_session=True, stdin=options.pop("stdin", subprocess.DEVNULL), **options)


def end(process):
    """Asks the process's group to end, and insists."""
    for way in (signal.SIGTERM, signal.SIGKILL):
        if process.poll() is not None:
            return
        try:
            os.killpg(process.pid, way)
            process.wait(END_SECONDS)
        except (ProcessLookupError, PermissionError, subprocess.TimeoutExpired):
            continue


def end_on_signal():
    """From now on a request to end this program ends what it started, too, as any way out of it does."""
    def leave(number, _):
        raise SystemExit(128 + number)

    signal.signal(signal.SIGTERM, leave)


def windows_path(path):
    """A path of this machine as a program under Wine names it."""
    return "Z:" + str(path).replace("/", "\\")
