"""A day with the desk: the main window as a strip, its backdrop, menus, the clipboard, spelling and a provider's page,
all on one desktop, each step leaving what the next one finds."""
from .backdrop import MAIN, Backdrop
from .clipboard import ClipboardQuestions, encoded
from .core import BROWSER_CHANNEL, call, user
from .menus import NULL_MESSAGE, Menu
from .monitors import FRAME_SIDE, frame_top, scaled
from .placement import Placed
from .window_talk import PLAIN_SUCCESS, merged, posted

SHOW_TOOL_BOX = 0x8153


class Day(ClipboardQuestions, Backdrop):
    def __init__(self, stem, name, windows=(), monitors=None, foreground=..., clipboard=None, dictionary=None):
        super().__init__(stem, name, windows, monitors, foreground, folder="day")
        self.given = {**self.given, "clipboard": clipboard,
                      "spelling": None if dictionary is None else {"en-US": dictionary.facts}}
        self.dictionary = dictionary
        self.placed = Placed(self.monitors)
        self.input = []
        self.shell = []
        self.menu_count = 0

    # The main window.

    def set_bounds(self, **arguments):
        self.placed.set_bounds(**arguments)
        self.main = list(self.placed.bounds)
        self.is_main_minimized = False
        self.ask("setBounds", arguments, PLAIN_SUCCESS)
        self._come_forward(MAIN)

    def drag_main(self, *bounds):
        super().drag_main(*bounds)
        self.placed.bounds = list(self.main)

    def bring_back(self):
        """By the interface, after a provider's turn."""
        self.browser("activateOrvaneWindow", ..., {
            "success": True, "message": "PASS: Orvane restored after quiet multi-AI send"})
        self._come_forward(MAIN)

    def menu(self, items, chosen=None, x=0, y=0, **arguments):
        """Opened at a point of the main window; `chosen`: the number of the entry that a person picks."""
        if chosen is not None:
            self.do(user(chooseMenu=chosen))
        self.menu_count += 1
        dpi = self._dpi()
        point = [self.main[0] + scaled(FRAME_SIDE, dpi) + int(x * dpi / 96.0),
                 self.main[1] + frame_top(dpi, not self.placed.compact) + int(y * dpi / 96.0)]
        entries = [(at, one["label"]) for at, one in enumerate(items, 1)]
        self.painted += Menu(entries, dpi, appearance=arguments.get("appearance", ""),
                             number=self.menu_count).painted(point, chosen)
        action = "" if chosen is None else items[chosen - 1]["action"]
        self.ask("showNativeHotKeysMenu", {"items": items, "anchorX": x, "anchorY": y, **arguments},
                 {"success": chosen is not None, "action": action})
        self.posts.append(NULL_MESSAGE)
        self._come_forward(MAIN)

    def capture_screen(self):
        self.ask("openScreenCapture", ..., PLAIN_SUCCESS)
        self.shell.append({"owner": None, "verb": "open", "file": "ms-screenclip:", "parameters": None,
                           "directory": None, "show": 1})

    # Clipboard and words.

    def copy(self, **forms):
        """A person copies in another program; bytes are given as they are."""
        self.do({"do": [{"clipboard": {form: encoded(one) if isinstance(one, bytes) else one
                                       for form, one in forms.items()}}]})

    def write(self, text, html):
        self.ask("writeOrvaneDraftClipboard", {"text": text, "html": html}, PLAIN_SUCCESS)

    def spell(self, word):
        self.ask("checkSpelling", {"word": word, "language": "en-US"}, self.dictionary.verdict(word))

    # Others.

    def raise_content(self, window_id, process_id, shows_tool_box=False):
        self.ask("activateContentProcess", {"processId": process_id, "showToolBoxMenu": int(shows_tool_box)},
                 PLAIN_SUCCESS)
        if shows_tool_box:
            self.posts.append(posted(window_id, SHOW_TOOL_BOX))
        self.others[window_id].pop("minimized", None)
        self._come_forward(window_id)

    def browser(self, method, arguments, value, as_=None, moves_to=None):
        """A call of the other channel; of the reply `value` must hold."""
        self.do(call(method, None if arguments is ... else arguments, as_, BROWSER_CHANNEL))
        self.replies.append({"as": as_ if as_ is not None else str(len(self.replies)), "method": method,
                             "kind": "success", "value": value})
        if moves_to is not None:
            self._come_forward(moves_to)

    def deliver(self, provider, domain, delivery, tab_index, nth=1):
        """The provider's tab is found in the window "chat" and gets what is on the clipboard."""
        found, sent = f"activate{nth}", f"deliver{nth}"
        self.browser("activateProvider", {"name": provider.name, "domain": domain, "patterns": [provider.name.lower()]},
                     {"success": True, "selectedTitle": provider.title, "selectedTabIndex": tab_index}, found, "chat")
        self.browser("pasteAndSubmit", {"name": provider.name,
                                        "expectedWindowHandle": {"$from": f"{found}.windowHandle"}},
                     delivery.value, sent)
        self.input += [{key: value for key, value in event.items() if key != "ms"} for event in delivery.input]

    def finished(self, end=None, **more):
        form = {"windows": {MAIN: {"title": self.placed.title}}}
        return self.made(end=merged(form, end or {}), input=self.input, shell=self.shell, **more)
