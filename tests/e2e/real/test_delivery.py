"""Prompts on their way through the real clipboard and real keys, and a foreground that is taken away."""
import json

from real.stage import RealTest

MEBIBYTE = 1 << 20
# Of each kind of sign some: one, two, three and four bytes long in UTF-8.
PIECE = "Lease clause: 房租押金, شروط العقد, größer, 😀👩‍👩‍👧 𠮷;\r\n\tindented\ttwice\r\n"


def long_text():
    """Exactly one mebibyte in UTF-8, with an end of its own."""
    end = "; the very end"
    text = PIECE * (MEBIBYTE // len(PIECE.encode()))
    while len((text + end).encode()) > MEBIBYTE:
        text = text[:-1]
    return text + "." * (MEBIBYTE - len((text + end).encode())) + end


class Delivery(RealTest):
    def scenario(self, prompt=None, rule=None):
        """Claude's page among other windows: activation and delivery, no answer awaited."""
        scenario = self.shipped("run/claude.json")
        del scenario["expect"], scenario["name"]
        scenario["steps"] = scenario["steps"][:2]
        if prompt is not None:
            scenario["desktop"]["clipboard"]["text"] = prompt
        if rule is not None:
            chat = next(window for window in scenario["desktop"]["windows"] if window["id"] == "chat")
            chat.setdefault("rules", []).append(rule | {"times": 1})
        return scenario

    def strokes(self, report):
        """The keys that went down, and where."""
        return [(key["window"], key["element"], key["vk"]) for key in report["input"] if not key["up"]]


class Prompt(Delivery):
    def assert_arrives_alone(self, prompt):
        report = self.run_scenario(self.scenario(prompt))
        self.assertTrue(report["replies"][1]["value"]["success"])
        values = report["desktop"]["values"]
        # Not by assertEqual: its message would hold a text of any length twice.
        self.assertTrue(values["chat/lastMessage"] == prompt, "another text came to the page")
        self.assertEqual(values["chat/composer"], "")
        others = [value for name, value in values.items() if name != "chat/lastMessage" and value]
        self.assertFalse(any(piece in value for value in others for piece in self.pieces(prompt)))
        self.assertEqual({window for window, _, _ in self.strokes(report)}, {"chat"})
        self.assert_is_told_nowhere(report, prompt)

    def assert_is_told_nowhere(self, report, prompt):
        told = json.dumps([report["replies"], report["toInterface"], report["stderr"]], ensure_ascii=False)
        octets = "".join(reply.get("replyHex") or "" for reply in report["replies"])
        for piece in self.pieces(prompt):
            self.assertNotIn(piece, told)
            self.assertNotIn(piece.encode().hex(), octets)

    @staticmethod
    def pieces(prompt):
        """Parts of it by which it is known wherever it shows up."""
        return [piece for piece in (prompt[:12], prompt[len(prompt) // 2:][:12], prompt[-12:]) if piece]

    def test_every_script_line_breaks_and_tabs_arrive_unchanged_and_nowhere_else(self):
        self.assert_arrives_alone(PIECE + "\r\n\t\tالخلاصة: 三个问题 🏳️‍🌈")

    def test_one_mebibyte_arrives_unchanged_and_nowhere_else(self):
        text = long_text()
        self.assertEqual(len(text.encode()), MEBIBYTE)
        self.assert_arrives_alone(text)


class ForegroundTaken(Delivery):
    AWAY = [{"foreground": "editor"}]

    def take(self, on, after, keys):
        scenario = self.scenario(rule={"on": on, "after": after, "do": self.AWAY})
        file = self.file_of(scenario)
        report = self.session.watch(file)
        answer = report["replies"][1]["value"]
        self.assertFalse(answer["success"])
        self.assertIn("Prompt focus could not be verified", json.dumps(answer))
        self.assertEqual([key for window, _, key in self.strokes(report) if window == "chat"], keys)
        self.assertEqual([stroke for stroke in self.strokes(report) if stroke[0] != "chat"], [])
        self.assertEqual(report["desktop"]["values"]["editor/source"], "# Lease\n\n- deposit\n- repairs\n")
        self.assertEqual(report["desktop"]["foreground"], "editor")
        self.assert_agrees_with_simulation(file, report)

    def test_while_the_page_settles_nothing_is_typed(self):
        self.take({"time": 1700}, 0, [])

    def test_while_the_prompt_box_is_proven_nothing_is_typed(self):
        self.take({"focus": "composer"}, 120, [])

    def test_while_the_paste_settles_nothing_more_is_typed(self):
        self.take({"paste": "composer"}, 500, [0x11, 0x41, 0x11, 0x56])

    def test_after_send_nothing_more_is_typed(self):
        self.take({"invoke": "send"}, 300, [0x11, 0x41, 0x11, 0x56])
