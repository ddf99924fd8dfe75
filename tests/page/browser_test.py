#!/usr/bin/env python3
"""A run as a page, in headless Chromium: browser_test.py ORVANE_SIM."""
import json
import re
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))

import pages  # noqa: E402
from browser import Browser, BrowserError, find  # noqa: E402

SIMULATOR = Path(sys.argv.pop(1)).resolve() if len(sys.argv) > 1 else None
RUNS = {"delivered": pages.DELIVERED, "not-delivered": pages.NOT_DELIVERED, "many-windows": pages.MANY_WINDOWS,
        "menus": pages.MENUS, "two-screens": pages.TWO_SCREENS}
LEAST_CONTRAST = 4.5
NARROW = 320

# Each text of the page with its contrast against what lies behind it, the worst first.
CONTRASTS = """(() => {
  const parse = (color) => (color.match(/[\\d.]+/g) || []).map(Number);
  const light = (color) => {
    const [red, green, blue] = parse(color).map((part) => part / 255).map((part) =>
      (part <= 0.04045 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4));
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
  };
  const ratio = (one, other) => {
    const [low, high] = [light(one), light(other)].sort((a, b) => a - b);
    return (high + 0.05) / (low + 0.05);
  };
  const behind = (element) => {
    for (let at = element; at; at = at.parentElement) {
      const color = getComputedStyle(at).backgroundColor;
      if ((parse(color)[3] ?? 1) > 0 && color !== 'transparent') return color;
    }
    return 'rgb(255, 255, 255)';
  };
  const texts = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
  const found = [];
  while (texts.nextNode()) {
    const element = texts.currentNode.parentElement;
    if (!texts.currentNode.data.trim() || element.closest('script, noscript, svg') || !element.checkVisibility()) continue;
    found.push([ratio(getComputedStyle(element).color, behind(element)), texts.currentNode.data.trim().slice(0, 40)]);
  }
  const probe = document.body.appendChild(document.createElement('span'));
  const resolve = (name) => { probe.style.color = `var(--${name})`; return getComputedStyle(probe).color; };
  for (const under of ['window', 'bar', 'tab', 'field', 'press']) found.push([ratio(resolve('ink'), resolve(under)), `drawing: ink on ${under}`]);
  found.push([ratio(resolve('page'), resolve('ink')), 'drawing: page on ink']);
  probe.remove();
  return found.sort((one, other) => one[0] - other[0]);
})()"""

# Of each drawn window its place in pixels of the page, beside the place that it has on the desktop.
DRAWN = """[...document.querySelectorAll('.scene')].map((scene) => [...scene.querySelectorAll('.frame')].map((frame) => {
  const {x, y, width, height} = frame.getBoundingClientRect();
  return {bounds: frame.dataset.bounds.split(' ').map(Number), came: [x, y, x + width, y + height],
          id: frame.parentNode.dataset.window};
}))"""

# Of each bar among the waits its length and place in pixels.
BARS = """[...document.querySelectorAll('.timeline')].map((line) => [...line.querySelectorAll('.lane')].filter((lane) =>
  lane.getAttribute('aria-label').startsWith('Waits:')).flatMap((lane) => [...lane.querySelectorAll('.item')].map((item) => {
    const {x, width} = item.getBoundingClientRect();
    return {x, width, ms: Number(item.dataset.ms)};
  })))"""

ACTIVE = "(document.activeElement.getAttribute('aria-label') || document.activeElement.textContent).slice(0, 80)"


def make_pages(folder):
    """All pages that are looked at, by name."""
    made = {name: folder / f"{name}.html" for name in (*RUNS, "hostile", "real")}
    hostile = folder / "hostile.json"
    hostile.write_text(json.dumps(pages.hostile_scenario()), encoding="utf-8")
    for name, scenario in (*RUNS.items(), ("hostile", hostile)):
        result = pages.make(SIMULATOR, made[name], scenario)
        assert result.returncode == (1 if name == "hostile" else 0), result.stderr
    report = folder / "real.json"
    report.write_text(json.dumps(pages.as_real(pages.data_of(made["delivered"])["report"])), encoding="utf-8")
    result = pages.make(SIMULATOR, made["real"], pages.DELIVERED, "--report", report)
    assert result.returncode == 0, result.stderr
    return made


def setUpModule():
    """One browser for all tests."""
    folder = tempfile.TemporaryDirectory()
    unittest.addModuleCleanup(folder.cleanup)
    BrowserTest.pages = make_pages(Path(folder.name))
    BrowserTest.browser = Browser().__enter__()
    unittest.addModuleCleanup(BrowserTest.browser.__exit__)


class BrowserTest(unittest.TestCase):
    pages = None
    browser = None

    def open(self, name, **look):
        self.browser.look(**look)
        self.browser.open(self.pages[name])

    def text(self, selector):
        return self.browser.run(f"document.querySelector({json.dumps(selector)}).textContent")

    def count(self, selector):
        return self.browser.run(f"document.querySelectorAll({json.dumps(selector)}).length")


class Loading(BrowserTest):
    def test_no_page_complains_or_asks_for_anything(self):
        for name, page in self.pages.items():
            with self.subTest(name):
                self.open(name)
                self.assertEqual(self.browser.complaints(), [])
                self.assertEqual(self.browser.requests(), [page.resolve().as_uri()])
                self.assertGreater(self.count("main > section"), 4)

    def test_request_would_be_refused(self):
        self.open("delivered")
        came = self.browser.run("fetch('data:text/plain,x').then(() => 'went', () => 'refused')")
        self.assertEqual(came, "refused")
        self.assertIn("Content Security Policy", json.dumps(self.browser.complaints()))

    def test_hostile_texts_are_shown_as_texts(self):
        self.open("hostile")
        self.assertEqual(self.text("h1"), pages.HOSTILE)
        self.assertEqual(self.browser.run("typeof hostile"), "undefined")
        self.assertEqual(self.count("img, iframe, main script, main b"), 0)


class Words(BrowserTest):
    def test_verdict_says_whether_the_prompt_arrived_and_why(self):
        self.open("delivered")
        self.assertIn("The prompt arrived.", self.text(".verdict.good"))
        self.assertIn("composer is empty after Send", self.text(".verdict.good"))
        self.open("not-delivered")
        self.assertIn("The prompt did not arrive", self.text(".verdict.bad"))
        self.assertIn("FAIL: prompt still present after retry", self.text(".verdict.bad"))

    def test_unmet_expectations_stand_below_the_verdict(self):
        self.open("hostile")
        self.assertIn("expectations did not come true", self.text(".unmet"))
        self.open("delivered")
        self.assertEqual(self.count(".unmet"), 0)

    def test_trace_is_a_table_of_all_steps(self):
        self.open("many-windows")
        report = pages.data_of(self.pages["many-windows"])["report"]
        logs = report["replies"][0]["value"]["logs"]
        rows = self.browser.run("[...document.querySelectorAll('#call-1 .trace tbody tr')].map((row) => "
                                "[...row.cells].map((cell) => cell.textContent))")
        self.assertEqual([row[1] for row in rows], [entry["step"] for entry in logs])
        for row, entry, ms in zip(rows, logs, report["replies"][0]["stepMs"]):
            self.assertEqual(row[0], f"+ {ms} ms")
            self.assertTrue(row[2].endswith(entry["result"]), row)

    def test_prompt_stands_only_where_it_was_typed_and_on_the_clipboard(self):
        self.open("delivered")
        prompt = json.dumps(pages.data_of(self.pages["delivered"])["report"]["desktop"]["clipboard"]["text"])
        places = self.browser.run(
            "[...document.querySelectorAll('body *')].filter((element) => !element.closest('script') && "
            f"([...element.childNodes].some((node) => node.nodeType === 3 && node.data.includes({prompt})) || "
            f"[...element.attributes].some(({{value}}) => value.includes({prompt})))).map((element) => element.closest('section').id)")
        self.assertEqual(places, ["keys", "clipboard"])
        self.assertIn("the text of the clipboard, 57 characters", self.text("#fields"))

    def test_menus_tell_what_was_chosen(self):
        self.open("menus")
        self.assertRegex(self.text("#others"), r"A menu of 3 entries.*Entry 3 was chosen")

    def test_run_of_the_real_program_says_what_isnt_known(self):
        self.open("real")
        self.assertIn("by orvane.exe itself", self.text("header"))
        self.assertIn("The real program notes no time for a step", self.text("#call-2 .hint"))
        lanes = self.browser.run("[...document.querySelectorAll('#call-2 .laneName')].map((lane) => lane.textContent)")
        self.assertEqual(lanes, ["Keys", "Steps and verdicts"])


class Keys(BrowserTest):
    def test_tab_comes_to_the_skip_link_first_and_it_leads_to_the_run(self):
        self.open("delivered")
        self.browser.press("Tab", 9)
        self.assertEqual(self.browser.run(ACTIVE), "Skip to the run")
        self.assertGreaterEqual(self.browser.run("document.activeElement.getBoundingClientRect().x"), 0)
        self.assertNotEqual(self.browser.run("getComputedStyle(document.activeElement).outlineStyle"), "none")
        self.browser.ask("Input.dispatchKeyEvent", type="keyDown", key="Enter", windowsVirtualKeyCode=13, text="\r")
        self.assertEqual(self.browser.run("document.activeElement.id"), "main")

    def test_tab_comes_to_one_item_of_each_time_line(self):
        self.open("delivered")
        reached = []
        for _ in range(60):
            self.browser.press("Tab", 9)
            at = self.browser.run("document.activeElement.closest('.timeline') ? document.activeElement.closest('section').id : ''")
            if at:
                reached.append(at)
                self.assertNotEqual(self.browser.run("getComputedStyle(document.activeElement).outlineStyle"), "none")
            if self.browser.run("document.activeElement === document.body"):
                break
        # The box that scrolls may be one place more.
        self.assertEqual(sorted(set(reached)), ["call-1", "call-2"])
        self.assertLessEqual(len(reached), 4)

    def test_arrows_reach_every_item_and_show_its_details(self):
        for name, call in (("delivered", "call-2"), ("many-windows", "call-1")):
            with self.subTest(name):
                self.open(name)
                self.assertEqual(self.walk(call), self.count(f"#{call} .timeline .item"))
                self.assertEqual(self.count(f"#{call} .item[tabindex='0']"), 1)

    def walk(self, call):
        """How many items the arrow keys reached."""
        self.browser.run(f"document.querySelector('#{call} .item[tabindex=\"0\"]').focus()")
        lanes = self.count(f"#{call} .lane")
        for _ in range(lanes):
            self.browser.press("ArrowUp", 38)
        seen = 0
        for lane in range(lanes):
            items = self.count(f"#{call} .lane:nth-child({lane + 2}) .item")
            self.browser.press("Home", 36)
            for index in range(items):
                self.assertEqual(self.position(call), [lane, index])
                self.check_details(call)
                seen += 1
                self.browser.press("ArrowRight", 39)
            self.assertEqual(self.position(call), [lane, items - 1])
            self.browser.press("ArrowDown", 40)
        return seen

    def position(self, call):
        return self.browser.run(
            f"(() => {{ const at = document.activeElement; const lanes = [...document.querySelectorAll('#{call} .lane')];"
            " const lane = at.closest('.lane'); return [lanes.indexOf(lane), [...lane.querySelectorAll('.item')].indexOf(at)]; })()")

    def check_details(self, call):
        label, details = self.browser.run(f"[document.activeElement.getAttribute('aria-label'), document.querySelector('#{call} .detail').textContent]")
        self.assertIn(label.split(", at ")[0], details)

    def test_click_chooses_an_item(self):
        self.open("delivered")
        self.browser.run("document.querySelector('#call-2 .item.key').click()")
        self.assertIn("Keys Ctrl+A", self.text("#call-2 .detail"))
        self.assertIn("Into chat/composer", self.text("#call-2 .detail"))


class Drawings(BrowserTest):
    def test_windows_are_drawn_to_scale(self):
        for name, counts in (("delivered", [5, 5]), ("many-windows", [6, 7]), ("two-screens", [2, 3])):
            with self.subTest(name):
                self.open(name)
                scenes = self.browser.run(DRAWN)
                self.assertEqual([len(scene) for scene in scenes], counts)
                for scene in scenes:
                    self.check_scale(scene)

    def check_scale(self, scene):
        first = scene[0]
        scale = (first["came"][2] - first["came"][0]) / (first["bounds"][2] - first["bounds"][0])
        self.assertGreater(scale, 0.05)
        for window in scene:
            for side in range(4):
                start = side % 2
                expected = first["came"][start] + (window["bounds"][side] - first["bounds"][start]) * scale
                self.assertAlmostEqual(window["came"][side], expected, delta=0.3, msg=f"{window['id']} side {side}")

    def test_drawn_places_are_those_of_the_report(self):
        self.open("delivered")
        windows = pages.data_of(self.pages["delivered"])["report"]["desktop"]["windows"]
        after = {window["id"]: window["bounds"] for window in self.browser.run(DRAWN)[1]}
        self.assertEqual(after, {name: window["bounds"] for name, window in windows.items()})

    def test_windows_lie_as_in_the_z_order(self):
        self.open("delivered")
        order = self.browser.run("[...document.querySelectorAll('.scene')[1].querySelectorAll('.window')].map((one) => one.dataset.window)")
        self.assertEqual(order[::-1], pages.data_of(self.pages["delivered"])["report"]["desktop"]["zOrder"])

    def test_focus_front_typed_and_pressed_are_marked(self):
        self.open("delivered")
        after = "figure.scene:nth-of-type(2) "
        self.assertEqual(self.browser.run(f"document.querySelector('{after}.focus').dataset.focus"), "chat/composer")
        self.assertEqual(self.browser.run(f"document.querySelector('{after}.window.front').dataset.window"), "chat")
        self.assertEqual(self.browser.run(f"document.querySelector('{after}[data-element=composer] .typed') !== null"), True)
        self.assertEqual(self.browser.run(f"document.querySelector('{after}[data-element=send] .pressed') !== null"), True)
        self.assertEqual(self.count("figure.scene:nth-of-type(1) .pressed"), 0)

    def test_selected_tab_is_told(self):
        self.open("delivered")
        self.assertEqual(self.browser.run("[...document.querySelectorAll('.windows')].map((table) => "
                                          "table.querySelectorAll('li.selected').length)"), [2, 2])

    def test_windows_that_cant_be_seen_are_listed_apart(self):
        self.open("many-windows")
        self.assertEqual(self.text(".apart"), "Not in the drawing: hidden (hidden); work (minimised)")

    def test_waits_are_as_long_as_their_time(self):
        self.open("delivered")
        record = pages.data_of(self.pages["delivered"])["record"]
        for call, bars in enumerate(self.browser.run(BARS)):
            waits = [wait for wait in record["waits"] if wait["reply"] == call and wait["thread"] == 0]
            self.assertEqual(len(bars), len(waits))
            scale = bars[0]["width"] / (waits[0]["endMs"] - waits[0]["ms"])
            for bar, wait in zip(bars, waits):
                self.assertAlmostEqual(bar["width"], (wait["endMs"] - wait["ms"]) * scale, delta=0.5)
                self.assertAlmostEqual(bar["x"] - bars[0]["x"], (wait["ms"] - waits[0]["ms"]) * scale, delta=0.5)


class Looks(BrowserTest):
    def test_texts_stand_out_in_both_schemes(self):
        grounds = set()
        for scheme in ("light", "dark"):
            for name in ("delivered", "not-delivered", "menus"):
                with self.subTest(scheme=scheme, page=name):
                    self.open(name, scheme=scheme)
                    self.browser.run("document.querySelectorAll('details').forEach((one) => { one.open = true; })")
                    contrasts = self.browser.run(CONTRASTS)
                    self.assertGreater(len(contrasts), 50)
                    self.assertGreaterEqual(contrasts[0][0], LEAST_CONTRAST, contrasts[0][1])
                    grounds.add(self.browser.run("getComputedStyle(document.documentElement).backgroundColor"))
        self.assertEqual(len(grounds), 2)

    def test_narrow_window_scrolls_downwards_alone(self):
        for name in self.pages:
            with self.subTest(name):
                self.open(name, width=NARROW)
                self.assertLessEqual(self.browser.run("document.documentElement.scrollWidth"), NARROW)
        self.open("delivered", width=NARROW)
        self.assertTrue(self.browser.run("(() => { const box = document.querySelector('.scroll'); return box.scrollWidth > box.clientWidth; })()"))

    def test_time_line_fits_a_wide_window(self):
        for name in ("delivered", "not-delivered", "many-windows", "real"):
            with self.subTest(name):
                self.open(name)
                over = self.browser.run("[...document.querySelectorAll('.scroll')].map((box) => box.scrollWidth - box.clientWidth)")
                self.assertEqual(set(over), {0})

    def test_nothing_moves_where_motion_isnt_wanted(self):
        for motion, behavior in (("no-preference", "smooth"), ("reduce", "auto")):
            self.open("delivered", motion=motion)
            self.assertEqual(self.browser.run("getComputedStyle(document.documentElement).scrollBehavior"), behavior)

    def test_print_is_light_and_opens_everything(self):
        self.open("many-windows", media="print", scheme="dark")
        self.assertEqual(self.browser.run("getComputedStyle(document.documentElement).backgroundColor"), "rgb(255, 255, 255)")
        self.assertEqual(self.browser.run("getComputedStyle(document.querySelector('.frame')).fill"), "rgb(255, 255, 255)")
        self.assertEqual(self.count("details:not([open])"), 1)
        self.browser.run("window.addEventListener('beforeprint', () => { window.shut = document.querySelectorAll('details:not([open])').length; })")
        printed = self.browser.print()
        self.assertEqual(self.browser.run("window.shut"), 0)
        self.assertTrue(printed.startswith(b"%PDF-"))
        self.assertGreaterEqual(len(re.findall(rb"/Type\s*/Page\b", printed)), 3)
        self.assertEqual(self.count("details:not([open])"), 1)

    def test_headings_and_landmarks_are_there(self):
        self.open("menus")
        self.assertEqual([self.count(name) for name in ("h1", "header", "main", "nav[aria-label]", "footer")], [1] * 5)
        self.assertEqual(self.browser.run("document.documentElement.lang"), "en")
        unnamed = self.browser.run("[...document.querySelectorAll('section')].filter((one) => "
                                   "!document.getElementById(one.getAttribute('aria-labelledby')).textContent).length")
        self.assertEqual(unnamed, 0)
        levels = self.browser.run("[...document.querySelectorAll('h1, h2, h3')].map((one) => Number(one.localName[1]))")
        self.assertTrue(all(later - one <= 1 for one, later in zip(levels, levels[1:])), levels)
        ids = self.browser.run("[...document.querySelectorAll('[id]')].map((one) => one.id)")
        self.assertEqual(len(ids), len(set(ids)))


if __name__ == "__main__":
    if SIMULATOR is None:
        sys.exit("usage: browser_test.py ORVANE_SIM")
    try:
        find()
    except BrowserError as error:
        sys.exit(f"browser_test.py: {error}")
    unittest.main()
