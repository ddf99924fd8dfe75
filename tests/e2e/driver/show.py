"""A run of the real program as a person reads it."""
import json
import subprocess
import tempfile
from pathlib import Path


def with_prompt(file, prompt, folder):
    """A copy of a scenario with another text on its clipboard."""
    scenario = json.loads(Path(file).read_text(encoding="utf-8"))
    clipboard = scenario.setdefault("desktop", {}).setdefault("clipboard", {})
    clipboard.pop("textBlock", None)
    clipboard["text"] = prompt
    copy = Path(folder) / Path(file).name
    copy.parent.mkdir(parents=True, exist_ok=True)
    copy.write_text(json.dumps(scenario, ensure_ascii=False), encoding="utf-8")
    return copy


def print_run(simulator, file, report, page=None):
    """Prints the report in the words of orvane-sim, to where this program prints. `page`: where to leave it as a page."""
    report = dict(report)
    # What only the simulation knows, as far as it is printed.
    report.setdefault("painted", [])
    report["virtualMs"] = report.get("realMs", 0)
    with tempfile.TemporaryDirectory() as scratch:
        copy = Path(scratch) / "report.json"
        copy.write_text(json.dumps(report, ensure_ascii=False), encoding="utf-8")
        options = [] if page is None else ["--html", str(page)]
        subprocess.run([str(simulator), "--report", str(copy), *options, str(file)], check=True)


def has_succeeded(report):
    """Whether every reply that tells of success does so, and no call ended otherwise."""
    for reply in report["replies"]:
        value = reply["value"]
        if reply["kind"] != "success" or (isinstance(value, dict) and value.get("success") is False):
            return False
    return report["exitCode"] == 0
