"""What the program of each part does besides measuring: it is told where, and writes its rows."""
import argparse
import json
import sys
from pathlib import Path


def option_parser(description):
    parser = argparse.ArgumentParser(description=description, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", type=Path, required=True, help="the folder of what is measured")
    parser.add_argument("--out", type=Path, required=True, help="the file for the rows")
    parser.add_argument("--brief", action="store_true", help="in seconds, with room for noise")
    return parser


def write_rows(name, options, measure, failures):
    """Writes what `measure()` gives. One of `failures` is told on the error stream and ends the program."""
    try:
        rows = measure()
    except failures as failure:
        sys.exit(f"{name}: {failure}")
    options.out.write_text(json.dumps({"rows": rows}, indent=2, ensure_ascii=False) + "\n", encoding="utf-8")
