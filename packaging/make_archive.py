#!/usr/bin/env python3
"""Packs files so that the same files and time give the same bytes.

make_archive.py ARCHIVE FOLDER --epoch SECONDS [--sums]

ARCHIVE's entries lie in a folder of its own name, sorted, with one time and one mode. --sums adds a
file SHA256SUMS of all others.
"""
import argparse
import datetime
import hashlib
import sys
import zipfile
from pathlib import Path

SUMS = "SHA256SUMS"
# A zip file knows no earlier time.
EARLIEST = datetime.datetime(1980, 1, 1, tzinfo=datetime.timezone.utc)
FILE_MODE = 0o100644
UNIX = 3


def sums_of(contents):
    return "".join(f"{hashlib.sha256(data).hexdigest()}  {name}\n" for name, data in sorted(contents.items())).encode()


def pack(contents, folder, epoch):
    """Name -> bytes in an archive's order, as entries with equal heads."""
    time = max(datetime.datetime.fromtimestamp(epoch, datetime.timezone.utc), EARLIEST)
    for name, data in sorted(contents.items()):
        entry = zipfile.ZipInfo(f"{folder}/{name}", time.timetuple()[:6])
        entry.compress_type = zipfile.ZIP_DEFLATED
        entry.create_system = UNIX
        entry.external_attr = FILE_MODE << 16
        yield entry, data


def read_folder(folder):
    return {file.relative_to(folder).as_posix(): file.read_bytes() for file in folder.rglob("*") if file.is_file()}


def main():
    parser = argparse.ArgumentParser(description="Packs a folder reproducibly.")
    parser.add_argument("archive", type=Path)
    parser.add_argument("folder", type=Path)
    parser.add_argument("--epoch", type=int, required=True)
    parser.add_argument("--sums", action="store_true")
    options = parser.parse_args()
    contents = read_folder(options.folder)
    if not contents:
        sys.exit(f"{options.folder}: nothing to pack")
    if options.sums:
        contents[SUMS] = sums_of(contents)
    with zipfile.ZipFile(options.archive, "w", compresslevel=9) as archive:
        for entry, data in pack(contents, options.archive.stem, options.epoch):
            archive.writestr(entry, data)
    return 0


if __name__ == "__main__":
    sys.exit(main())
