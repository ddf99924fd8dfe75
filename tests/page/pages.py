"""Pages of runs, as the tests look at them."""
import json
import re
import subprocess
from pathlib import Path

SCENARIOS = Path(__file__).resolve().parents[1] / "scenarios"
DATA = re.compile(r'<script type="application/json" id="run">(.*?)</script>', re.DOTALL)

DELIVERED = SCENARIOS / "run" / "claude.json"
NOT_DELIVERED = SCENARIOS / "delivery" / "claude-text-remains-after-retry-fails-at-once.json"
MANY_WINDOWS = SCENARIOS / "activation" / "gemini-in-a-minimised-window-among-topmost-hidden-and-deaf-ones.json"
MENUS = SCENARIOS / "day" / "menus-over-the-day.json"
TWO_SCREENS = SCENARIOS / "day" / "second-screen.json"

# What would end the data's element, open a comment or a script in it, or end a line of a script.
HOSTILE = "</script><script>hostile=1</script><!-- <script> ]]> &lt;b&gt; \u2028\u2029\"'\\ <img src=x onerror=hostile=1>"


def hostile_scenario():
    """Every text that a page shows is hostile."""
    edit = {"id": "composer", "type": "edit", "name": HOSTILE, "value": HOSTILE, "bounds": [100, 600, 900, 660]}
    tab = {"title": HOSTILE, "address": HOSTILE, "selected": True, "page": [edit]}
    return {
        "name": HOSTILE,
        "desktop": {"windows": [{"id": HOSTILE, "process": "chrome.exe", "bounds": [50, 50, 1000, 900], "tabs": [tab]},
                                {"id": "plain", "title": HOSTILE, "bounds": [1100, 50, 1500, 900]}],
                    "foreground": HOSTILE, "clipboard": {"text": HOSTILE, "html": HOSTILE}},
        "steps": [{"call": {"channel": "orvane/browser", "method": "activateProvider",
                            "arguments": {"name": HOSTILE, "domain": HOSTILE, "patterns": [HOSTILE]}}, "as": HOSTILE},
                  {"call": {"channel": HOSTILE, "method": HOSTILE, "arguments": {HOSTILE: HOSTILE}}},
                  {"user": {"switchTab": {"window": HOSTILE, "title": HOSTILE}}}],
        "expect": {"desktop": {"values": {HOSTILE + "/composer": "other"}}},
    }


def as_real(report):
    """A simulated run's report in the form that orvane-sim is given of the real program's."""
    real = {key: value for key, value in report.items()
            if key not in ("virtualMs", "platformCalls", "shell", "attributes", "posted", "live")}
    real |= {"realMs": report["virtualMs"], "virtualMs": report["virtualMs"], "painted": []}
    real["replies"] = [{key: value for key, value in reply.items() if key != "stepMs"} for reply in report["replies"]]
    real["input"] = [{key: value for key, value in event.items() if key != "batch"} for event in report["input"]]
    return real


def run(simulator, *arguments):
    return subprocess.run([str(simulator), *map(str, arguments)], capture_output=True, text=True, check=False)


def make(simulator, page, scenario, *options):
    """Writes a page and gives what orvane-sim said."""
    return run(simulator, *options, "--html", page, scenario)


def data_of(page):
    """The run inside a page."""
    return json.loads(DATA.search(Path(page).read_text(encoding="utf-8")).group(1))
