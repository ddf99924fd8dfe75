"""The archive that ships: unpacked into a Windows of its own, its program does the main job."""
import hashlib
import json
import os
import re
import shutil
import subprocess
import sys
import zipfile
from pathlib import Path

from driver.compare import differences
from driver.run import LIBRARIES, Programs, Session
from driver.screen import Screen
from real.stage import RUN_SECONDS, RealTest

ROOT = Path(__file__).resolve().parents[3]
# Any time: the checkout may stand between two commits.
EPOCH = "1767225600"
TOOL = "orvane-snapshot"


class UnpackedSession(Session):
    """Plays with the program out of an archive, in the folder of a prefix of its own."""

    def __init__(self, programs, archive, say):
        super().__init__(programs, Screen(), say)
        self._archive = archive
        self._unpacked = self._prefix.folder / "drive_c" / "Apps"
        self._folder = self._unpacked / archive.stem

    @property
    def folder(self):
        return self._folder

    def _lay_out(self, images):
        shutil.rmtree(self._unpacked, ignore_errors=True)
        with zipfile.ZipFile(self._archive) as archive:
            archive.extractall(self._unpacked)
        for name in LIBRARIES:
            shutil.copyfile(self._programs.standins / f"{name}.dll", self._folder / f"{name}.dll")
        for image in {image.lower(): image for image in images}.values():
            shutil.copyfile(self._programs.standins / "browser.exe", self._folder / image)


class Archive(RealTest):
    def pack(self, output):
        """Runs ./package on the build that is played; the archives by the ends of their names."""
        build = self.session.programs.host.parent.parent
        done = subprocess.run([ROOT / "package", "--build", build, "--output", output], check=False,
                              env=os.environ | {"SOURCE_DATE_EPOCH": EPOCH}, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.assertEqual(done.returncode, 0, done.stdout.decode(errors="replace"))
        files = sorted(output.iterdir())
        self.assertEqual(len(files), 3)
        sums, symbols, programs = files
        self.assertTrue(sums.name.endswith("-SHA256SUMS") and symbols.name.endswith("-windows-x64-symbols.zip")
                        and programs.name.endswith("-windows-x64.zip"))
        return sums, symbols, programs

    def test_another_build_folder_gives_the_same_bytes(self):
        # The tool stands for both programs: they are built alike, and it is small.
        again = self.session.programs.work / "again"
        shutil.rmtree(again, ignore_errors=True)
        for command in (["--preset", "windows", "-B", again, f"-DCMAKE_RUNTIME_OUTPUT_DIRECTORY={again}/bin"],
                        ["--build", again, "--target", TOOL]):
            done = subprocess.run(["cmake", *command], cwd=ROOT, check=False, stdin=subprocess.DEVNULL,
                                  stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
            self.assertEqual(done.returncode, 0, done.stdout.decode(errors="replace"))
        first = self.session.programs.host.with_name(f"{TOOL}.exe").read_bytes()
        self.assertTrue(first == (again / "bin" / f"{TOOL}.exe").read_bytes(), "the bytes differ")
        shutil.rmtree(again)

    def test_no_program_tells_where_it_was_built(self):
        build = self.session.programs.host.parent.parent
        for program in (self.session.programs.host, self.session.programs.host.with_name(f"{TOOL}.exe")):
            # With its symbols, into which paths may go sign by sign.
            data = re.sub(rb"\W", b"_", program.read_bytes())
            for folder in (ROOT, build):
                self.assertTrue(re.sub(rb"\W", b"_", os.fsencode(folder)) not in data, f"{program.name}: {folder}")

    def assert_sums_hold(self, lines, contents):
        told = dict(reversed(line.split("  ")) for line in lines.splitlines())
        self.assertEqual(told, {name: hashlib.sha256(data).hexdigest() for name, data in contents.items()})

    def test_unpacked_it_carries_a_prompt_to_the_page(self):
        work = self.session.programs.work / "archive"
        shutil.rmtree(work, ignore_errors=True)
        first = self.pack(work / "first")
        second = self.pack(work / "second")
        self.assertEqual([file.read_bytes() for file in first], [file.read_bytes() for file in second])
        self.assert_content(*first)
        self.assert_plays(work, first[2])

    def assert_content(self, sums, symbols, programs):
        self.assert_sums_hold(sums.read_text(), {file.name: file.read_bytes() for file in (programs, symbols)})
        with zipfile.ZipFile(programs) as archive:
            contents = {name.removeprefix(f"{programs.stem}/"): archive.read(name) for name in archive.namelist()}
        self.assertEqual(sorted(contents), ["READ-ME.txt", "SHA256SUMS", "orvane-snapshot.exe", "orvane.exe"])
        self.assert_sums_hold(contents.pop("SHA256SUMS").decode(), contents)
        page = contents["READ-ME.txt"].decode()
        for name in (*LIBRARIES[1:], "icudtl.dat", "app.so", "flutter_assets"):
            self.assertIn(name, page)
        with zipfile.ZipFile(symbols) as archive:
            self.assertEqual(archive.namelist(), [f"{symbols.stem}/{name}.exe.debug"
                                                  for name in ("orvane-snapshot", "orvane")])

    def assert_plays(self, work, archive):
        scenario = self.shipped("run/claude.json")
        scenario["steps"] = scenario["steps"][:2]
        del scenario["expect"]
        file = self.file_of(scenario)
        programs = self.session.programs
        with UnpackedSession(Programs(programs.host, programs.standins, programs.simulator, work), archive,
                             lambda line: print(line, file=sys.stderr, flush=True)) as session:
            report = session.play(file, RUN_SECONDS)
            status, told = session.run_program([session.folder / "orvane-snapshot.exe", "--version"], RUN_SECONDS)
        self.assertTrue(report["replies"][1]["value"]["success"], json.dumps(report["replies"][1])[:1000])
        found = differences(self.simulated(file), report)
        self.assertEqual([], [str(difference) for difference in found if not difference.is_time])
        version = archive.stem.removeprefix("orvane-").removesuffix("-windows-x64")
        self.assertEqual((status, told), (0, f"orvane-snapshot {version}\n"))
        shutil.rmtree(work)
