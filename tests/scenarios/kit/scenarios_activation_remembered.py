"""What the interface remembers of an earlier activation, and how far it leads."""
from .activation import Activation
from .activation_cases import (MAIL_TITLE, SEEN_MAIL, WEATHER_TITLE, WEATHER_URL, case, chatgpt_page, chatgpt_tab,
                               claude_tab, desk, gemini_tab, home, mail_tab, new_tab, provider_arguments,
                               weather_tab, work)
from .activation_routes import BROWSER_CHANGED, NOT_RESOLVED, NO_TABS_READ, REMEMBERED_INDEX_AND_TITLE
from .activation_tabs import (INDEX_AND_TITLE, REJECT_NON_CHAT_CLAUDE_PAGE, UNIQUE_TITLE, live, remembered_steps,
                              seen, window)
from .core import E_FAIL, fault, tab
from .scenarios_activation_decisions import found_inactive, found_selected, not_found

WORK_HANDLE = {"$windowText": "work"}
SEEN_WEATHER = seen(0, WEATHER_TITLE, "selected", url=WEATHER_URL)


def at_position(index, **more):
    return {"rememberedBrowser": "Chrome", "rememberedWindowHandle": WORK_HANDLE, "rememberedTabIndex": index, **more}


def tabs_unread(warm):
    """The remembered window can't be read at first, so that the search comes to it by the way of the discovery."""
    warm.warm_missed(NO_TABS_READ)


def unread(nth):
    return {"warm": tabs_unread, "faults": [fault("IUIAutomation::ElementFromHandle", E_FAIL, nth, window="work")]}


def missed_for(reason):
    return {"warm": lambda activation: activation.warm_missed(reason)}


def unresolved(tabs):
    return {"warm": lambda activation: activation.warm_inspected("Chrome", tabs, NOT_RESOLVED)}


def position():
    title = "Trip to Lisbon"
    windows = desk(work(mail_tab(), chatgpt_tab(title)))
    target = seen(1, title, "rememberedPosition", score=320)
    found = [window("Chrome", SEEN_MAIL, target)]
    chosen = live((MAIL_TITLE, "S"), (title, "IT"))
    yield found_inactive("chatgpt-remembered-position-is-enough-for-a-tab-that-names-nobody", "ChatGPT", windows, found,
                         "Chrome", target, chosen, INDEX_AND_TITLE, composer=True, foreground="work",
                         selected={"work": 1}, **at_position("1"), **unread(2))
    yield found_inactive("chatgpt-remembered-position-reads-the-digits-in-front-of-other-signs", "ChatGPT", windows,
                         found, "Chrome", target, chosen, INDEX_AND_TITLE, composer=True, foreground="work",
                         selected={"work": 1}, **at_position(" 1st tab", rememberedBrowser="cHROME"), **unread(2))

    # The position counts beside the anchored title, and outranks the same title in front of it.
    windows = desk(work(mail_tab(), chatgpt_tab("Trip - ChatGPT"), chatgpt_tab("Menu - ChatGPT")))
    first = seen(1, "Trip - ChatGPT", "anchoredTitle strictTitle rawTitle", score=450)
    target = seen(2, "Menu - ChatGPT", "anchoredTitle strictTitle rawTitle rememberedPosition", score=770)
    yield found_inactive("chatgpt-remembered-position-adds-to-the-anchored-title", "ChatGPT", windows,
                         [window("Chrome", SEEN_MAIL, first, target)], "Chrome", target,
                         live((MAIL_TITLE, "S"), ("Trip - ChatGPT",), ("Menu - ChatGPT", "IT")), UNIQUE_TITLE,
                         composer=True, foreground="work", selected={"work": 2}, **at_position("2"), **unread(2))

    # A text without digits is 0: the tab in front of the window, which has its own proof to show.
    windows = desk(work(chatgpt_tab("Lisbon"), mail_tab(), addressBar=None))
    target = seen(0, "Lisbon", "selected verifiedContent rememberedPosition", score=620)
    yield found_selected("chatgpt-remembered-index-without-digits-is-the-first-tab", "ChatGPT", windows,
                         [window("Chrome", target, seen(1, MAIL_TITLE), proves_composer=True)], "Chrome", target,
                         composer=True, foreground="work", selected={"work": 0}, **at_position("last"), **unread(2))


def position_refused():
    title = "Trip to Lisbon"
    windows = desk(work(mail_tab(), chatgpt_tab(title)))
    found = [window("Chrome", SEEN_MAIL, seen(1, title))]

    def missed(file, warm=None, **remembered):
        return not_found(f"chatgpt-{file}", "ChatGPT", windows, found, **at_position("1") | remembered,
                         **(warm or {}))

    changed = missed_for(BROWSER_CHANGED)
    yield missed("remembered-position-counts-only-in-the-remembered-browser", changed, rememberedBrowser="Edge")
    yield missed("remembered-position-needs-a-remembered-browser", rememberedBrowser="")
    yield missed("remembered-handle-as-a-number-reads-as-absent", rememberedWindowHandle={"$window": "work"})
    yield missed("remembered-handle-without-digits-is-no-window", rememberedWindowHandle="work")
    yield missed("remembered-handle-of-another-window-is-no-position", changed,
                 rememberedWindowHandle={"$windowText": "editor"})
    yield missed("remembered-index-as-a-number-reads-as-absent", rememberedTabIndex=1)
    yield missed("remembered-index-that-is-empty-is-no-position", rememberedTabIndex="")
    yield missed("remembered-index-below-zero-is-no-position", rememberedTabIndex="-1")
    yield missed("remembered-index-of-another-tab-is-no-position", unresolved(2), rememberedTabIndex="2")

    windows = desk(work(mail_tab(), new_tab(), tab("OpenAI | Research", "https://openai.com/research")))
    for index, (word, tab_title) in enumerate((("new-tab", "New tab"), ("company", "OpenAI | Research")), 1):
        tabs = [seen(each, one, "rememberedPosition" if each == index else "")
                for each, one in ((1, "New tab"), (2, "OpenAI | Research"))]
        yield not_found(f"chatgpt-remembered-position-that-holds-a-{word}-page-is-turned-down", "ChatGPT", windows,
                        [window("Chrome", SEEN_MAIL, *tabs)], **at_position(str(index)),
                        **(unresolved(3) if word == "new-tab" else unread(2)))

    windows = desk(work(mail_tab(), gemini_tab("Lisbon")))
    yield not_found("gemini-remembered-position-counts-for-chatgpt-alone", "Gemini", windows,
                    [window("Chrome", SEEN_MAIL, seen(1, "Lisbon"))], **at_position("1"), **unread(1))


def title():
    name = "Trip to Lisbon"
    memory = {"rememberedTitle": name, "rememberedBrowser": "Chrome"}
    steps = remembered_steps(title=name)
    windows = desk(home(weather_tab(), tab(name)), work(mail_tab(), chatgpt_tab(name)))
    elsewhere = seen(1, name, "remembered")
    target = seen(1, name, "remembered strictTitle", score=510)
    yield found_inactive("chatgpt-remembered-title-counts-in-the-remembered-browser-alone", "ChatGPT", windows,
                         [window("Edge", SEEN_WEATHER, elsewhere), window("Chrome", SEEN_MAIL, target)], "Chrome",
                         target, live((MAIL_TITLE, "S"), (name, "IT")), UNIQUE_TITLE, composer=True, foreground="work",
                         selected={"home": 0, "work": 1}, remembered=steps, **memory)

    similar = "Trip to Lisbon in spring"
    windows = desk(work(mail_tab(), tab(similar, "chatgpt.com/c/5", chatgpt_page())))
    yield not_found("chatgpt-remembered-title-must-be-the-whole-title", "ChatGPT", windows,
                    [window("Chrome", SEEN_MAIL, seen(1, similar, "remembered"))], remembered=steps, **memory)

    # For the others a part of eight signs is enough, in any browser; a shorter one is not.
    target = seen(1, similar, "remembered", score=260)
    windows = desk(work(mail_tab(), gemini_tab(similar)))
    yield found_inactive("gemini-remembered-title-may-be-a-part-of-the-title", "Gemini", windows,
                         [window("Chrome", SEEN_MAIL, target)], "Chrome", target,
                         live((MAIL_TITLE, "S"), (similar, "IT")), INDEX_AND_TITLE, foreground="work",
                         selected={"work": 1}, remembered=steps, rememberedTitle=name)
    yield not_found("gemini-remembered-title-of-seven-signs-must-be-the-whole-title", "Gemini", windows,
                    [window("Chrome", SEEN_MAIL, seen(1, similar))], remembered=remembered_steps(title="Trip to"),
                    rememberedTitle="Trip to")

    # Both decorated by the browser: what was remembered while it slept is the same title awake.
    slept = "Trip to Lisbon - Memory saver - 212 MB"
    target = seen(1, name, "remembered strictTitle", score=510)
    windows = desk(work(mail_tab(), chatgpt_tab(name)))
    yield found_inactive("chatgpt-remembered-title-of-a-sleeping-tab-fits-it-awake", "ChatGPT", windows,
                         [window("Chrome", SEEN_MAIL, target)], "Chrome", target,
                         live((MAIL_TITLE, "S"), (name, "IT")), UNIQUE_TITLE, composer=True, foreground="work",
                         selected={"work": 1}, remembered=remembered_steps(title=slept),
                         **memory | {"rememberedTitle": slept})


def foreign_title():
    windows = desk(work(mail_tab(), gemini_tab("Plan for the week"), gemini_tab()))
    target = seen(2, "Notes - Google Gemini", "anchoredTitle rawTitle", score=200)
    yield found_inactive("gemini-remembered-title-of-claude-is-ignored", "Gemini", windows,
                         [window("Chrome", SEEN_MAIL, seen(1, "Plan for the week"), target)], "Chrome", target,
                         live((MAIL_TITLE, "S"), ("Plan for the week",), ("Notes - Google Gemini", "IT")),
                         INDEX_AND_TITLE, foreground="work", selected={"work": 2},
                         remembered=remembered_steps(ignored=True), rememberedTitle="Plan for the week - Claude")


def automation_id():
    memory = {"rememberedTitle": "Release notes", "rememberedAutomationId": "View_7", "rememberedBrowser": "chrome"}
    steps = remembered_steps(automation_id="View_7", title="Release notes")
    windows = desk(work(mail_tab(), claude_tab("Release notes", automationId="view_7"),
                        claude_tab("Release notes", automationId="View_7")))
    other = seen(1, "Release notes", "remembered", id="view_7", score=260)
    target = seen(2, "Release notes", "remembered rememberedAutomationId", id="View_7", score=300)
    yield found_inactive("claude-remembered-id-tells-equal-titles-apart-with-case", "Claude", windows,
                         [window("Chrome", SEEN_MAIL, other, target)], "Chrome", target,
                         live((MAIL_TITLE, "S"), ("Release notes", "T", "view_7"), ("Release notes", "ITA", "View_7")),
                         INDEX_AND_TITLE, foreground="work", selected={"work": 2}, remembered=steps, **memory)

    windows = desk(home(weather_tab(), claude_tab("Letters", automationId="View_7"),
                        claude_tab("Release notes", automationId="View_7")))
    sees_weather = seen(0, WEATHER_TITLE, "selected", url=WEATHER_URL, decision=REJECT_NON_CHAT_CLAUDE_PAGE)
    target = seen(2, "Release notes", "remembered", id="View_7", score=260)
    yield found_inactive("claude-remembered-id-counts-with-title-and-browser-alone", "Claude", windows,
                         [window("Edge", sees_weather, seen(1, "Letters", id="View_7"), target)], "Edge", target,
                         live((WEATHER_TITLE, "S"), ("Letters", "A", "View_7"), ("Release notes", "ITA", "View_7")),
                         INDEX_AND_TITLE, foreground="home", selected={"home": 2}, remembered=steps, **memory)


def given_back():
    """What one reply says of its target leads the next search to it at once."""
    title = "Trip to Lisbon - ChatGPT"
    windows = desk(work(mail_tab(), chatgpt_tab(title, automationId="view_9"), selected=1, addressBar=None))
    target = seen(1, title, "selected anchoredTitle verifiedContent rawTitle", id="view_9", score=500)
    first = Activation("ChatGPT")
    first.discover([window("Chrome", seen(0, MAIL_TITLE), target, proves_composer=True)], desktop=windows)
    first.choose("Chrome", target).already_selected().settle()
    first.chatgpt_identity(passes=True, composer=True).finish()

    second = Activation("ChatGPT", start_ms=first.end_ms, search_id=2)
    second.warm_inspected("Chrome", 2).warm_choice(REMEMBERED_INDEX_AND_TITLE, target).warm_already_selected()
    second.warm_verified(True, "", composer=1).warm_ready("Chrome", takes_ms=0)
    yield case("chatgpt-reply-given-back-leads-to-the-same-tab", windows, first, provider_arguments("ChatGPT"),
               selected={"work": 1}, selections=0, foreground="work", looks=False,
               then=[(second, provider_arguments(
                   "ChatGPT", rememberedTitle={"$from": "activation.selectedTitle"},
                   rememberedAutomationId={"$from": "activation.selectedAutomationId"},
                   rememberedBrowser={"$from": "activation.browser"},
                   rememberedWindowHandle={"$fromText": "activation.windowHandle"},
                   rememberedTabIndex={"$fromText": "activation.selectedTabIndex"}))])


def scenarios():
    for part in (position, position_refused, title, foreign_title, automation_id, given_back):
        yield from part()
