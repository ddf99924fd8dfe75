"""Runs as the checker's tests need them: scenarios, replies and reports that nobody played."""
import chords
from promises import Run
from traces import DELIVERED

PROMPT = "What may a landlord keep of the deposit?"
HANDLE = chords.FIRST_HANDLE
CLEAN_LIVE = {"comReferences": 0, "openClipboard": 0, "processHandles": 0, "threadInputs": 0}


def call(method, **arguments):
    return {"call": {"channel": "orvane/browser", "method": method, "arguments": arguments}}


def scenario_of(*steps):
    page = [{"id": "composer", "type": "edit", "name": "Message", "value": ""},
            {"id": "sent", "type": "text", "name": "You said", "value": ""},
            {"id": "send", "type": "button", "name": "Send message"}]
    tabs = [{"title": "News", "address": "https://news.example/", "selected": True},
            {"title": "Chat", "address": "https://chat.example/", "page": page,
             "rules": [{"on": {"key": "Enter"}, "do": [{"copyValue": {"from": "composer", "to": "sent"}}]}]}]
    windows = [{"id": "chat", "process": "chrome.exe", "tabs": tabs}, {"id": "mail", "process": "mail.exe"}]
    return {"desktop": {"windows": windows, "clipboard": {"text": PROMPT}}, "steps": list(steps)}


def reply_of(method, value, steps=(), as_name="0", start=0, end=5000):
    value = dict(value, logs=[{"step": name, "result": result} for name, result, _ in steps])
    return {"as": as_name, "method": method, "kind": "success", "value": value, "error": None, "startMs": start,
            "endMs": end, "stepMs": [ms for _, _, ms in steps]}


def report_of(*replies, keys=(), invoked=None, selected=0):
    return {
        "name": "", "exitCode": 0, "replies": list(replies), "toInterface": [], "stderr": [], "input": list(keys),
        "desktop": {"tabs": {"chat": {"titles": ["News", "Chat"], "selected": selected}}, "values": {},
                    "invoked": invoked or {}, "clipboard": {"text": PROMPT, "html": None, "sequence": 1}},
        "live": dict(CLEAN_LIVE),
    }


def key_events(events, ms, window="chat", element="composer"):
    return [{"ms": ms, "window": window, "element": element, "vk": key, "up": is_up, "batch": 1}
            for key, is_up in events]


DELIVERY_KEYS = (*key_events(chords.SELECT_ALL, 700), *key_events(chords.PASTE, 800), *key_events(chords.ENTER, 1000))


def delivery_steps(*behind_paste, context=HANDLE):
    return [
        ("Foreground Verification", "PASS: foreground HWND matches activated AI window", 260),
        ("Dispatch Context", f"Provider=Grok; foreground HWND={context}; expected HWND={context}", 260),
        ("Prompt Box Readiness", "PASS: verified", 500),
        ("Focus Input", "PASS: stable verified lower-page AI prompt box focused", 500),
        ("Clear Existing Draft", "PASS: Ctrl+A sent before paste", 700),
        ("Paste", "PASS: existing draft replaced with current prompt", 800),
        *behind_paste,
    ]


ENTER_SENT = ("Send", "PASS: Enter sent to verified AI input", 1000)
ENDED_WELL = (("Result", "PASS: activation, foreground, paste, and submit completed", 2000),
              ("Timing Submit Total", "2000 ms", 2000))
ENDED_BADLY = (("Result", "FAIL/UNVERIFIED: submit did not pass verification; page left untouched", 2000),
               ("Timing Submit Total", "2000 ms", 2000))


def grok_run(steps=None, keys=DELIVERY_KEYS, success=True, message=DELIVERED, **more):
    steps = delivery_steps(ENTER_SENT, *ENDED_WELL) if steps is None else steps
    reply = reply_of("pasteAndSubmit", {"success": success, "message": message}, steps)
    return Run(scenario_of(call("pasteAndSubmit", name="Grok")), report_of(reply, keys=keys, **more))


def activation_run(steps, success=False, selected=0):
    value = {"success": success, "windowHandle": {"$int64": HANDLE}, "selectedTabIndex": 1}
    return Run(scenario_of(call("activateProvider", name="Claude")),
               report_of(reply_of("activateProvider", value, steps), selected=selected))


def x_ray(index, is_selected, title="News"):
    selected = "Y" if is_selected else "N"
    text = (f"pass=1; browser#=1; hwnd=0x{HANDLE:x}; index={index}; selected={selected}; uiaSelected=Y; "
            f'windowTitleSelected=N; offscreen=N; title="{title}"; automationId=""')
    return "X-Ray tab", text, 0


CLAUDE_REFUSED = [
    x_ray(0, True), x_ray(1, False), ("Tab selection", "PASS", 100),
    ("Claude final identity", "FAIL: selected Claude page is not a usable chat/composer URL", 200),
    ("Claude final restoration", "PASS: original tab restored", 300),
    ("Foreground", "BLOCKED: provider identity was not verified", 400),
    ("Result", "Activation failed", 400), ("Timing activation total", "400 ms", 400),
]
