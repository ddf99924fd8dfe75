"""Plays scenarios with orvane.exe itself: python3 tests/e2e --help."""
import sys

from driver.main import main

if __name__ == "__main__":
    sys.exit(main())
