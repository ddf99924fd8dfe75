"""The host's windows as other programs and the eye see them."""
from real.stage import RealTest, window_call

OVERLAPPED = 0x00CF0000
CAPTION, SYSTEM_MENU, SIZABLE, MINIMIZABLE, MAXIMIZABLE = 0x00C00000, 0x00080000, 0x00040000, 0x00020000, 0x00010000
VISIBLE = 0x10000000
# 0xRRGGBB of each appearance: the background, and a highlighted entry of a menu.
APPEARANCES = {
    "Deep Green": (0x03140F, 0x007065),
    "Deep Blue": (0x061426, 0x007065),
    "White": (0xFFFFFF, 0xD6EBE7),
}


class SeenHost(RealTest):
    def see(self, steps):
        """The main window's facts at the end of the steps, and the backdrop's (None: there is none)."""
        seen = {}

        def look():
            seen.update((window["name"], window) for window in self.session.windows() if window["name"] is not None)
            seen["picture"] = self.session.picture()
            seen["icons"] = self.session.icon_sizes(seen["main"]["title"])

        report = self.run_scenario({"steps": steps}, at_end=look)
        return report, seen


class HostWindow(SeenHost):
    def test_normal_form_has_class_style_title_place_and_both_icons(self):
        _, seen = self.see([])
        main = seen["main"]
        self.assertEqual(main["class"], "FLUTTER_RUNNER_WIN32_WINDOW")
        self.assertEqual(main["title"], "Orvane: The Desk for Every Assistant")
        self.assertEqual(main["style"] & (OVERLAPPED | VISIBLE), OVERLAPPED | VISIBLE)
        self.assertEqual(main["bounds"], [10, 10, 1290, 730])
        self.assertTrue(main["isInFront"], "isn't in front")
        self.assertEqual(seen["icons"], [(16, 16), (32, 32)])

    def test_compact_form_has_no_caption_and_the_short_title(self):
        _, seen = self.see([window_call("setBounds", {"x": 60, "y": 70, "width": 280, "height": 400})])
        main = seen["main"]
        self.assertEqual(main["title"], "Orvane")
        self.assertEqual(main["style"] & (SYSTEM_MENU | SIZABLE), SYSTEM_MENU | SIZABLE)
        self.assertEqual(main["style"] & CAPTION & ~0x00800000, 0)
        self.assertEqual(main["style"] & (MINIMIZABLE | MAXIMIZABLE), 0)
        self.assertEqual(main["bounds"], [60, 70, 340, 470])

    def test_normal_form_comes_back_with_caption_and_title(self):
        bounds = {"x": 60, "y": 70, "width": 280, "height": 400}
        _, seen = self.see([window_call("setBounds", bounds), window_call("setBounds", bounds | {"width": 640})])
        self.assertEqual(seen["main"]["title"], "Orvane: The Desk for Every Assistant")
        self.assertEqual(seen["main"]["style"] & OVERLAPPED, OVERLAPPED)

    def test_backdrop_shows_its_appearances_colour_below_the_main_window(self):
        for appearance, (background, _) in APPEARANCES.items():
            with self.subTest(appearance=appearance):
                report, seen = self.see([
                    window_call("setBounds", {"x": 200, "y": 100, "width": 800, "height": 400}),
                    window_call("syncCleanBackground", {"appearance": appearance, "height": 300}),
                ])
                panel, main = seen["backdrop"], seen["main"]
                self.assertEqual(panel["class"], "Orvane_Clean_Background_RC310")
                self.assertEqual(panel["title"], "Orvane - Clean Background")
                left, top, right, bottom = panel["bounds"]
                self.assertGreater(bottom, main["bounds"][3])
                reply = report["replies"][1]["value"]
                told = [reply[key] for key in ("x", "y", "width", "height")]
                self.assertEqual([left, top, right - left, bottom - top], told)
                middle = (left + right) // 2, (max(top, main["bounds"][3]) + bottom) // 2
                self.assertEqual(f"{seen['picture'].colour(*middle):06X}", f"{background:06X}")


class SeenMenu(RealTest):
    ITEMS = [{"action": f"action {label}", "label": label} for label in ("Copy", "打开", "Löschen")]

    def open_menu(self, choice, appearance, expected_kinds):
        """The report, and the picture and place of the menu while the person looked at it."""
        seen = {}

        def look():
            """Keeps the last picture on which the menu is up; done when it shows what is expected, or is gone."""
            bounds = self.menu_bounds()
            if bounds is None:
                return "gone" if seen else None
            picture = self.session.picture()
            if self.menu_bounds() != bounds:
                return None
            seen.update(bounds=bounds, picture=picture)
            runs = self.runs_of(seen, appearance)
            is_whole = sum(count for _, count in runs) >= len(self.ITEMS) * self.entry_height()
            return "seen" if is_whole and [kind for kind, _ in runs] == expected_kinds else None

        arguments = {"anchorX": 600, "anchorY": 100, "appearance": appearance, "items": self.ITEMS}
        report = self.run_scenario(
            {"steps": [{"user": {"chooseMenu": choice}}, window_call("showNativeHotKeysMenu", arguments)]},
            meanwhile=look, environment={"ORVANE_MENU_LOOK_MS": "2500"})
        self.assertIn("picture", seen, "no menu was seen")
        return report, seen

    def entry_height(self):
        return 30 * self.dpi // 96

    def menu_bounds(self):
        return next((window["bounds"] for window in self.session.windows()
                     if window["class"] == "#32768" and window["isShown"]), None)

    def runs_of(self, seen, appearance):
        """The entries from top to bottom and their heights, told by a column where no text is drawn. Plain entries
        side by side are one run."""
        background, highlighted = APPEARANCES[appearance]
        _, top, right, bottom = seen["bounds"]
        names = {background: "plain", highlighted: "highlighted"}
        return [(names[colour], count) for colour, count in seen["picture"].column(right - 8, top, bottom)
                if colour in names and count > 4]

    def check_second_entry(self, appearance):
        expected = ["plain", "highlighted", "plain"]
        report, seen = self.open_menu(2, appearance, expected)
        runs = self.runs_of(seen, appearance)
        self.assertEqual([kind for kind, _ in runs], expected)
        # The White menu's own border is white too: the highlighted entry alone tells its height.
        self.assertEqual(runs[1][1], self.entry_height())
        left, top, right, bottom = seen["bounds"]
        text = 0x000000 if appearance == "White" else 0xFFFFFF
        self.assertTrue(seen["picture"].has_colour(text, left + 4, top + 4, right - 4, bottom - 4), "no text is seen")
        self.assertEqual(report["replies"][0]["value"], {"success": True, "action": "action 打开"})


class HostMenu(SeenMenu):
    def test_menu_is_drawn_in_its_appearances_colours_and_the_chosen_action_comes_back(self):
        for appearance in APPEARANCES:
            with self.subTest(appearance=appearance):
                self.check_second_entry(appearance)

    def test_dismissed_menu_gives_no_action(self):
        report, seen = self.open_menu(None, "Deep Blue", ["plain"])
        self.assertEqual(self.runs_of(seen, "Deep Blue"), [("plain", len(self.ITEMS) * self.entry_height())])
        self.assertEqual(report["replies"][0]["value"], {"success": False, "action": ""})


class HostAtOneAndAHalf(SeenHost):
    """At 150 %, in pixels of that scale."""

    dpi = 144

    def test_first_place_and_icons_are_larger_by_a_half(self):
        _, seen = self.see([])
        self.assertEqual(seen["main"]["bounds"], [15, 15, 1935, 1095])
        self.assertEqual(seen["icons"], [(24, 24), (48, 48)])

    def test_bounds_are_set_and_told_in_logical_pixels(self):
        bounds = {"x": 48, "y": 64, "width": 640, "height": 480}
        report, seen = self.see([window_call("setBounds", bounds), window_call("getBounds")])
        self.assertEqual(seen["main"]["bounds"], [72, 96, 1032, 816])
        self.assertEqual(report["replies"][1]["value"], {"success": True} | bounds)


class MenuAtOneAndAHalf(SeenMenu):
    dpi = 144

    def test_entries_are_higher_by_a_half(self):
        self.check_second_entry("Deep Green")
