"""What a search says of the tabs that it sees: the words and points of its decisions, and the lines about tabs."""

from dataclasses import dataclass, field

from .core import E_FAIL, same_text

# ---- result codes

S_OK = "0x0"
E_INVALIDARG = "0x80070057"
E_NOINTERFACE = "0x80004002"
UIA_E_ELEMENTNOTAVAILABLE = "0x80040201"
RPC_E_DISCONNECTED = "0x80010108"

# ---- decisions of discovery

NO_MATCH = "NO_MATCH"
REJECT_COMPANY_HOMEPAGE = "REJECT_COMPANY_HOMEPAGE"
REJECT_NON_CHAT_CLAUDE_PAGE = "REJECT_NON_CHAT_CLAUDE_PAGE"
REJECT_OTHER_PROVIDER = "REJECT_OTHER_PROVIDER"

# ---- how a live tab is chosen

INDEX_AND_TITLE = "INDEX_AND_TITLE"
UNIQUE_TITLE = "UNIQUE_TITLE"
INDEX_FALLBACK = "INDEX_FALLBACK"
STRICT_TITLE_LOST = "FAILED: strict ChatGPT title no longer identifies one tab"
INDEX_LOST = "FAILED: recorded tab index no longer exists and title was not unique"

POINTS = {
    "domain": 300,
    "anchoredTitle": 200,
    "remembered": 260,
    "verifiedContent": 280,
    "strictTitle": 250,
    "rememberedPosition": 320,
    "rememberedAutomationId": 40,
    "selected": 20,
}
RAW_TITLE_POINTS = 60

TRACE_TEXT_LIMIT_BYTES = 180


def trace_safe(text):
    """A title, address or id as a composed line shows it; a cut sequence shows U+FFFD."""
    raw = text.replace("\r", " ").replace("\n", " ").encode()
    if len(raw) > TRACE_TEXT_LIMIT_BYTES:
        raw = raw[: TRACE_TEXT_LIMIT_BYTES - 3] + b"..."
    return raw.decode(errors="replace")


def yes_no(holds):
    return "Y" if holds else "N"


@dataclass(frozen=True)
class SeenTab:
    """One tab as discovery sees it. `marks` are the names of the flags that hold for it."""

    index: int
    title: str
    marks: frozenset = frozenset()
    url: str = ""
    automation_id: str = ""
    decision: str = NO_MATCH
    score: int = None

    @property
    def selected(self):
        return "selected" in self.marks

    @property
    def accepted(self):
        return self.score is not None


def seen(index, title, marks="", *, url="", id="", decision=NO_MATCH, score=None):
    """A tab of the inventory; `marks` holds its flags, parted by blanks. A score accepts it.

    `selected` and, of an inactive ChatGPT tab, `strictTitle` stand among the marks.
    """
    names = frozenset(marks.split())
    unknown = names - POINTS.keys() - {"rawTitle"}
    if unknown:
        raise ValueError(f"{title}: unknown marks {sorted(unknown)}")
    if score is not None:
        points = sum(POINTS.get(name, 0) for name in names)
        points += RAW_TITLE_POINTS if "rawTitle" in names and "anchoredTitle" not in names else 0
        if points != score:
            raise ValueError(f"{title}: the marks are worth {points}, not {score}")
    if url and "selected" not in names:
        raise ValueError(f"{title}: only a selected tab has an address")
    return SeenTab(index, title, names, url, id, decision, score)


@dataclass(frozen=True)
class SeenWindow:
    """One browser window as discovery sees it."""

    browser: str
    tabs: tuple = ()
    nameless_tabs: int = 0
    has_root: bool = True
    has_tab_items: bool = True
    proves_composer: bool = False
    # For the dump of the window, where it doesn't follow from the rest.
    id: str = None  # the desktop's window
    title: str = None
    address: str = None
    tab_controls: int = 1
    root_hr: str = UIA_E_ELEMENTNOTAVAILABLE
    condition_hr: str = None
    search_hr: str = E_FAIL
    pattern_selected: int = None  # index of the tab whose pattern says so, -1 for none
    lost_tabs: dict = field(default_factory=dict)  # index of a tab item that could not be had: the result
    bounds: dict = field(default_factory=dict)  # index: the text


def window(browser, *tabs, **facts):
    return SeenWindow(browser, tuple(tabs), **facts)


@dataclass(frozen=True)
class LiveTab:
    """One tab item as a selection finds it. Marks: S selected, I index, T title, A automation id."""

    index: int
    title: str
    marks: str = ""
    id: str = ""


def live(*tabs):
    """Live tabs from (title, marks) or (title, marks, id), in the order of the strip."""
    return tuple(LiveTab(index, *tab) for index, tab in enumerate(tabs))


def tab_line(ordinal, tab):
    """The line of one tab in a pass, a regular expression because of the window's handle."""

    def mark(name):
        return f"{name}={yes_no(name in tab.marks)}"

    texts = {"title": tab.title, "url": tab.url, "automationId": tab.automation_id}
    quoted = {key: f'{key}="{trace_safe(text)}"' for key, text in texts.items()}
    behind_handle = "; ".join(
        [
            "",
            mark("selected"),
            quoted["title"],
            quoted["url"],
            mark("domain"),
            quoted["automationId"],
            f"tabIndex={tab.index}",
            mark("remembered"),
            mark("rememberedAutomationId"),
            mark("rememberedPosition"),
            mark("anchoredTitle"),
            mark("verifiedContent"),
            mark("rawTitle"),
            f"decision=ACCEPT; score={tab.score}" if tab.accepted else f"decision={tab.decision}",
        ]
    )
    return f"~^#{ordinal} hwnd=0x[0-9a-f]+{same_text(behind_handle)}$"


def remembered_steps(*, automation_id="", title="", ignored=False):
    """What each pass says of the memory that the interface sent along."""
    steps = []
    if automation_id:
        steps.append({"step": "Remembered AutomationId", "result": trace_safe(automation_id)})
    if ignored:
        steps.append({"step": "Remembered title", "result": "Ignored because it belongs to another provider"})
    elif title:
        steps.append({"step": "Remembered title", "result": trace_safe(title)})
    return steps
