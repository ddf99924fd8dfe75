"""One desktop per provider for the main job: find the provider's tab, deliver the prompt, watch the answer end.

They work with any text on the clipboard, so nothing in what they expect holds it.
"""
from .best_effort import BestEffort
from .core import NOTHING_HELD, browser, call, scenario, wait
from .delivery import Delivery
from .delivery_texts import perplexity_verified
from .desktops import editor, mail, mail_tab, news_tab, second_browser, sleeping_tab, terminal, video_tab
from .pages import CHATGPT, CLAUDE, DEEPSEEK, DOUBAO, GEMINI, GROK, PERPLEXITY, QWEN, working_page

PROMPT = "Which three questions should I ask before I sign a lease?"
ANSWER_MS = 12000
EMPTY = "PASS: prompt composer is empty after Enter"


def steps(provider, domain, patterns):
    """What the interface asks: the tab, the delivery, then whether it still answers."""
    target = {"name": provider.name, "expectedWindowHandle": {"$from": "activate.windowHandle"}, "patterns": patterns}
    return [
        call("activateProvider", {"name": provider.name, "domain": domain, "patterns": patterns}, "activate"),
        call("pasteAndSubmit", target, "deliver"),
        call("getProviderResponseState", target, "answering"),
        wait(ANSWER_MS),
        call("getProviderResponseState", target, "answered"),
    ]


def reply(as_, method, value):
    return {"as": as_, "method": method, "kind": "success", "value": value}


def expected(provider, browser_name, delivery, tab_index, send, shows_answering=True):
    """`shows_answering`: the page's Stop control has one of the names by which an answer is seen to go on."""
    state = {"observed": True, "responding": False, "detail": "No visible AI responding control found"}
    answering = {"observed": True, "responding": True,
                 "detail": f"PASS: AI responding control is visible: {provider.stop_name}"} if shows_answering else state
    found = {"success": True, "browser": browser_name, "selectedTitle": provider.title, "selectedTabIndex": tab_index}
    typed = [{key: value for key, value in event.items() if key != "ms"} for event in delivery.input]
    return {
        "exitCode": 0,
        "replies": [reply("activate", "activateProvider", found), reply("deliver", "pasteAndSubmit", delivery.value),
                    reply("answering", "getProviderResponseState", answering),
                    reply("answered", "getProviderResponseState", state)],
        "input": typed,
        "desktop": {"foreground": "chat", "focus": "chat/composer", "tabs": {"chat": {"selected": tab_index}},
                    "values": {"chat/composer": "", "chat/searchChats": ""}, "invoked": {"chat/send": send}},
        "stderr": [],
        "live": dict(NOTHING_HELD),
    }


def carry(provider, domain, patterns, windows, browser_name, tab_index, delivery, send, foreground,
          shows_answering=True):
    made = scenario(f"{provider.name}: the prompt is pasted, sent and answered", windows,
                    steps(provider, domain, patterns),
                    expected(provider, browser_name, delivery, tab_index, send, shows_answering),
                    foreground=foreground, clipboard=PROMPT)
    return f"run/{provider.name.lower()}.json", made


def chatgpt():
    delivery = Delivery("ChatGPT").open().chatgpt_paste_held().chatgpt_button(CHATGPT.send_name).sent().observe()
    delivery.verified(EMPTY).delivered()
    chat = browser("chat", "chrome.exe", [mail_tab(), working_page(CHATGPT, ANSWER_MS).tab(), sleeping_tab()],
                   selected=1)
    return carry(CHATGPT, "chatgpt.com", ["chatgpt"], [editor(), chat, second_browser(), mail()], "Chrome", 1, delivery,
                 1, "editor")


def claude():
    delivery = Delivery("Claude").open(removed=0).claude_button(CLAUDE.send_name).claude_empty().claude_done()
    delivery.delivered(None)
    chat = browser("chat", "msedge.exe", [news_tab(), video_tab(), working_page(CLAUDE, ANSWER_MS).tab()], selected=0)
    reading = browser("reading", "firefox.exe", [sleeping_tab(), mail_tab()], selected=1, bounds=(300, 80, 1800, 1000))
    return carry(CLAUDE, "claude.ai", ["claude"], [terminal(), reading, chat, editor()], "Edge", 2, delivery, 1,
                 "terminal")


def gemini():
    delivery = Delivery("Gemini").open().gemini_paste_held().enter().sent().observe().verified(EMPTY).delivered()
    chat = browser("chat", "brave.exe", [working_page(GEMINI, ANSWER_MS).tab(), mail_tab()], selected=1)
    return carry(GEMINI, "gemini.google.com", ["google gemini"], [mail(), second_browser(), chat, terminal()], "Brave",
                 0, delivery, 0, "mail")


def perplexity():
    delivery = Delivery("Perplexity").open(last=perplexity_verified()).perplexity_paste_held()
    delivery.perplexity_button(PERPLEXITY.send_name).sent().perplexity_responds().delivered()
    chat = browser("chat", "firefox.exe", [working_page(PERPLEXITY, ANSWER_MS).tab(), video_tab(), sleeping_tab()],
                   selected=0)
    return carry(PERPLEXITY, "perplexity.ai", ["perplexity"], [second_browser(), editor(), chat], "Firefox", 0,
                 delivery, 1, "reading")


def grok():
    delivery = Delivery("Grok").open().plain_settle().enter().sent().observe().plain_unlooked().delivered()
    chat = browser("chat", "vivaldi.exe", [mail_tab(), video_tab(), working_page(GROK, ANSWER_MS).tab()], selected=1)
    return carry(GROK, "grok.com", ["grok"], [editor(), terminal(), chat, second_browser()], "Vivaldi", 2, delivery, 0,
                 "editor")


def deepseek():
    chat = browser("chat", "chrome.exe", [video_tab(), working_page(DEEPSEEK, ANSWER_MS).tab(), mail_tab()], selected=2)
    return carry(DEEPSEEK, "chat.deepseek.com", ["deepseek"], [terminal(), chat, second_browser(), editor()], "Chrome",
                 1, BestEffort(DEEPSEEK).submitted().cleared(), 0, "terminal")


def qwen():
    chat = browser("chat", "msedge.exe", [working_page(QWEN, ANSWER_MS).tab(), sleeping_tab(), video_tab()], selected=0)
    reading = browser("reading", "vivaldi.exe", [news_tab(), mail_tab()], selected=0, bounds=(300, 80, 1800, 1000))
    return carry(QWEN, "chat.qwen.ai", ["qwen", "通义千问"], [editor(), reading, chat, mail()], "Edge", 0,
                 BestEffort(QWEN).submitted().cleared(), 0, "editor")


def doubao():
    chat = browser("chat", "brave.exe", [mail_tab(), sleeping_tab(), working_page(DOUBAO, ANSWER_MS).tab()], selected=0)
    return carry(DOUBAO, "doubao.com", ["豆包"], [mail(), second_browser(), terminal(), chat], "Brave", 2,
                 BestEffort(DOUBAO).submitted().cleared(), 0, "mail", shows_answering=False)


def scenarios():
    for one in (chatgpt, claude, gemini, perplexity, deepseek, grok, qwen, doubao):
        yield one()
