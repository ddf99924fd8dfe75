"""Every method of the browser channel with right, missing and wrong arguments, and messages that are none."""
from .channel import (BAD_ARGUMENTS, CHANNEL, NOT_IMPLEMENTED, PLAIN_FAILURE, WRONG_ARGUMENTS, Conversation,
                      byte_message, text_bytes)
from .core import E_FAIL, button, close_window, edit, fault, tab, user
from .desktops import notes
from .pages import CLAUDE

INVALID_READ = "Invalid read in StandardCodecByteStreamReader"
NAME_IS_NO_STRING = "Invalid method call; method name is not a string."
NO_CALL = f"Unable to construct method call from message on channel {CHANNEL}"
UNKNOWN_TYPE = "Unknown type in StandardCodecSerializer::ReadValueOfType: "
ADDRESS = "https://example.org/rent?q=豆&n=1"


def opened(file=ADDRESS):
    return {"owner": None, "verb": "open", "file": file, "parameters": None, "directory": None, "show": 1}


def claude_window(extra=(), **facts):
    """A browser whose one page has a composer, and what is given."""
    page = [edit("composer", CLAUDE.composer_name, (560, 900, 1360, 960), value="Draft", **facts), *extra]
    return {"id": "chat", "process": "chrome.exe", "bounds": [40, 20, 1640, 1020],
            "tabs": [dict(tab(CLAUDE.title, CLAUDE.address), selected=True, page=page)]}


def external_urls():
    talk = Conversation("open-external-url", "an address is opened, and nothing without one")
    talk.ask("openExternalUrl", {"url": ADDRESS}, {"success": True})
    talk.ask("openExternalUrl", {"url": "mailto:a@example.org", "other": 7}, {"success": True})
    for wrong in (..., None, "https://example.org", ["https://example.org"], {}, {"url": ""}, {"Url": ADDRESS},
                  *({"url": value} for value in WRONG_ARGUMENTS)):
        talk.ask("openExternalUrl", wrong, PLAIN_FAILURE)
    yield talk.scenario(shell=[opened(), opened("mailto:a@example.org")], platformCalls={"ShellExecuteW": 2})

    answers = ((0, False), (2, False), (31, False), (32, False), (33, True), (42, True), (-1, False))
    talk = Conversation("open-external-url-shell-answers", "the shell's answer is a success above 32")
    for _, is_success in answers:
        talk.ask("openExternalUrl", {"url": ADDRESS}, {"success": is_success})
    yield talk.scenario(faults=[fault("ShellExecuteW", result, nth=at) for at, (result, _) in enumerate(answers, 1)],
                        shell=[], platformCalls={"ShellExecuteW": len(answers)})


def orvane_reply(is_restored):
    return {"success": is_restored, "message": "PASS: Orvane restored after quiet multi-AI send" if is_restored
            else "FAIL: Orvane could not be restored"}


def orvane_windows():
    talk = Conversation("activate-orvane-window", "Orvane comes back to the front, whatever the arguments")
    for arguments in (..., None, "x", {"windowHandle": {"$window": "notes"}}):
        talk.do(user(foreground="notes"))
        talk.ask("activateOrvaneWindow", arguments, orvane_reply(True))
    # Each time the editor comes up, the foreground hook looks at its root; the command itself doesn't.
    yield talk.scenario([notes()], desktop={"foreground": "main", "zOrder": ["main", "notes"]},
                        platformCalls={"SetForegroundWindow": 4, "GetAncestor": 4})

    # The window that is restored is the view's, not the one around it.
    talk = Conversation("activate-orvane-window-minimized", "a minimized Orvane gets the foreground and stays as it is")
    talk.do(user(minimize="main"))
    talk.ask("activateOrvaneWindow", ..., orvane_reply(True))
    yield talk.scenario([notes()], desktop={"foreground": "main", "windows": {"main": {"minimized": True}}},
                        platformCalls={"SetForegroundWindow": 1})

    for file, name, failing, expected in (
            ("refused", "the request's own answer is told", fault("SetForegroundWindow", False),
             {"SetForegroundWindow": 1, "ShowWindow": 2}),
            ("without-a-view", "without a view's window nothing is touched",
             fault("FlutterDesktopViewGetHWND", None, nth=2), {"SetForegroundWindow": 0, "ShowWindow": 1}),
            # The first is the foreground hook's.
            ("of-a-dead-window", "a window that is no more is not touched", fault("IsWindow", False, nth=2),
             {"SetForegroundWindow": 0, "ShowWindow": 1})):
        talk = Conversation(f"activate-orvane-window-{file}", name)
        talk.do(user(foreground="notes"))
        talk.ask("activateOrvaneWindow", ..., orvane_reply(False))
        yield talk.scenario([notes()], faults=[failing], desktop={"foreground": "notes"}, platformCalls=expected)


def window_handles():
    talk = Conversation("foreground-window-handle", "a window comes to the front by its handle, of either width")
    talk.ask("foregroundWindowHandle", {"windowHandle": {"$window": "notes"}}, {"success": True})
    talk.do(user(foreground="main"), user(minimize="notes"))
    talk.ask("foregroundWindowHandle", {"windowHandle": {"$window": "notes"}, "other": None}, {"success": True})
    talk.ask("foregroundWindowHandle", {"windowHandle": {"$window": "main"}}, {"success": True})
    narrow = "0d01" + text_bytes("windowHandle") + "03" + "01010100"
    talk.do(byte_message(text_bytes("foregroundWindowHandle") + narrow))
    talk.expect("foregroundWindowHandle", PLAIN_FAILURE)
    yield talk.scenario([notes()], desktop={"foreground": "main", "windows": {"notes": {"minimized": False}}},
                        platformCalls={"SetForegroundWindow": 3})

    talk = Conversation("foreground-window-handle-wrong", "nothing is touched without the handle of a living window")
    talk.do({"do": [close_window("closed")]})
    for wrong in (..., None, "65796", {}, {"windowHandle": 0}, {"windowHandle": {"$int64": 0}}, {"windowHandle": -1},
                  {"windowHandle": {"$window": "closed"}}, {"windowHandle": {"$windowText": "notes"}},
                  {"windowHandle": 9007199254740993}, {"WindowHandle": {"$window": "notes"}},
                  *({"windowHandle": value} for value in WRONG_ARGUMENTS if value != 7)):
        talk.ask("foregroundWindowHandle", wrong, PLAIN_FAILURE)
    yield talk.scenario([notes(), notes("closed")], desktop={"foreground": "main"},
                        platformCalls={"SetForegroundWindow": 0, "ShowWindow": 1})

    talk = Conversation("foreground-window-handle-refused", "the request's own answer is told")
    talk.ask("foregroundWindowHandle", {"windowHandle": {"$window": "notes"}}, PLAIN_FAILURE)
    yield talk.scenario([notes(foregroundRequests="refused", minimized=True)],
                        desktop={"foreground": "main", "windows": {"notes": {"minimized": False}}},
                        platformCalls={"SetForegroundWindow": 1})


FOCUSED = {"success": True, "message": "PASS: cursor placed in final AI chat input"}


def not_focused(detail):
    return {"success": False, "message": f"FAIL: {detail}"}


def provider_inputs():
    talk = Conversation("focus-provider-input", "the composer of the window in front gets the cursor, whatever the name")
    for arguments in ({"name": "Claude"}, {"name": ""}, {}, ..., None, "Claude", {"name": 7}, {"name": "Grok"}):
        talk.ask("focusProviderInput", arguments, FOCUSED)
    yield talk.scenario([claude_window()], foreground="chat", clipboard={"text": "Prompt"},
                        desktop={"foreground": "chat", "focus": "chat/composer", "values": {"chat/composer": "Draft"}})

    talk = Conversation("focus-provider-input-nobody-in-front", "without a window in front the detail is empty")
    talk.do(user(foreground=None))
    talk.ask("focusProviderInput", {"name": "Claude"}, not_focused(""))
    talk.ask("focusProviderInput", ..., not_focused(""))
    yield talk.scenario([claude_window()], platformCalls={"CoCreateInstance": 0, "IUIAutomationElement::SetFocus": 0})

    talk = Conversation("focus-provider-input-without-a-composer", "a page without a composer is told")
    talk.ask("focusProviderInput", {"name": "Claude"},
             not_focused("No visible keyboard-focusable prompt box found"))
    talk.ask("focusProviderInput", {"name": "Perplexity"},
             not_focused("Perplexity URL not verified; nothing pasted"))
    yield talk.scenario([claude_window(enabled=False)], foreground="chat",
                        platformCalls={"IUIAutomationElement::SetFocus": 0})

    talk = Conversation("focus-provider-input-unreadable-window", "a window that can't be looked into is told")
    talk.ask("focusProviderInput", {"name": "Claude"}, not_focused("Could not inspect foreground window"))
    yield talk.scenario([notes(uia=False)], foreground="notes")


def state(observed, responding, detail):
    return {"observed": observed, "responding": responding, "detail": detail}


OTHER_WINDOW = "FAIL: foreground HWND does not match activated AI window"
QUIET = state(True, False, "No visible AI responding control found")
STOP = button("stop", CLAUDE.stop_name, (1310, 965, 1350, 1005))


def response_states():
    here = {"$window": "chat"}
    title = f"{CLAUDE.title} - Google Chrome"
    not_titled = state(False, False, f"FAIL: foreground title is {title}")
    talk = Conversation("provider-response-state", "a quiet page is observed where window or title fits")
    for arguments in ({"expectedWindowHandle": here}, {"expectedWindowHandle": here, "patterns": ["nothing"]},
                      {"patterns": ["", 7, None, "LEASE"]}, {"patterns": "lease", "name": "claude"},
                      {"name": "Claude"}, {"expectedWindowHandle": "7", "name": "Claude"}):
        talk.ask("getProviderResponseState", arguments, QUIET)
    for arguments in ({"expectedWindowHandle": 0, "name": "Claude"}, {"expectedWindowHandle": {"$int64": 0}},
                      {"expectedWindowHandle": {"$window": "main"}, "patterns": ["lease"]}):
        talk.ask("getProviderResponseState", arguments, state(False, False, OTHER_WINDOW))
    for arguments in (..., None, "Claude", ["Claude"], {}, {"patterns": ["", ""]}, {"patterns": "lease"},
                      {"name": ["Claude"]}, {"patterns": ["gemini"], "name": "Gemini"}):
        talk.ask("getProviderResponseState", arguments, not_titled)
    yield talk.scenario([claude_window()], foreground="chat",
                        desktop={"foreground": "chat", "focus": None, "invoked": {}},
                        platformCalls={"Sleep": 0, "IUIAutomationElement::SetFocus": 0, "SetForegroundWindow": 0})

    talk = Conversation("provider-response-state-answering", "a visible Stop control means that the provider answers")
    talk.ask("getProviderResponseState", {"expectedWindowHandle": here},
             state(True, True, f"PASS: AI responding control is visible: {CLAUDE.stop_name}"))
    talk.ask("getProviderResponseState", {"expectedWindowHandle": 0}, state(False, False, OTHER_WINDOW))
    talk.ask("getProviderResponseState", {"name": "Gemini"}, not_titled)
    talk.do(user(foreground=None))
    talk.ask("getProviderResponseState", {"expectedWindowHandle": here}, state(False, False, "No foreground window"))
    yield talk.scenario([claude_window([STOP])], foreground="chat",
                        desktop={"invoked": {"chat/stop": 0}}, platformCalls={"CoCreateInstance": 1})

    talk = Conversation("provider-response-state-unreadable", "an observed window that can't be searched has no detail")
    talk.ask("getProviderResponseState", {"expectedWindowHandle": here}, state(True, False, ""))
    yield talk.scenario([claude_window([STOP])], foreground="chat",
                        faults=[fault("IUIAutomationElement::FindAll", E_FAIL)])


def blocked(verification):
    return {"success": False, "message": "Wrong AI is in the foreground; send blocked",
            "logs": [{"step": "Foreground Verification", "result": verification}]}


def submits():
    title = f"FAIL: foreground title is {CLAUDE.title} - Google Chrome"
    talk = Conversation("paste-and-submit-blocked", "nothing is sent into a window that wasn't proven")
    for arguments in (..., None, "Claude", ["Claude"], {}, {"patterns": [], "name": ""}, {"name": "Gemini"},
                      {"expectedWindowHandle": {"$double": 66000}}):
        talk.ask("pasteAndSubmit", arguments, blocked(title))
    talk.ask("pasteAndSubmit", {"expectedWindowHandle": 0, "name": "Claude"}, blocked(OTHER_WINDOW))
    talk.do(user(foreground=None))
    talk.ask("pasteAndSubmit", {"name": "Claude"}, blocked("No foreground window"))
    yield talk.scenario([claude_window()], foreground="chat", clipboard={"text": "Prompt"},
                        virtualMs=10 * 260, desktop={"values": {"chat/composer": "Draft"},
                                                     "clipboard": {"text": "Prompt"}},
                        platformCalls={"SendInput": 0, "CoCreateInstance": 0})


def activations():
    talk = Conversation("activate-provider-without-a-map", "a provider needs its argument map")
    for arguments in (..., None, "Claude", ["Claude"], [{"name": "Claude"}], 7, {"$bytes": "Q2xhdWRl"}):
        talk.fail("activateProvider", arguments, BAD_ARGUMENTS)
    yield talk.scenario([claude_window()], platformCalls={"CoCreateInstance": 0, "EnumWindows": 0})


def unknown_methods():
    talk = Conversation("unknown-methods", "a name that isn't exactly a method's is not implemented")
    for method in ("", "nothing", "openexternalurl", "OpenExternalUrl", "openExternalUrl ", "ActivateOrvaneWindow",
                   "FOREGROUNDWINDOWHANDLE", "focusproviderinput", "getProviderresponseState", "pasteandsubmit",
                   "activateprovider", "activateProvider\u0000", "showToolBoxMenu"):
        talk.refuse(method, {"url": ADDRESS, "name": "Claude"})
    yield talk.scenario([claude_window()], foreground="chat", clipboard={"text": "Prompt"}, shell=[],
                        virtualMs=0, platformCalls={"SendInput": 0, "ShellExecuteW": 0})

    talk = Conversation("unknown-channels", "a channel that nobody serves gives the empty reply")
    for channel in ("orvane/nothing", "orvane/Browser", "", "orvane/browser "):
        talk.refuse("openExternalUrl", {"url": ADDRESS}, channel)
    yield talk.scenario(shell=[])


def malformed_messages():
    url = text_bytes("openExternalUrl")
    one_entry = "0d01" + text_bytes("url")
    shown = []
    talk = Conversation("malformed-messages", "undecodable bytes are answered, and said in one line each")

    def refused(message, *lines, method=None):
        talk.do(byte_message(message))
        talk.expect(method, None, NOT_IMPLEMENTED)
        shown.extend(lines)

    def answered(message, value, *lines):
        talk.do(byte_message(message))
        talk.expect(..., value)
        shown.extend(lines)

    # No name.
    refused("", INVALID_READ, NAME_IS_NO_STRING, NO_CALL)
    for value in ("00", "01", "0307000000", "04" + "00" * 8, "0c00", "0d00", "0801ff"):
        refused(value + "00", NAME_IS_NO_STRING, NO_CALL)
    refused("ff", UNKNOWN_TYPE + "255", NAME_IS_NO_STRING, NO_CALL)
    # A name that declares more than there is: what stands behind its size is read as the arguments.
    refused("07" + "0f" + "c8", INVALID_READ, UNKNOWN_TYPE + "200", method=...)
    # A name of the format's large integer is a text too.
    answered("05" + url[2:] + "00", PLAIN_FAILURE)
    # No arguments, of an unknown type, cut short, and more than was asked for.
    answered(url, PLAIN_FAILURE, INVALID_READ)
    answered(url + "0f", PLAIN_FAILURE, UNKNOWN_TYPE + "15")
    answered(url + "0301", PLAIN_FAILURE, INVALID_READ)
    answered(url + "0d02" + text_bytes("url") + text_bytes("https://example.org"), {"success": True},
             INVALID_READ, INVALID_READ)
    answered(url + one_entry, PLAIN_FAILURE, INVALID_READ)
    answered(url + one_entry + text_bytes("https://example.org") + "ffff", {"success": True})
    # A billion elements, and nothing behind them.
    for kind in ("0c", "0d", "08", "09", "0a", "0b", "0e", "07"):
        answered(url + kind + "ff" + "00ca9a3b", PLAIN_FAILURE, INVALID_READ)
    # Nested to a depth that still can be read, and beyond it.
    answered(url + "0c01" * 999 + "00", PLAIN_FAILURE)
    refused(url + "0c01" * 1200 + "00", NO_CALL, method=...)
    yield talk.scenario(shell=[opened("https://example.org")] * 2, stderr=shown, virtualMs=0)


def scenarios():
    for part in (external_urls, orvane_windows, window_handles, provider_inputs, response_states, submits, activations,
                 unknown_methods, malformed_messages):
        yield from part()
