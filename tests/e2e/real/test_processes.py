"""Other processes: an editor's controls, a second instance of the program, a missing library."""
import json
import time

from driver import processes
from real.stage import RealTest, window_call

MISSING_LIBRARY = 53
WAIT_SECONDS = 15
SHIFT, RETURN = 16, 13


class PreviousWindow(RealTest):
    def test_line_break_reaches_the_focused_control_of_the_editor(self):
        def control(name, top):
            return {"id": name, "type": "edit", "name": name, "value": "", "bounds": [120, top, 880, top + 100]}

        report = self.run_scenario({
            "desktop": {"windows": [
                {"id": "editor", "process": "Code.exe", "title": "notes", "bounds": [100, 100, 900, 700],
                 "elements": [control("search", 160), control("text", 300), control("terminal", 500)]},
                {"id": "mail", "process": "mail.exe", "title": "Mail", "bounds": [300, 200, 1100, 800],
                 "elements": [{"id": "body", "type": "edit", "name": "Body", "value": "", "bounds": [310, 300, 1000, 700]}]},
            ]},
            "steps": [
                {"user": {"foreground": "mail"}}, {"do": [{"focus": "body"}], "window": "mail"},
                {"user": {"foreground": "editor"}}, {"do": [{"focus": "text"}], "window": "editor"},
                {"user": {"foreground": "main"}}, window_call("sendNewLineToPreviousWindow"),
            ],
        })
        self.assertEqual(report["replies"][0]["value"], {"success": True})
        keys = [(key["window"], key["element"], key["vk"], key["up"]) for key in report["input"]]
        self.assertEqual(keys, [("editor", "text", SHIFT, False), ("editor", "text", RETURN, False),
                                ("editor", "text", RETURN, True), ("editor", "text", SHIFT, True)])


class SecondInstance(RealTest):
    def test_it_is_raised_by_its_process_and_asked_for_its_tool_box(self):
        page_file = self.file_of({"steps": [{"wait": 5000}]}, "content-page")
        page_report = self.session.programs.work / "real" / "content-page-report.json"
        page_report.unlink(missing_ok=True)
        own_file = self.file_of({"steps": []}, "raising")
        second = {}

        def start_second():
            second["errors"] = open(self.session.folder / "second.txt", "wb")
            second["host"] = self.session.start_beside(
                [self.session.folder / "orvane.exe", "--orvane-content-page=x"], second["errors"],
                ORVANE_SCENARIO=processes.windows_path(page_file), ORVANE_REPORT=processes.windows_path(page_report))
            window = self.await_window("main")
            second["process"] = window["process"]
            second["bounds"] = window["bounds"]
            # The one that raises is in front before it does.
            self.file_of({"steps": [{"user": {"foreground": "main"}}, {"wait": 400}, window_call(
                "activateContentProcess", {"processId": window["process"], "showToolBoxMenu": 1})]}, "raising")

        def look():
            second["inFront"] = [window["process"] for window in self.session.windows() if window["isInFront"]]
            second["exitCode"] = second["host"].wait(WAIT_SECONDS)

        report = self.session.watch(own_file, before=start_second, at_end=look)
        second["errors"].close()
        # The reply isn't looked at: it asks for the foreground at once, which Wine moves a moment later.
        self.assertEqual([reply["kind"] for reply in report["replies"]], ["success"])
        self.assertEqual(second["inFront"], [second["process"]])
        self.assertEqual(second["bounds"], [-32000, -32000, -30720, -31280])
        self.assertEqual((report["exitCode"], second["exitCode"]), (0, 0))
        page = json.loads(page_report.read_text(encoding="utf-8"))
        self.assertEqual([(call["channel"], call["method"]) for call in page["toInterface"]],
                         [("orvane/window", "showToolBoxMenu")])
        self.assertEqual(page["engine"]["entryPointArguments"], ["--orvane-content-page=x"])
        self.assertEqual(report["toInterface"], [])

    def await_window(self, name):
        deadline = time.monotonic() + WAIT_SECONDS
        while time.monotonic() < deadline:
            for window in self.session.windows():
                if window["name"] == name and window["isShown"]:
                    return window
            time.sleep(0.05)
        raise AssertionError(f"no window {name} appeared")


class Start(RealTest):
    def test_missing_embedding_library_ends_the_program_at_once(self):
        folder = self.session.programs.work / "alone"
        folder.mkdir(parents=True, exist_ok=True)
        host = folder / "orvane.exe"
        host.write_bytes(self.session.programs.host.read_bytes())
        exit_code, _ = self.session.run_program([host], WAIT_SECONDS)
        self.assertEqual(exit_code, MISSING_LIBRARY)

    def test_flags_reach_the_interface_in_order(self):
        arguments = ["--orvane-open-toolbox", "two words", "", 'say "hi"', "豆包 😀", "--orvane-content-page=/chat?id=7"]
        report = self.run_scenario({"arguments": arguments, "steps": []})
        self.assertEqual(report["engine"]["entryPointArguments"], arguments)
        self.assertEqual(report["engine"]["plugins"], ["DesktopDropPlugin", "UrlLauncherWindows", "WebviewWindowsPlugin"])

    def test_malformed_messages_are_told_on_the_error_stream(self):
        scenario = self.shipped("channel/malformed-messages.json")
        file = self.file_of(scenario)
        report, expected = self.session.watch(file), self.simulated(file)
        self.assertGreater(len(report["stderr"]), 0)
        self.assertEqual(report["stderr"], expected["stderr"])
        told = [[(reply["kind"], reply.get("replyHex")) for reply in one["replies"]] for one in (expected, report)]
        self.assertEqual(*told)
