#!/usr/bin/env python3
"""Spoils copies of the program one way each; check_exe.py must object to every one.

check_exe_test.py PROGRAM VERSION SOURCE_TREE
"""
import sys
import unittest
from pathlib import Path

from check_exe import complaints

PROGRAM, VERSION, ROOT = Path(sys.argv[1]), sys.argv[2], Path(sys.argv[3])


class CheckExe(unittest.TestCase):
    def assert_objects(self, subject, before, after, part_of_complaint):
        data = PROGRAM.read_bytes()
        self.assertIn(before, data)
        found = complaints(subject, data.replace(before, after), ROOT, VERSION)
        self.assertTrue(any(part_of_complaint in line for line in found), found)

    def test_imports_objects_when_a_function_is_missing(self):
        self.assert_objects("imports", b"FlutterDesktopEngineCreate\0", b"FlutterDesktopEngineCreatf\0",
                            "FlutterDesktopEngineCreate isn't imported")

    def test_imports_objects_when_a_plugin_is_missing(self):
        self.assert_objects("imports", b"desktop_drop_plugin.dll", b"desktop_drap_plugin.dll",
                            "desktop_drop_plugin.dll: DesktopDropPluginRegisterWithRegistrar isn't imported")

    def test_tool_objects_to_the_program_itself(self):
        found = complaints("tool", PROGRAM.read_bytes(), ROOT, VERSION)
        self.assertTrue(any("it would print nothing" in line for line in found), found)
        self.assertTrue(any("flutter_windows.dll is no library of Windows" in line for line in found), found)

    def test_imports_objects_when_the_compilers_runtime_is_needed(self):
        self.assert_objects("imports", b"USER32.dll\0", b"libgcc.dll\0", "libgcc.dll is no library of Windows")

    def test_resources_objects_when_the_awareness_differs(self):
        self.assert_objects("resources", b">PerMonitorV2<", b">PerMonitorV1<", "dpiAwareness")

    def test_resources_objects_when_the_level_differs(self):
        self.assert_objects("resources", b'"asInvoker"', b'"asManager"', "requestedExecutionLevel")

    def test_resources_objects_when_the_version_differs(self):
        found = complaints("resources", PROGRAM.read_bytes(), ROOT, "65535.4.3")
        self.assertEqual(len([line for line in found if "ersion" in line]), 4, found)

    def test_resources_objects_when_the_picture_is_cut(self):
        data = bytearray(PROGRAM.read_bytes())
        group = data.find(b"\0\0\1\0\4\0\x10\x10\0\0\1\0\x20\0")
        self.assertGreater(group, 0)
        data[group + 14] ^= 1
        self.assertTrue(any("missing or cut" in line for line in complaints("resources", bytes(data), ROOT, VERSION)))

    def test_every_subject_objects_when_the_file_is_no_program(self):
        for subject in ("kind", "imports", "resources"):
            self.assertTrue(complaints(subject, b"MZ" + bytes(200), ROOT, VERSION))

    def test_kind_objects_when_it_would_open_a_console(self):
        data = bytearray(PROGRAM.read_bytes())
        header = int.from_bytes(data[0x3C:0x40], "little")
        data[header + 24 + 68] = 3
        self.assertTrue(any("console" in line for line in complaints("kind", bytes(data), ROOT, VERSION)))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
