"""What a selected page must show before its window is brought forward, and the way back to the tab before it."""
from .activation import Activation
from .activation_cases import (CHATGPT_URL, CLAUDE_URL, GEMINI_URL, MAIL_TITLE, REPORT_TITLE, SEEN_MAIL, case,
                               chatgpt_page, claude_page, claude_tab, desk, gemini_tab, home, mail_tab,
                               provider_arguments, report_tab, weather_tab, work)
from .activation_tabs import INDEX_AND_TITLE, INDEX_FALLBACK, INDEX_LOST, UNIQUE_TITLE, live, seen, window
from .core import ALWAYS, E_FAIL, at, close_window, fault, tab

SELECT = "IUIAutomationSelectionItemPattern::Select"
COMPANY = "Company homepage restoration"
CHATGPT = "ChatGPT final restoration"
CLAUDE = "Claude final restoration"
TITLES = {"ChatGPT": "ChatGPT", "Claude": "Claude", "Gemini": "Google Gemini"}


class Search:
    """A search whose target is an inactive tab behind the mail in front; its page decides."""

    def __init__(self, name, address, *, page=(), original=SEEN_MAIL, rules=(), tab_rules=(), tabs=None, **facts):
        self.name, self.title = name, TITLES[name]
        strip = tabs or (mail_tab(), tab(self.title, address, page, tab_rules))
        self.windows = desk(work(*strip, rules=rules, **facts))
        marks = "anchoredTitle strictTitle rawTitle" if name == "ChatGPT" else "anchoredTitle rawTitle"
        self.target = seen(1, self.title, marks, score=450 if name == "ChatGPT" else 200)
        self.reason = UNIQUE_TITLE if name == "ChatGPT" else INDEX_AND_TITLE
        self.before = original

    def selected(self, *, others=(), before="S"):
        """The activation once the target is selected and has settled."""
        self.activation = Activation(self.name)
        self.activation.discover([window("Chrome", self.before, self.target, *others)],
                                 desktop=self.windows)
        self.activation.choose("Chrome", self.target)
        strip = [(self.before.title, before), (self.title, "IT"), *((one.title,) for one in others)]
        return self.activation.select(live(*strip), self.reason, 1).settle()

    def restored(self, step):
        strip = live((self.before.title, "IT"), (self.title, "S"))
        return self.activation.restore(step, self.before, strip, INDEX_AND_TITLE, 0)

    def blocked(self, file, *, selected=0, selections=2, **more):
        self.activation.finish_blocked()
        return case(file, self.windows, self.activation, provider_arguments(self.name),
                    selected={"work": selected} if selected is not False else {}, selections=selections, **more)

    def succeeds(self, file, **more):
        self.activation.finish(**more)
        return case(file, self.windows, self.activation, provider_arguments(self.name), selected={"work": 1},
                    selections=1, foreground="work")


def company_pages():
    for name, address, word in (("Gemini", "https://gemini.google/about/", "information-page"),
                                ("Gemini", "https://www.google.com/search?q=gemini", "search-page"),
                                ("Claude", "https://www.anthropic.com/claude", "company-page"),
                                ("ChatGPT", "https://openai.com/chatgpt/overview/", "company-page")):
        search = Search(name, address)
        search.selected().company_homepage()
        search.restored(COMPANY)
        yield search.blocked(f"{name.lower()}-tab-that-is-a-{word}-is-blocked-and-left-again")

    search = Search("Gemini", GEMINI_URL)
    search.selected()
    yield search.succeeds("gemini-chat-page-under-the-companys-host-is-no-company-page")

    search = Search("ChatGPT", "https://chat.openai.com/c/9")
    search.selected().chatgpt_identity(passes=True, composer=False)
    yield search.succeeds("chatgpt-legacy-host-under-the-companys-host-is-no-company-page")


def company_page_in_front():
    """The page in front turns into a company page while the selection settles."""
    leaves = [at(60, {"address": "https://gemini.google/subscriptions/"})]
    target = seen(1, "Google Gemini", "selected domain anchoredTitle rawTitle", url=GEMINI_URL, score=520)
    windows = desk(home(weather_tab(), gemini_tab("Google Gemini", rules=leaves), selected=1))
    activation = Activation("Gemini")
    activation.discover([window("Edge", seen(0, "Weather for the weekend"), target)], desktop=windows)
    activation.choose("Edge", target).already_selected().settle().company_homepage().finish_blocked()
    yield case("gemini-page-in-front-that-becomes-a-company-page-has-no-way-back", windows, activation,
               provider_arguments("Gemini"), selected={"home": 1}, selections=0)

    # "Gemini" lies within the window's title too: it counts as the tab that was selected before.
    short = seen(0, "Gemini", "selected domain anchoredTitle rawTitle", url=GEMINI_URL, score=520)
    notes = "Notes - Google Gemini"
    target = seen(1, notes, "selected domain anchoredTitle rawTitle", url=GEMINI_URL, score=520)
    windows = desk(home(tab("Gemini", "https://gemini.example"), gemini_tab(notes, rules=leaves), selected=1))
    activation = Activation("Gemini")
    activation.discover([window("Edge", short, target)], desktop=windows)
    activation.choose("Edge", short).already_selected().settle().company_homepage()
    activation.restore(COMPANY, target, live(("Gemini",), (notes, "SIT")), INDEX_AND_TITLE, 1).finish_blocked()
    yield case("gemini-window-whose-title-marks-two-tabs-goes-back-to-the-other", windows, activation,
               provider_arguments("Gemini"), selected={"home": 1}, selections=1)


def restorations():
    """The way back fails, or there is none; nothing is tried twice."""
    about = "https://gemini.google/about/"
    both = live((MAIL_TITLE, "IT"), ("Google Gemini", "S"))

    search = Search("Gemini", about)
    search.selected().company_homepage().restore(COMPANY, SEEN_MAIL, both, INDEX_AND_TITLE, 0, read_back=None)
    yield search.blocked("gemini-original-tab-that-refuses-is-not-restored", selected=1,
                         faults=[fault(SELECT, "0x80040201", times=ALWAYS, element=MAIL_TITLE)])

    search = Search("Gemini", about)
    search.selected().company_homepage().restore(COMPANY, SEEN_MAIL, both, INDEX_AND_TITLE, 0, read_back=False)
    yield search.blocked("gemini-original-tab-whose-selection-has-no-effect-is-not-restored", selected=1,
                         faults=[fault(SELECT, "0x0", element=MAIL_TITLE)])

    search = Search("Gemini", about)
    search.selected().company_homepage().restore(COMPANY, SEEN_MAIL)
    # Roots of the window: discovery, the attempt, the safeguard, and then the restoration.
    yield search.blocked("gemini-window-without-a-root-is-not-restored", selected=1, selections=1,
                         faults=[fault("IUIAutomation::ElementFromHandle", E_FAIL, 4, window="work")])

    last = seen(2, "Mail", "selected")
    strip = (report_tab(), tab("Google Gemini", about), tab("Mail", "mail.example"))
    for action, word in (({"closeTab": "Mail"}, "closed"), (None, "is-there")):
        rules = [at(150, action)] if action else []
        windows = desk(work(*strip, selected=2, rules=rules))
        target = seen(1, "Google Gemini", "anchoredTitle rawTitle", score=200)
        activation = Activation("Gemini")
        activation.discover([window("Chrome", seen(0, REPORT_TITLE), target, last)], desktop=windows)
        activation.choose("Chrome", target)
        activation.select(live((REPORT_TITLE,), ("Google Gemini", "IT"), ("Mail", "S")), INDEX_AND_TITLE, 1)
        activation.settle().company_homepage()
        if action:
            activation.restore(COMPANY, last, live((REPORT_TITLE,), ("Google Gemini", "S")), INDEX_LOST)
        else:
            activation.restore(COMPANY, last, live((REPORT_TITLE,), ("Google Gemini", "S"), ("Mail", "IT")),
                               INDEX_AND_TITLE, 2)
        activation.finish_blocked()
        yield case(f"gemini-original-tab-behind-the-target-{word}", windows, activation, provider_arguments("Gemini"),
                   selected={"work": 1 if action else 2}, selections=1 if action else 2,
                   titles={"work": [REPORT_TITLE, "Google Gemini"]} if action else None)

    # Closed in front of the target: its index now holds the target, which is all that is left to go back to.
    search = Search("Gemini", about, rules=[at(150, {"closeTab": MAIL_TITLE})])
    search.selected().company_homepage()
    search.activation.restore(COMPANY, SEEN_MAIL, live(("Google Gemini", "SI")), INDEX_FALLBACK, 0)
    yield search.blocked("gemini-original-tab-in-front-of-the-target-closed", titles={"work": ["Google Gemini"]})

    search = Search("Gemini", about, original=seen(0, MAIL_TITLE), selected=None)
    search.selected(before="").company_homepage()
    yield search.blocked("gemini-window-that-showed-no-tab-has-no-way-back", selected=1, selections=1)


def chatgpt():
    def run(file, *, passes, composer, address, page=(), **facts):
        search = Search("ChatGPT", address, page=page, **facts)
        search.selected().chatgpt_identity(passes=passes, composer=composer)
        if passes:
            return search.succeeds(f"chatgpt-{file}")
        search.restored(CHATGPT)
        return search.blocked(f"chatgpt-{file}")

    page = chatgpt_page()
    yield run("address-alone-proves-the-page", passes=True, composer=False, address="chatgpt.com/")
    yield run("composer-without-an-address-proves-the-page", passes=True, composer=True, address="", page=page)
    yield run("neither-address-nor-composer-proves-nothing", passes=False, composer=False, address="")
    yield run("address-of-another-provider-outweighs-the-composer", passes=False, composer=True,
              address="https://claude.ai/new", page=page)
    yield run("unknown-address-outweighs-the-composer", passes=False, composer=True,
              address="https://intranet.example/chat", page=page)
    yield run("composer-in-a-window-without-an-address-bar-proves-the-page", passes=True, composer=True,
              address=CHATGPT_URL, page=page, addressBar=None)

    # The page is still empty when the selection has settled, and has its address by the second look.
    search = Search("ChatGPT", "", tab_rules=[at(399, {"address": "chatgpt.com/"})])
    search.selected().chatgpt_identity(passes=True, composer=False)
    yield search.succeeds("chatgpt-page-that-loads-within-the-pause-is-proven")
    search = Search("ChatGPT", "", tab_rules=[at(401, {"address": "chatgpt.com/"})])
    search.selected().chatgpt_identity(passes=False, composer=False)
    search.restored(CHATGPT)
    yield search.blocked("chatgpt-page-that-loads-after-the-pause-is-not-proven")

    # Roots of the window: the selected page, discovery, the attempt, the safeguard, and then the identity.
    search = Search("ChatGPT", CHATGPT_URL, page=page)
    search.selected().chatgpt_identity(passes=False, composer=False)
    search.restored(CHATGPT)
    yield search.blocked("chatgpt-window-without-a-root-at-the-last-look-is-not-proven",
                         faults=[fault("IUIAutomation::ElementFromHandle", E_FAIL, 5, window="work")])

    search = Search("ChatGPT", "", rules=[at(250, close_window("work"))])
    search.selected().chatgpt_identity(passes=False, composer=False).restore(CHATGPT, SEEN_MAIL)
    yield search.blocked("chatgpt-window-that-closed-before-the-last-look-is-not-proven", selected=False, selections=1)


def claude():
    for address, word in (("https://claude.ai/chat/77b1", "chat"), ("claude.ai/new?incognito", "new-chat"),
                          ("https://claude.ai/", "bare-host-with-a-slash"), ("https://claude.ai", "bare-host"),
                          ("HTTPS://CLAUDE.AI/New", "address-in-capitals")):
        search = Search("Claude", address)
        search.selected().claude_identity(passes=True)
        yield search.succeeds(f"claude-{word}-is-a-usable-page")
    for address, word in (("claude.ai", "bare-host-without-a-scheme"),
                          ("https://claude.ai/chat", "chat-without-a-slash"),
                          ("https://claude.ai/settings/profile", "settings"), ("https://claude.ai/recents", "recents"),
                          ("https://claude.ai/project/9", "project"), ("https://claude.example/chat/1", "other-host"),
                          ("", "page-without-an-address")):
        search = Search("Claude", address)
        search.selected().claude_identity(passes=False)
        search.restored(CLAUDE)
        yield search.blocked(f"claude-{word}-is-no-usable-page")


def claude_in_front():
    url = "https://claude.ai/new"
    leaves = [at(60, {"address": "https://claude.ai/settings"})]
    windows = desk(home(weather_tab(), claude_tab("Claude", url, rules=leaves), selected=1))
    target = seen(1, "Claude", "selected domain anchoredTitle rawTitle", url=url, score=520)
    activation = Activation("Claude")
    activation.discover([window("Edge", seen(0, "Weather for the weekend"), target)], desktop=windows)
    activation.choose("Edge", target).already_selected().settle().claude_identity(passes=False).finish_blocked()
    yield case("claude-page-in-front-that-becomes-unusable-has-no-way-back", windows, activation,
               provider_arguments("Claude"), selected={"home": 1}, selections=0)

    search = Search("Claude", CLAUDE_URL, page=claude_page(), rules=[at(150, close_window("work"))])
    search.selected().claude_identity(passes=False).restore(CLAUDE, SEEN_MAIL)
    yield search.blocked("claude-window-that-closed-behind-the-selection", selected=False, selections=1)


def second_candidate():
    """The best candidate fails; the next best, which would have passed, is never touched."""
    strip = (mail_tab(), tab("Claude", "https://claude.ai/settings"), claude_tab("Talking to Claude"))
    search = Search("Claude", "", tabs=strip)
    second = seen(2, "Talking to Claude", "rawTitle", score=60)
    search.selected(others=(second,)).claude_identity(passes=False)
    search.activation.restore(CLAUDE, SEEN_MAIL, live((MAIL_TITLE, "IT"), ("Claude", "S"), ("Talking to Claude",)),
                              INDEX_AND_TITLE, 0)
    yield search.blocked("claude-second-candidate-is-never-touched")


def scenarios():
    for part in (company_pages, company_page_in_front, restorations, chatgpt, claude, claude_in_front,
                 second_candidate):
        yield from part()
