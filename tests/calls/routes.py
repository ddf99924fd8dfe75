"""The routes: what each demands, the scenes that show it, and the sizes at which it is held to its numbers."""
from dataclasses import dataclass
from typing import Callable

import activation_calls as activation
import activation_scenes as desktops
import delivery_calls as delivery
import delivery_scenes as pages
import window_calls as windows
import window_scenes as asked
from formula import Calls
from kit.core import call, scenario
from kit.pages import CHATGPT, GEMINI, PERPLEXITY

FAMILIES = tuple(desktops.FAMILIES)
CHROME = ("chrome.exe",)


@dataclass(frozen=True)
class Route:
    title: str
    demanded: Calls
    scene: Callable
    sizes: tuple = ({},)
    families: tuple = CHROME


def around(*bases, **raised):
    """Sizes at which a route is run: each base, each size alone at each of its other values, and all at their last."""
    sizes = list(bases)
    for name, values in raised.items():
        sizes += [{**bases[0], name: value} for value in values]
    return (*sizes, {**bases[0], **{name: values[-1] for name, values in raised.items()}})


def desks(**more):
    """Tabs, browser windows, other windows. `more`: the further sizes, at 1 unless they are raised."""
    base = {"t": 2, "w": 1, "o": 1}
    return around({**base, **{name: values[0] for name, values in more.items()}}, t=(3, 7, 40), w=(2, 5, 16),
                  o=(2, 3), **{name: values[1:] for name, values in more.items() if len(values) > 1})


def large_desks(**more):
    return desks(**more) + ({"t": 2, "w": 64, "o": 1, **{name: values[0] for name, values in more.items()}},
                            {"t": 500, "w": 1, "o": 1, **{name: values[0] for name, values in more.items()}})


def page_sizes(**more):
    """Fields, buttons before and behind; `more` as above."""
    least = {name: values[0] for name, values in more.items()}
    return around({"e": 0, "b": 0, "a": 0, **least}, e=(1, 60), b=(2, 70), a=(3, 50),
                  **{name: values[1:] for name, values in more.items() if len(values) > 1})


FIELDS = (0, 1, 30)


ACTIVATION = (
    Route("Cold: Gemini, found in the tab in front", activation.COLD_SELECTED,
          desktops.desk_with_chat("Gemini", is_selected=True), desks(), FAMILIES),
    Route("Cold: Gemini, found in another tab", activation.COLD, desktops.desk_with_chat("Gemini"), large_desks(),
          FAMILIES),
    Route("Cold: the same behind another program's window", activation.COLD_FROM_AFAR,
          desktops.desk_with_chat("Gemini", front="other0"), desks()),
    Route("Cold: the same with no window in front", activation.COLD_FROM_NOBODY,
          desktops.desk_with_chat("Gemini", front=None), desks()),
    Route("Cold: the same, selected at the n-th attempt", activation.COLD_AT_LAST, desktops.refused_at_first,
          desks(n=(1, 2, 3))),
    Route("Cold: a company's page, the tab from before restored", activation.COLD_RESTORED, desktops.company_page,
          desks(), FAMILIES),
    Route("Cold: Claude", activation.COLD_CLAUDE, desktops.desk_with_chat("Claude"), desks(), FAMILIES),
    Route("Cold: ChatGPT", activation.COLD_CHATGPT, desktops.desk_with_chat("ChatGPT", page=desktops.composer()),
          large_desks(e=FIELDS), FAMILIES),
    Route("Cold: ChatGPT, in front at the p-th pass", activation.COLD_CHATGPT_FORCED, desktops.forced,
          desks(e=FIELDS, p=(1, 2, 3))),
    Route("ChatGPT in front of its window already", activation.DESTINATION, desktops.destinations,
          around({"t": 2, "w": 3, "o": 1, "e": 0, "c": 1}, t=(3, 40), w=(5, 8), o=(2,), e=(1, 9), c=(2, 3)), FAMILIES),
    Route("Warm: Gemini, selected already", activation.WARM_SELECTED,
          desktops.warm("Gemini", is_selected=True), desks(), FAMILIES),
    Route("Warm: Gemini, proven at the k-th look", activation.WARM, desktops.warm("Gemini"),
          large_desks(k=(1, 2, 9, 25)), FAMILIES),
    Route("Warm: Claude", activation.WARM, desktops.warm("Claude"), desks(k=(1, 3))),
    Route("Warm: ChatGPT", activation.WARM_CHATGPT, desktops.warm("ChatGPT"), desks(e=FIELDS), FAMILIES),
    Route("Warm: Gemini, unproven in 25 looks, restored, unproven again; then cold", activation.COLD_BEHIND_WARM,
          desktops.warm("Gemini", is_elsewhere=True), desks(), FAMILIES),
    Route("No Gemini anywhere: three passes", activation.NOTHING_FOUND, desktops.no_chat("Gemini"), large_desks()),
    Route("No ChatGPT anywhere, no Chrome", activation.NOTHING_FOUND_CHATGPT, desktops.no_chat("ChatGPT"),
          desks(e=FIELDS), FAMILIES[1:]),
    Route("ChatGPT by Chrome's tab search", activation.ASSISTED, desktops.assisted, desks(e=FIELDS)),
)

DELIVERY = (
    Route("Claude: composer seen empty at the k-th try", delivery.CLAUDE, pages.emptied_late,
          page_sizes(f=(0, 1, 2, 10), k=(1, 2, 10))),
    Route("Claude: text stays, Send never comes back", delivery.CLAUDE_PROBABLE, pages.send_never_back,
          page_sizes(f=(0, 1))),
    Route("Claude: text stays, Send pressed once more", delivery.CLAUDE_RETRIED, pages.sent_again,
          page_sizes(f=(0, 1))),
    Route("Claude: Send never ready, sent by Enter", delivery.CLAUDE_BY_ENTER, pages.send_never_ready,
          page_sizes(f=(0, 1))),
    Route("ChatGPT: composer empty", delivery.CHATGPT, pages.at_work(CHATGPT), page_sizes()),
    Route("ChatGPT: answer seen at the k-th look", delivery.CHATGPT_RESPONDING, pages.CHATGPT_RESPONDS,
          page_sizes(k=(1, 2, 10))),
    Route("ChatGPT: no answer seen, Send never back", delivery.CHATGPT_PROBABLE,
          pages.answers_unseen(CHATGPT, {"invoke": "send"}), page_sizes()),
    Route("Gemini: composer empty", delivery.GEMINI, pages.at_work(GEMINI), page_sizes()),
    Route("Gemini: answer seen at the k-th look", delivery.GEMINI_RESPONDING, pages.GEMINI_RESPONDS,
          page_sizes(k=(1, 2, 8))),
    Route("Gemini: no answer seen, Send never back", delivery.GEMINI_PROBABLE,
          pages.answers_unseen(GEMINI, {"key": "Enter"}), page_sizes()),
    Route("Perplexity: composer seen empty at the k-th look", delivery.PERPLEXITY, pages.cleared_late,
          page_sizes(x=(0, 5, 90), t=(1, 2, 4), k=(1, 2, 24))),
    Route("Perplexity: nothing seen in 24 looks, Send never back", delivery.PERPLEXITY_PROBABLE,
          pages.answers_unseen(PERPLEXITY, {"invoke": "send"}), page_sizes(x=(0, 5), t=(1, 4))),
    Route("Any: another window in front", delivery.WRONG_WINDOW, pages.other_window_in_front, ({"e": 3},)),
    Route("Plain Enter: composer never ready", delivery.NEVER_READY, pages.never_ready, around({"e": 0}, e=(1, 60))),
    Route("Plain Enter: ready at the r-th check", delivery.PLAIN, pages.ready_late,
          around({"e": 0, "r": 3}, e=(1, 3, 500), r=(4, 9, 14))),
    Route("Plain Enter: n deliveries, one after the other", delivery.PLAIN_AGAIN, pages.delivered_again,
          around({"e": 0, "n": 1}, e=(1, 3), n=(2, 5))),
    Route("Best effort: found at the s-th scan, pasted at the v-th check, sent at the k-th", delivery.BEST_EFFORT,
          pages.best_effort, around({"e": 0, "h": 1, "s": 1, "v": 1, "k": 1}, e=(1, 3, 40), h=(2,), s=(2, 8),
                                    v=(2, 10), k=(2, 12))),
    Route("Best effort: a draft in the way", delivery.BEST_EFFORT_BLOCKED, pages.draft_in_the_way,
          around({"e": 0, "s": 1, "h": 1}, e=(1, 40), s=(2, 8))),
    Route("`getProviderResponseState` by the title", delivery.responding_state_by_title(), pages.looked_at_by_title,
          around({"b": 0, "a": 0, "p": 1}, b=(1, 7), a=(5,), p=(2, 30))),
    Route("`getProviderResponseState`: no answer under way", delivery.responding_state(),
          pages.looked_at("getProviderResponseState"), around({"b": 0, "a": 0}, b=(1, 7, 2000), a=(1, 5))),
    Route("`getProviderResponseState`: an answer under way", delivery.responding_state_seen(),
          pages.looked_at("getProviderResponseState", with_stop=True),
          around({"b": 0, "a": 0}, b=(1, 7, 2000), a=(1, 5))),
    Route("`focusProviderInput`", delivery.input_focused(), pages.looked_at("focusProviderInput"),
          around({"e": 0, "b": 0}, e=(1, 5, 2000), b=(3,))),
)


def opened(url):
    return lambda *_: scenario("calls", [], [call("openExternalUrl", {"url": url})], {})


PATHS = {"batchPath": "C:\\lease.cmd", "workingDirectory": "C:\\notes", "filePath": "C:\\lease.txt"}
DRAFT = {"text": "Rent", "html": "<html><body><!--StartFragment-->Rent<!--EndFragment--></body></html>"}
WINDOW = (
    Route("`showNativeHotKeysMenu`: `m` entries, `c` chosen", windows.MENU, asked.menu,
          around({"m": 1, "c": 0}, c=(1,), m=(2, 3, 10, 100, 500))),
    Route("`showNativeHotKeysMenu` without an entry", windows.MENU_WITHOUT_ENTRIES,
          asked.asked("showNativeHotKeysMenu", {"items": []})),
    Route("`getWorkArea`", windows.WORK_AREA, asked.asked("getWorkArea")),
    Route("`getBounds`", windows.BOUNDS, asked.asked("getBounds")),
    Route("`clipboardSequenceNumber`", windows.SEQUENCE, asked.asked("clipboardSequenceNumber")),
    Route("`openScreenCapture`", windows.LAUNCH, asked.asked("openScreenCapture")),
    Route("`openTaskManager`", windows.LAUNCH, asked.asked("openTaskManager")),
    Route("`openCommandPromptAt`", windows.LAUNCH_WITH_TEXT, asked.asked("openCommandPromptAt", PATHS)),
    Route("`openCommandWindow`", windows.LAUNCH_WITH_TEXT, asked.asked("openCommandWindow", PATHS)),
    Route("`runBatchFile`", windows.LAUNCH_WITH_TWO_TEXTS, asked.asked("runBatchFile", PATHS)),
    Route("`openTextFile`", windows.LAUNCH_WITH_TEXT, asked.asked("openTextFile", PATHS)),
    Route("`runBatchFile` without a path", windows.REFUSED, asked.asked("runBatchFile", {})),
    Route("`sendWindowsHotKey`", windows.KEYS, asked.asked("sendWindowsHotKey", {"keys": "Win+Shift+R"})),
    Route("`sendWindowsHotKey` of another text", windows.REFUSED, asked.asked("sendWindowsHotKey", {"keys": "win+d"})),
    Route("`writeOrvaneDraftClipboard`", windows.DRAFT_WRITTEN, asked.asked("writeOrvaneDraftClipboard", DRAFT)),
    Route("`readOrvaneDraftClipboard`", windows.DRAFT_READ, asked.asked("readOrvaneDraftClipboard", clipboard=DRAFT)),
    Route("`checkSpelling`: `s` suggestions", windows.SPELLING, asked.spelling, around({"s": 0}, s=(1, 3, 7))),
    Route("`activateContentProcess`: no window of that process", windows.CONTENT_PROCESS_MISSING,
          asked.among_others("activateContentProcess", {"processId": 4}), around({"o": 0}, o=(1, 5, 300))),
    Route("`activateContentProcess`: its window in front", windows.CONTENT_PROCESS_RAISED, asked.instance_in_front),
    Route("`restoreCleanBackground` without a backdrop", windows.BACKGROUND_MISSING,
          asked.among_others("restoreCleanBackground"), around({"o": 0}, o=(1, 5, 300))),
    Route("`readClipboardImage` without a picture", windows.NO_PICTURE, asked.asked("readClipboardImage")),
    Route("`readClipboardImage` of a PNG", windows.PNG_READ,
          asked.asked("readClipboardImage", clipboard={"png": "iVBO"})),
    Route("`foregroundWindowHandle` of the window in front", windows.WINDOW_RAISED, asked.raised),
    Route("`openExternalUrl`", windows.URL_OPENED, opened("https://papers.example/")),
    Route("`openExternalUrl` without an address", windows.NOTHING_OPENED, opened("")),
)

SECTIONS = (("Activation", ACTIVATION), ("Delivery", DELIVERY), ("Window channel and small calls", WINDOW))
