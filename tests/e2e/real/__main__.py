"""Asks of orvane.exe under Wine what only the real world shows: python3 tests/e2e/real --help."""
import sys
from pathlib import Path

sys.path[0] = str(Path(__file__).resolve().parents[1])

from real.suite import main  # noqa: E402

if __name__ == "__main__":
    sys.exit(main())
