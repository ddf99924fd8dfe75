"""What the scenarios of the remembered tab share: what is remembered, the desktop around it, and the ways behind."""
from .activation import Activation
from .activation_cases import (MAIL_TITLE, REPORT_TITLE, SEEN_MAIL, SEEN_QUIET_HOME, case, chatgpt_tab,
                               claude_tab, desk, gemini_tab, mail_tab, perplexity_page, provider_arguments, quiet_home, report_tab, work)
from .activation_tabs import INDEX_AND_TITLE, S_OK, live, seen, window
from .core import tab

FOLDER = "warm"
NOTES = "Notes - Google Gemini"
QUIET_HOME = window("Edge", *SEEN_QUIET_HOME)
SELECT = "IUIAutomationSelectionItemPattern::Select"
ROOT = "IUIAutomation::ElementFromHandle"

# A tab of each provider: its title, its address and what its page shows.
PAGES = {
    "ChatGPT": chatgpt_tab(),
    "Claude": claude_tab(),
    "Gemini": gemini_tab(),
    "Perplexity": tab("best ramen in town - Perplexity", "perplexity.ai/search/best-ramen", perplexity_page()),
    "DeepSeek": tab("DeepSeek - Into the Unknown", "https://chat.deepseek.com/a/chat/s/91"),
    "Grok": tab("Grok / X", "https://x.com/i/grok?conversation=19"),
    "Qwen": tab("通义千问 - 我的对话", "https://chat.qwen.ai/c/91"),
    "Doubao": tab("豆包 - 字节跳动旗下 AI 智能助手", "https://www.doubao.com/chat/"),
}


def memory(index, title="", *, browser="Chrome", window_id="work", **more):
    """As the interface sends it: what an earlier reply said, in texts."""
    return {"rememberedTitle": title, "rememberedBrowser": browser,
            "rememberedWindowHandle": {"$windowText": window_id}, "rememberedTabIndex": str(index), **more}


def warm_case(file, windows, activation, remembered, *, selected, selections, name=None, **more):
    arguments = provider_arguments(name or activation.name, **remembered)
    return case(file, windows, activation, arguments, selected=selected, selections=selections, folder=FOLDER, **more)


def gemini_desk(*tabs, rules=(), **facts):
    """The window "work" with the mail in front and, unless said otherwise, the notes and a report behind it."""
    strip = tabs or (mail_tab(), gemini_tab(), report_tab())
    return desk(work(*strip, rules=rules, **facts), quiet_home())


NOTES_AT_1 = seen(1, NOTES, "anchoredTitle rawTitle", score=200)
SEEN_REPORT = seen(2, REPORT_TITLE)
STRIP = live((MAIL_TITLE, "S"), (NOTES, "IT"), (REPORT_TITLE,))
MAIL_BACK = live((MAIL_TITLE, "IT"), (NOTES, "S"), (REPORT_TITLE,))


def discovers_notes(activation, windows, tabs=(SEEN_MAIL, NOTES_AT_1, SEEN_REPORT), live_tabs=STRIP, *, target=None,
                    browser="Chrome", windows_seen=None, remembered=(), front=None):
    """The full discovery behind the remembered tab finds the notes and selects them."""
    target = target or next(one for one in tabs if one.accepted)
    seen_windows = windows_seen or [window("Chrome", *tabs), QUIET_HOME]
    activation.discover(seen_windows, desktop=windows, remembered=remembered, front=front).choose(browser, target)
    place = next(number for number, one in enumerate(live_tabs) if one.index == target.index)
    return activation.select(live_tabs, INDEX_AND_TITLE, place).settle().finish()


def selected_notes(activation, reason, tab_seen=NOTES_AT_1, live_tabs=STRIP, choice=INDEX_AND_TITLE, place=1):
    """The remembered tab is chosen and selected."""
    return activation.warm_choice(reason, tab_seen).warm_select(S_OK, live_tabs, choice, place)


def begin(name="Gemini", tabs=3, browser="Chrome"):
    return Activation(name).warm_inspected(browser, tabs)
