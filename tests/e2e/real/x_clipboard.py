"""The clipboard of the display, as a program that isn't a Windows one sees it."""
import contextlib
import subprocess
import time

from driver import processes

ANSWER_SECONDS = 5
# A change of the display's clipboard is seen by Windows programs a moment later.
SETTLING_SECONDS = 0.3


def read(display, target):
    """The bytes of one form; None: it isn't there."""
    result = subprocess.run(["xclip", "-display", display, "-selection", "clipboard", "-o", "-t", target], check=False,
                            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                            timeout=ANSWER_SECONDS)
    return result.stdout if result.returncode == 0 else None


@contextlib.contextmanager
def offered(display):
    """Gives a function that offers bytes as one form from then on, to the end of the context."""
    owners = []

    def offer(target, octets):
        owner = processes.start(["xclip", "-display", display, "-selection", "clipboard", "-quiet", "-i", "-t", target],
                                stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        owners.append(owner)
        owner.stdin.write(octets)
        owner.stdin.close()
        time.sleep(SETTLING_SECONDS)

    try:
        yield offer
    finally:
        for owner in owners:
            processes.end(owner)
