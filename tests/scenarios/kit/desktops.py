"""Desktops as people leave them: the provider's tab among others, more browsers, an editor, a terminal, mail."""
from .core import browser, button, edit, element, tab, text, window

# The window that shows the provider, unless a scenario says otherwise.
CHAT = "chat"


def notes(identifier="notes", **facts):
    return window(identifier, "notepad.exe", f"{identifier} - Notepad", (100, 100, 900, 700), **facts)


def editor():
    return window(
        "editor", "Code.exe", "lease.md - notes - Visual Studio Code", (120, 60, 1500, 980),
        [button("explorer", "Explorer", (120, 100, 168, 148)),
         edit("source", "lease.md", (420, 120, 1480, 900), value="# Lease\n\n- deposit\n- repairs\n"),
         text("statusBar", "Ln 3, Col 10  UTF-8  LF", (120, 955, 1500, 980))],
        **{"class": "Chrome_WidgetWin_1"})


def terminal():
    return window(
        "terminal", "WindowsTerminal.exe", "PowerShell", (200, 140, 1300, 800),
        [element("document", "console", "PowerShell", (200, 180, 1300, 800), focusable=True)],
        **{"class": "CASCADIA_HOSTING_WINDOW_CLASS"})


def mail():
    return window(
        "mail", "OUTLOOK.EXE", "Inbox - Outlook", (0, 0, 1400, 900),
        [edit("searchMail", "Search", (400, 8, 900, 36), value=""),
         button("newMail", "New Email", (16, 60, 140, 110)),
         edit("reply", "Message body", (600, 560, 1380, 880), value="Dear Ms Winter,\n")],
        **{"class": "rctrl_renwnd32"})


def mail_tab():
    return tab("(3) Inbox - Proton Mail", "https://mail.proton.me/u/0/inbox")


def video_tab():
    return tab("(12) How to read a lease - YouTube", "https://www.youtube.com/watch?v=lease101")


def sleeping_tab():
    return tab("Rent index 2026 - Sleeping tab - 84 MB", "https://www.stadt.example/rent-index")


def news_tab():
    return tab("Morning briefing | The Courier", "https://courier.example/briefing",
               [edit("searchNews", "Search The Courier", (560, 160, 1000, 200), value=""),
                text(None, "Council votes on rent cap", (560, 260, 1360, 320))])


def second_browser():
    """Another browser behind, with tabs that say nothing about a provider."""
    return browser("reading", "msedge.exe", [news_tab(), video_tab(), sleeping_tab()], selected=0,
                   bounds=(300, 80, 1800, 1000))


def chat_browser(page_tab, process="chrome.exe", tabs_before=None, tabs_after=None, **facts):
    """The provider's tab in front, between two others."""
    before = [mail_tab()] if tabs_before is None else tabs_before
    after = [sleeping_tab()] if tabs_after is None else tabs_after
    return browser(CHAT, process, [*before, page_tab, *after], selected=len(before), **facts)


def desk(chat_window):
    """The provider's window in front of an ordinary working day."""
    return [chat_window, editor(), second_browser(), mail()]
