"""The dump that each pass of a search writes of every browser window, line by line, as its facts are read.

What a desktop shows of a window (its process, its state, the places of its tab items) is looked up in the desktop;
what a pass sees in it is said by the scenario.
"""
from .activation_tabs import trace_safe, yes_no
from .core import all_elements, same_text

STRIP_HEIGHT = 40
WIDEST_TAB_ITEM = 240
HANDLE = "0x[0-9a-f]+"

# Image name and what stands behind the tab's title in the window's.
BROWSERS = {
    "Chrome": ("chrome.exe", "Google Chrome"),
    "Edge": ("msedge.exe", "Microsoft Edge"),
    "Brave": ("brave.exe", "Brave"),
    "Firefox": ("firefox.exe", "Mozilla Firefox"),
    "Vivaldi": ("vivaldi.exe", "Vivaldi"),
}


def pair_with_desktop(seen_windows, desktop):
    """The desktop's window of each seen one: that of its id, else the next one of its browser."""
    left = [one for one in desktop if "tabs" in one]
    pairs = []
    for seen_window in seen_windows:
        process = BROWSERS[seen_window.browser][0]
        found = next(one for one in left if (one["id"] == seen_window.id if seen_window.id
                                             else one["process"].lower() == process))
        left.remove(found)
        pairs.append((seen_window, found))
    return pairs


def pattern(*parts):
    """Literal texts with regular expressions between them, in turn."""
    return "~^" + "".join(part if number % 2 else same_text(part) for number, part in enumerate(parts)) + "$"


class WindowDump:
    """The lines of one window in one pass."""

    def __init__(self, pass_number, ordinal, seen_window, window, front):
        self.seen, self.window, self.front = seen_window, window, front
        self.ordinal = f"browser#={ordinal}"
        self.head = f"pass={pass_number}; {self.ordinal}; hwnd="
        self.title = self._title()

    def _title(self):
        if self.seen.title is not None:
            return self.seen.title
        if "title" in self.window:
            return self.window["title"]
        return " - ".join([*self._front_title(), BROWSERS[self.seen.browser][1]])

    def _front_title(self):
        """Of the tabs that count as selected the one in front: the others' titles lie within its."""
        if not self.seen.has_tab_items or not self.seen.has_root:
            return [one["title"] for one in self.window["tabs"] if one.get("selected")]
        return sorted((one.title for one in self.seen.tabs if one.selected), key=len)[-1:]

    def window_line(self):
        image, _ = BROWSERS[self.seen.browser]
        facts = self.window
        shown = (f"; process={image}; browser={self.seen.browser}; visible={yes_no(facts.get('visible', True))}; "
                 f"minimized={yes_no(facts.get('minimized', False))}; foreground={yes_no(facts['id'] == self.front)}; "
                 f'windowTitle="{trace_safe(self.title)}"')
        return "X-Ray window", pattern(self.head, HANDLE, "; pid=", str(facts.get("pid", "[0-9]+")), shown)

    def root_line(self):
        return "X-Ray root", pattern("hwnd=", HANDLE, f"; FAILED hr={self.seen.root_hr}")

    def tabs_line(self):
        count = f"; tabControls={self.seen.tab_controls}; "
        if self.seen.has_tab_items:
            shown = f'{count}tabItems={self._length()}; address="{trace_safe(self._address())}"'
            return "X-Ray tabs", pattern(self.head, HANDLE, shown)
        if self.seen.condition_hr is not None:
            return "X-Ray tabs", f"{self.ordinal}; FAILED creating TabItem condition hr={self.seen.condition_hr}"
        return "X-Ray tabs", pattern(f"{self.ordinal}; hwnd=", HANDLE,
                                     f"{count}FAILED FindAll(TabItem) hr={self.seen.search_hr}")

    def _length(self):
        return len(self.seen.tabs) + self.seen.nameless_tabs

    def _address(self):
        if self.seen.address is not None:
            return self.seen.address
        return next((one.url for one in self.seen.tabs if one.url), "")

    def tab_lines(self):
        named = {one.index: one for one in self.seen.tabs}
        for index in range(self._length()):
            if index in self.seen.lost_tabs:
                hr = self.seen.lost_tabs[index]
                yield "X-Ray tab", f"{self.ordinal}; index={index}; FAILED GetElement hr={hr}"
            else:
                yield "X-Ray tab", self._tab_line(index, named.get(index))

    def _tab_line(self, index, tab):
        title, automation_id = (tab.title, tab.automation_id) if tab else ("", "")
        fact = self._element(index, title)
        in_title = title != "" and title.lower() in self.title.lower()
        selected = tab is not None and tab.selected
        by_pattern = (selected and title in self._front_title() and fact.get("selection") != "none"
                      if self.seen.pattern_selected is None else index == self.seen.pattern_selected)
        marks = (f"selected={yes_no(selected or by_pattern)}; uiaSelected={yes_no(by_pattern)}; "
                 f"windowTitleSelected={yes_no(in_title)}; offscreen={yes_no(fact.get('offscreen', False))}")
        texts = {"title": title, "automationId": automation_id, "class": fact.get("className", ""),
                 "framework": fact.get("frameworkId", "")}
        shown = "; ".join(f'{key}="{trace_safe(text)}"' for key, text in texts.items())
        return pattern(self.head, HANDLE, f"; index={index}; {marks}; {shown}; bounds={self._bounds(index)}")

    def _inner_items(self):
        """Tab items that the page in front shows; they stand behind those of the strip."""
        page = next((one.get("page", []) for one in self.window["tabs"] if one.get("selected")), [])
        return [one for one in all_elements(page) if one["type"] == "tabItem"]

    def _strip_length(self):
        return self._length() - len(self._inner_items())

    def _element(self, index, title):
        if index >= self._strip_length():
            return self._inner_items()[index - self._strip_length()]
        return next((one for one in self.window["tabs"] if one["title"] == title), {})

    def _bounds(self, index):
        if index in self.seen.bounds:
            return self.seen.bounds[index]
        if index >= self._strip_length():
            return ",".join(map(str, self._inner_items()[index - self._strip_length()]["bounds"]))
        left, top, right, _ = self.window["bounds"] if "bounds" in self.window else (100, 100, 1300, 900)
        width = min(WIDEST_TAB_ITEM, (right - left) // self._strip_length())
        return f"{left + index * width},{top},{left + (index + 1) * width},{top + STRIP_HEIGHT}"
