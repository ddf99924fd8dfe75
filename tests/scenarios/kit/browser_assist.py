"""What the scenarios of Chrome's Search tabs box share: the browser and its box, and a search that goes well.

Nothing in any browser bears a sign of ChatGPT, so the discovery ends without a candidate after three passes.
"""
from .activation import Activation
from .activation_assist import AFTER_FIELD_SET_MS, AFTER_FOREGROUND_MS, AFTER_KEYS_MS
from .activation_cases import (CHATGPT_URL, REPORT_TITLE, SEEN_MAIL, SEEN_QUIET_HOME, case, chatgpt_page, desk,
                               mail_tab, provider_arguments, quiet_home, report_tab, tab)
from .activation_routes import BRING_FORWARD_MS
from .activation_tabs import seen, window
from .core import browser, edit, move_focus, on_key, remove

LISBON = "Trip to Lisbon"
QUIET_HOME = window("Edge", *SEEN_QUIET_HOME)
PASSES_MS = 150 + 300
KEYS_MS = PASSES_MS + BRING_FORWARD_MS + AFTER_FOREGROUND_MS
FIELD_MS = KEYS_MS + AFTER_KEYS_MS
ENTER_MS = FIELD_MS + AFTER_FIELD_SET_MS
FIELD = "searchTabs"
BOX = (560, 60, 1120, 100)
KEY = "Ctrl+Shift+A"


def field(**facts):
    return edit(FIELD, facts.pop("name", "Search tabs"), BOX, **{"value": "", **facts})


def opens(box=None, **facts):
    """Chrome's answer to its key: the box stands over the page and has the keyboard."""
    return on_key(KEY, {"add": box or field(**facts)}, move_focus(FIELD))


def leads_to(*actions):
    """Enter closes the box and shows what was found."""
    return on_key("Enter", remove(FIELD), *actions)


def closes():
    return on_key("Escape", remove(FIELD))


def lisbon_tab(address=CHATGPT_URL, title=LISBON):
    return tab(title, address, chatgpt_page())


def chrome(*rules, address=CHATGPT_URL, identifier="work", strip=None, **facts):
    strip = strip or (mail_tab(), report_tab(), lisbon_tab(address))
    rules = rules or (opens(), leads_to({"selectTab": LISBON}), closes())
    return browser(identifier, "chrome.exe", strip, 0, bounds=(40, 20, 1640, 1020), rules=list(rules), **facts)


SEEN_CHROME = window("Chrome", SEEN_MAIL, seen(1, REPORT_TITLE), seen(2, LISBON))


def begin(windows, *seen_windows, front=None, title="ChatGPT"):
    activation = Activation(title)
    activation.discover(*[list(seen_windows) or [SEEN_CHROME, QUIET_HOME]] * 3, desktop=windows, front=front)
    activation.front_at_end, activation.front_requests = "work", 1
    return activation


def found(activation, title=LISBON, address=CHATGPT_URL, target="work", element_behind=None):
    """The box opens, is filled and confirmed, and leads to the page."""
    activation.assist_begins().assist_foreground().assist_keys_opening(target).assist_field_set()
    activation.assist_enter(target, element_behind=element_behind)
    return activation.assist_landed(address, title, True).assist_ready(title)


def assist_case(file, windows, activation, *, selected=None, calls=None, values=None, **more):
    return case(file, windows, activation, provider_arguments("ChatGPT"), folder="browser-assist", selections=0,
                selected={"work": 0, "home": 0} if selected is None else selected, calls=calls, values=values, **more)


def plain(*browsers):
    return desk(*(browsers or (chrome(),)), quiet_home())


def fails(file, windows, stages, *, selected=None, **more):
    """`stages` appends what happens up to the failure."""
    activation = begin(windows).no_session(stages)
    return assist_case(file, windows, activation, selected=selected, **more)


def foreground_stage(activation):
    return activation.assist_begins().assist_foreground()


def field_stage(activation):
    return foreground_stage(activation).assist_keys_opening("work").assist_field_set()
