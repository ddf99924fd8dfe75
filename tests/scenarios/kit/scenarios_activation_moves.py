"""Tabs that move, close or change their title between the inventory and the selection.

Nothing of the search takes time before the first wait, so what happens between the inventory and the first attempt is
set off by the search itself: the page in front shows a tab item of its own, which is read as the last one.
"""
from .activation import Activation
from .activation_cases import (MAIL_TITLE, REPORT_TITLE, SEEN_MAIL, SEEN_QUIET_HOME, WEATHER_TITLE, case, chatgpt_tab,
                               desk, gemini_page, mail_tab, provider_arguments, quiet_home, report_tab,
                               weather_tab, work)
from .activation_tabs import (E_INVALIDARG, INDEX_AND_TITLE, INDEX_FALLBACK, INDEX_LOST, STRICT_TITLE_LOST, S_OK,
                              UIA_E_ELEMENTNOTAVAILABLE, UNIQUE_TITLE, live, remembered_steps, seen, window)
from .core import add, at, close_window, edit, element, fault, on_read, remove, tab

SELECT = "IUIAutomationSelectionItemPattern::Select"
NOTES = "Notes - Google Gemini"
PREVIEW = "Preview"
QUIET_HOME = window("Edge", *SEEN_QUIET_HOME)
MEMORY = {"rememberedTitle": NOTES, "rememberedAutomationId": "tab-7", "rememberedBrowser": "Chrome"}
MEMORY_STEPS = remembered_steps(automation_id="tab-7", title=NOTES)


def mail_with_preview():
    return tab(MAIL_TITLE, "mail.northwind.example/inbox",
               [element("tabItem", "preview", PREVIEW, (300, 200, 500, 240))])


def close_tab(title):
    return {"closeTab": title}


def open_tab(new_tab):
    return {"openTab": new_tab}


def notes_tab(title=NOTES, **facts):
    return tab(title, "https://gemini.google.com/app/5c", gemini_page(), **facts)


class Strip:
    """The window "work" whose strip changes as `actions` say once all its tabs are known."""

    def __init__(self, *tabs, actions, name="Gemini", memory=None):
        rules = [on_read("preview", *actions, times=1)]
        if name == "ChatGPT":
            # All is read once before the inventory, for the page that is selected already; so the tab item that sets
            # off the actions takes the place of the first one meanwhile.
            late = element("tabItem", "late", PREVIEW, (300, 200, 500, 240))
            rules = [on_read("preview", add(edit("armed", "Armed", (0, 0, 0, 0))), times=1),
                     on_read("armed", remove("armed"), remove("preview"), add(late), times=1),
                     on_read("late", *actions, times=1)]
        self.name, self.memory = name, memory or {}
        self.preview_goes = any(one in actions for one in (remove("preview"), close_tab(MAIL_TITLE)))
        self.windows = desk(work(mail_with_preview(), *tabs, rules=rules), quiet_home())

    def begin(self, target, *others):
        """`others` are seen besides the mail in front and the page's own tab item, which stands last."""
        tabs = sorted([SEEN_MAIL, target, *others], key=lambda one: one.index)
        self.activation = Activation(self.name)
        steps = MEMORY_STEPS if self.memory else ()
        # A tab item that goes while it is read has no place any more.
        bounds = {len(tabs): "<unavailable>"} if self.preview_goes else {}
        self.activation.discover([window("Chrome", *tabs, seen(len(tabs), PREVIEW), bounds=bounds), QUIET_HOME],
                                 desktop=self.windows, remembered=steps)
        return self.activation.choose("Chrome", target)

    def selects(self, file, live_tabs, reason, place, titles, selected):
        self.activation.attempt(1, S_OK, live_tabs, reason, place).selection_passed().settle()
        if self.name == "ChatGPT":
            self.activation.chatgpt_identity(passes=True, composer=True)
        self.activation.finish()
        return self.case(file, titles, selected, 1, "work")

    def gives_up(self, file, live_tabs, reason, titles, selected=0):
        for number in (1, 2, 3):
            self.activation.attempt(number, UIA_E_ELEMENTNOTAVAILABLE, live_tabs, reason)
        self.activation.selection_failed(UIA_E_ELEMENTNOTAVAILABLE).finish_blocked()
        return self.case(file, titles, selected, 0, None)

    def case(self, file, titles, selected, selections, foreground):
        return case(file, self.windows, self.activation, provider_arguments(self.name, **self.memory),
                    selected={"work": selected, "home": 0}, selections=selections, foreground=foreground,
                    titles={"work": titles})


def notes_at(index, **facts):
    return seen(index, NOTES, "anchoredTitle rawTitle", score=200, **facts)


def moved():
    strip = Strip(report_tab(), notes_tab(), actions=[close_tab(REPORT_TITLE)])
    strip.begin(notes_at(2), seen(1, REPORT_TITLE))
    yield strip.selects("gemini-tab-that-moved-is-found-by-its-unique-title",
                        live((MAIL_TITLE, "S"), (NOTES, "T"), (PREVIEW, "I")), UNIQUE_TITLE, 1, [MAIL_TITLE, NOTES], 1)

    strip = Strip(notes_tab(), report_tab(), actions=[close_tab(NOTES)])
    strip.begin(notes_at(1), seen(2, REPORT_TITLE))
    yield strip.selects("gemini-tab-that-closed-leaves-its-index-to-another",
                        live((MAIL_TITLE, "S"), (REPORT_TITLE, "I"), (PREVIEW,)), INDEX_FALLBACK, 1,
                        [MAIL_TITLE, REPORT_TITLE], 1)

    strip = Strip(report_tab(), notes_tab(), actions=[close_tab(NOTES), remove("preview")])
    strip.begin(notes_at(2), seen(1, REPORT_TITLE))
    yield strip.gives_up("gemini-last-tab-that-closed-is-not-resolved", live((MAIL_TITLE, "S"), (REPORT_TITLE,)),
                         INDEX_LOST, [MAIL_TITLE, REPORT_TITLE])

    strip = Strip(report_tab(), notes_tab(),
                  actions=[close_tab(NOTES), close_tab(REPORT_TITLE), close_tab(MAIL_TITLE)])
    strip.begin(notes_at(2), seen(1, REPORT_TITLE))
    yield strip.gives_up("gemini-window-whose-tabs-all-closed", live(), INDEX_LOST, [], None)


def renamed():
    plan = "Plan - Google Gemini"
    strip = Strip(report_tab(), notes_tab(), actions=[close_tab(NOTES), open_tab(notes_tab(plan))])
    strip.begin(notes_at(2), seen(1, REPORT_TITLE))
    yield strip.selects("gemini-tab-that-changed-its-title-is-taken-by-its-index",
                        live((MAIL_TITLE, "S"), (REPORT_TITLE,), (plan, "I"), (PREVIEW,)), INDEX_FALLBACK, 2,
                        [MAIL_TITLE, REPORT_TITLE, plan], 2)

    asleep = NOTES + " - Inactive tab - 80 MB freed up"
    strip = Strip(report_tab(), notes_tab(), actions=[close_tab(NOTES), open_tab(notes_tab(asleep))])
    strip.begin(notes_at(2), seen(1, REPORT_TITLE))
    yield strip.selects("gemini-tab-that-fell-asleep-keeps-its-title",
                        live((MAIL_TITLE, "S"), (REPORT_TITLE,), (asleep, "IT"), (PREVIEW,)), INDEX_AND_TITLE, 2,
                        [MAIL_TITLE, REPORT_TITLE, asleep], 2)

    counted = "(1) " + NOTES
    strip = Strip(report_tab(), notes_tab(), actions=[close_tab(NOTES), open_tab(notes_tab(counted))])
    strip.begin(notes_at(2), seen(1, REPORT_TITLE))
    yield strip.selects("gemini-notification-count-makes-another-title",
                        live((MAIL_TITLE, "S"), (REPORT_TITLE,), (counted, "I"), (PREVIEW,)), INDEX_FALLBACK, 2,
                        [MAIL_TITLE, REPORT_TITLE, counted], 2)


def twins():
    """Two tabs of one title; the second is the target, by what the interface remembers."""
    twin = seen(2, NOTES, "anchoredTitle remembered rawTitle", score=460)
    target = seen(3, NOTES, "anchoredTitle remembered rememberedAutomationId rawTitle", id="tab-7", score=500)

    def strip(*actions):
        made = Strip(weather_tab(), notes_tab(), notes_tab(automationId="tab-7"), actions=actions, memory=MEMORY)
        made.begin(target, seen(1, WEATHER_TITLE), twin)
        return made

    yield strip().selects("gemini-index-tells-two-tabs-of-one-title-apart",
                          live((MAIL_TITLE, "S"), (WEATHER_TITLE,), (NOTES, "T"), (NOTES, "ITA", "tab-7"), (PREVIEW,)),
                          INDEX_AND_TITLE, 3, [MAIL_TITLE, WEATHER_TITLE, NOTES, NOTES], 3)
    both = live((MAIL_TITLE, "S"), (NOTES, "T"), (NOTES, "TA", "tab-7"))
    yield strip(close_tab(WEATHER_TITLE), remove("preview")).gives_up(
        "gemini-two-tabs-of-one-title-and-no-tab-at-the-index-are-not-told-apart-by-the-id", both, INDEX_LOST,
        [MAIL_TITLE, NOTES, NOTES])
    shop = "Shopping list"
    third = live((MAIL_TITLE, "S"), (NOTES, "T"), (NOTES, "TA", "tab-7"), (shop, "I"), (PREVIEW,))
    yield strip(close_tab(WEATHER_TITLE), open_tab(tab(shop, "https://shop.example"))).selects(
        "gemini-two-tabs-of-one-title-leave-the-choice-to-the-index", third, INDEX_FALLBACK, 3,
        [MAIL_TITLE, NOTES, NOTES, shop], 3)


def strict():
    """ChatGPT's inactive tabs stand on their title alone: the index never helps."""
    def trips(*tabs, actions):
        return Strip(*tabs, actions=actions, name="ChatGPT")

    def anchored(index, title="ChatGPT"):
        return seen(index, title, "anchoredTitle strictTitle rawTitle", score=450)

    strip = trips(chatgpt_tab("ChatGPT"), chatgpt_tab("ChatGPT"), actions=[])
    strip.begin(anchored(1), anchored(2))
    yield strip.gives_up("chatgpt-strict-title-that-two-tabs-have-is-not-resolved",
                         live((MAIL_TITLE, "S"), ("ChatGPT", "IT"), ("ChatGPT", "T"), (PREVIEW,)), STRICT_TITLE_LOST,
                         [MAIL_TITLE, "ChatGPT", "ChatGPT"])

    strip = trips(report_tab(), chatgpt_tab("ChatGPT"), actions=[close_tab(REPORT_TITLE)])
    strip.begin(anchored(2), seen(1, REPORT_TITLE))
    yield strip.selects("chatgpt-strict-title-that-moved-is-found",
                        live((MAIL_TITLE, "S"), ("ChatGPT", "T"), (PREVIEW, "I")), UNIQUE_TITLE, 1,
                        [MAIL_TITLE, "ChatGPT"], 1)

    strip = trips(report_tab(), chatgpt_tab("ChatGPT"),
                  actions=[close_tab("ChatGPT"), open_tab(chatgpt_tab("Trip - ChatGPT"))])
    strip.begin(anchored(2), seen(1, REPORT_TITLE))
    yield strip.gives_up("chatgpt-strict-title-that-changed-is-not-resolved-by-its-index",
                         live((MAIL_TITLE, "S"), (REPORT_TITLE,), ("Trip - ChatGPT", "I"), (PREVIEW,)),
                         STRICT_TITLE_LOST, [MAIL_TITLE, REPORT_TITLE, "Trip - ChatGPT"])

    asleep = "ChatGPT - Tab sleeping - 12 MB"
    strip = trips(report_tab(), chatgpt_tab("ChatGPT"), actions=[close_tab("ChatGPT"), open_tab(chatgpt_tab(asleep))])
    strip.begin(anchored(2), seen(1, REPORT_TITLE))
    yield strip.selects("chatgpt-strict-title-still-fits-the-tab-asleep",
                        live((MAIL_TITLE, "S"), (REPORT_TITLE,), (asleep, "IT"), (PREVIEW,)), UNIQUE_TITLE, 2,
                        [MAIL_TITLE, REPORT_TITLE, asleep], 2)


def blank_title():
    """A title of blanks is a name, but nothing to compare: only the index fits."""
    windows = desk(work(tab("Mail"), tab("  ")))
    target = seen(1, "  ", "rawTitle", score=60)
    activation = Activation("  ")
    activation.discover([window("Chrome", seen(0, "Mail", "selected"), target)], desktop=windows)
    activation.choose("Chrome", target)
    activation.select(live(("Mail", "S"), ("  ", "I")), INDEX_AND_TITLE, 1).settle().finish()
    yield case("blank-name-finds-a-blank-title-by-its-index", windows, activation, provider_arguments("  "),
               selected={"work": 1}, selections=1, foreground="work")


def between_attempts():
    """The first attempt is refused; by the second the strip has changed."""
    refused = [fault(SELECT, UIA_E_ELEMENTNOTAVAILABLE)]
    whole = live((MAIL_TITLE, "S"), (REPORT_TITLE,), (NOTES, "IT"))

    def begin(*rules):
        windows = desk(work(mail_tab(), report_tab(), notes_tab(), rules=rules), quiet_home())
        activation = Activation("Gemini")
        activation.discover([window("Chrome", SEEN_MAIL, seen(1, REPORT_TITLE), notes_at(2)), QUIET_HOME],
                            desktop=windows)
        return windows, activation.choose("Chrome", notes_at(2))

    windows, activation = begin(at(60, close_tab(REPORT_TITLE)))
    activation.attempt(1, UIA_E_ELEMENTNOTAVAILABLE, whole, INDEX_AND_TITLE, 2)
    activation.attempt(2, S_OK, live((MAIL_TITLE, "S"), (NOTES, "T")), UNIQUE_TITLE, 1)
    activation.selection_passed().settle().finish()
    yield case("gemini-second-attempt-looks-afresh", windows, activation, provider_arguments("Gemini"),
               selected={"work": 1, "home": 0}, selections=2, foreground="work", faults=refused,
               titles={"work": [MAIL_TITLE, NOTES]})

    windows, activation = begin(at(60, close_window("work")))
    activation.attempt(1, UIA_E_ELEMENTNOTAVAILABLE, whole, INDEX_AND_TITLE, 2)
    activation.attempt(2, E_INVALIDARG).selection_failed(E_INVALIDARG).finish_blocked()
    yield case("gemini-window-that-closed-before-the-second-attempt", windows, activation,
               provider_arguments("Gemini"), selected={"home": 0}, selections=1, faults=refused)

    windows, activation = begin(at(50, close_window("work")))
    activation.attempt(1, UIA_E_ELEMENTNOTAVAILABLE, whole, INDEX_AND_TITLE, 2, read_back=False)
    activation.attempt(2, E_INVALIDARG).selection_failed(E_INVALIDARG).finish_blocked()
    yield case("gemini-window-that-closed-before-the-selection-was-read-back", windows, activation,
               provider_arguments("Gemini"), selected={"home": 0}, selections=1)


def closed_at_once():
    closing = quiet_home() | {"rules": [on_read("addressBar", close_window("work"), times=1)]}
    windows = desk(work(mail_tab(), notes_tab()), closing)
    activation = Activation("Gemini")
    activation.discover([window("Chrome", SEEN_MAIL, notes_at(1)), QUIET_HOME], desktop=windows)
    activation.choose("Chrome", notes_at(1)).attempt(1, E_INVALIDARG).selection_failed(E_INVALIDARG).finish_blocked()
    yield case("gemini-window-that-closed-behind-its-inventory", windows, activation, provider_arguments("Gemini"),
               selected={"home": 0}, selections=0)


def scenarios():
    for part in (moved, renamed, twins, strict, blank_title, between_attempts, closed_at_once):
        yield from part()
