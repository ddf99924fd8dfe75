"""Provider pages as a browser shows them to a screen reader: a side bar with earlier chats, a search box, the
conversation, and the composer with its buttons.

Every page uses the same ids: "composer", "send", "attach", "voice", "searchChats", "newChat", "lastMessage" (the last
message of the user, with what was sent as its value), and, while the provider answers, "stop".
"""
from dataclasses import dataclass, field

from .core import add, at, button, change, copy_value, edit, on_paste, pane, remove, rule, tab, text

# The page of a browser window that stands at its default place: side bar left, conversation right.
SIDE_BAR = (40, 100, 340, 1020)
COMPOSER = (560, 900, 1360, 960)
SEND = (1310, 965, 1350, 1005)
STOP = (1310, 965, 1350, 1005)

EARLIER_MESSAGE = "What does a deposit usually cover?"


@dataclass(frozen=True)
class Provider:
    """How a provider's page names what it shows."""
    name: str
    title: str
    address: str
    composer_name: str
    send_name: str
    stop_name: str
    attach_name: str
    voice_name: str
    chats: tuple = ("Deposit and repairs", "Moving checklist", "Letter to the landlord")
    composer_facts: dict = field(default_factory=dict)
    send_facts: dict = field(default_factory=dict)


CHATGPT = Provider(
    "ChatGPT", "Lease questions - ChatGPT", "https://chatgpt.com/c/68f2-lease", "Message ChatGPT", "Send prompt",
    "Stop generating", "Add photos and more", "Start voice mode",
    composer_facts={"automationId": "prompt-textarea", "className": "ProseMirror"},
    send_facts={"automationId": "composer-submit-button"})

CLAUDE = Provider(
    "Claude", "Lease questions - Claude", "https://claude.ai/chat/4c1d-lease", "Write your prompt to Claude",
    "Send message", "Stop response", "Open the menu of tools", "Use voice mode",
    composer_facts={"className": "tiptap ProseMirror"})

GEMINI = Provider(
    "Gemini", "Lease questions - Google Gemini", "https://gemini.google.com/app/91ab", "Enter a prompt for Gemini",
    "Send message", "Stop response", "Open menu for tools", "Microphone",
    composer_facts={"className": "ql-editor textarea"})

PERPLEXITY = Provider(
    "Perplexity", "Lease questions", "https://www.perplexity.ai/c/lease-questions-7Tq", "Ask a follow-up", "Submit",
    "Stop generating", "Attach", "Dictation", composer_facts={"automationId": "ask-input"})

GROK = Provider(
    "Grok", "Lease questions - Grok", "https://grok.com/c/5e0f", "Ask Grok anything", "Submit", "Stop generating",
    "Attach", "Enter voice mode", composer_facts={"className": "tiptap"})

DEEPSEEK = Provider(
    "DeepSeek", "Lease questions - DeepSeek", "https://chat.deepseek.com/a/chat/s/91c2-lease", "Message DeepSeek",
    "Send", "Stop generating", "Upload files", "Voice input", composer_facts={"automationId": "chat-input"})

QWEN = Provider(
    "Qwen", "Lease questions - Qwen", "https://chat.qwen.ai/c/7d20-lease", "How can I help you today? Ask anything",
    "Send", "Stop generating", "Add files", "Voice chat", composer_facts={"automationId": "chat-input"})

DOUBAO = Provider(
    "Doubao", "租房合同的三个问题 - 豆包", "https://www.doubao.com/chat/38219", "发消息或输入 / 选择技能", "发送", "停止生成",
    "上传文件", "语音输入", chats=("押金和维修", "搬家清单", "给房东的信"), composer_facts={"className": "semi-input-textarea"})


@dataclass
class Page:
    """A page in the making; what a scenario needs otherwise is changed before `tab` is asked for."""
    provider: Provider
    elements: list
    rules: list = field(default_factory=list)
    title: str = ""
    address: str = ""

    def element(self, identifier):
        return next(one for one in self.elements if one.get("id") == identifier)

    def set(self, identifier, **facts):
        """Facts of an element at the start; None takes a fact out of the file again."""
        found = self.element(identifier)
        for key, value in facts.items():
            found[key] = value
            if value is None and key not in ("name", "value", "invoke"):
                del found[key]
        return self

    def without_value(self, identifier="composer"):
        del self.element(identifier)["value"]
        return self

    def with_elements(self, *elements):
        self.elements.extend(elements)
        return self

    def with_first(self, *elements):
        self.elements[:0] = elements
        return self

    def without(self, identifier):
        self.elements.remove(self.element(identifier))
        return self

    def with_rules(self, *rules):
        self.rules.extend(rules)
        return self

    def tab(self, **facts):
        return tab(self.title, self.address, self.elements, self.rules, **facts)


def stop_button(provider):
    return button("stop", provider.stop_name, STOP)


def ready_page(provider, draft="", can_send=False):
    """The page at rest, with no rule: what is typed stays where it is."""
    side = [text(None, name, (60, 240 + 44 * i, 320, 272 + 44 * i)) for i, name in enumerate(provider.chats)]
    elements = [
        pane("sideBar", "Chat history", SIDE_BAR, [
            button("newChat", "New chat", (60, 120, 320, 160)),
            edit("searchChats", "Search chats", (60, 180, 320, 216), value=""),
            *side,
            button("profile", "Open profile menu", (60, 960, 320, 1004)),
        ]),
        text("lastMessage", "You said", (760, 160, 1360, 240), value=EARLIER_MESSAGE),
        text(None, "A deposit usually covers unpaid rent and damage beyond normal wear.", (560, 260, 1360, 420)),
        button("copyAnswer", "Copy", (560, 430, 600, 462)),
        button("attach", provider.attach_name, (570, 965, 610, 1005)),
        edit("composer", provider.composer_name, COMPOSER, **provider.composer_facts, value=draft),
        button("voice", provider.voice_name, (1260, 965, 1300, 1005)),
        button("send", provider.send_name, SEND, **provider.send_facts, enabled=can_send),
    ]
    return Page(provider, elements, title=provider.title, address=provider.address)


def send_enabled_on_paste(delay=0):
    return on_paste("composer", change("send", enabled=True), after=delay)


def takes_message():
    """What a page does with a message: it shows it as sent, empties the composer, and can't send for now."""
    return [copy_value("composer", "lastMessage"), change("composer", value=""), change("send", enabled=False)]


def answering_rules(trigger, provider, answer_ms, begins_ms=0):
    """On `trigger` the Stop control stands there from `begins_ms` on, for `answer_ms`."""
    begin = rule(trigger, add(stop_button(provider)), after=begins_ms)
    end = rule(trigger, remove("stop"), after=begins_ms + answer_ms)
    return [begin, end]


def sending_rules(trigger, provider, answer_ms):
    return [rule(trigger, *takes_message()), *answering_rules(trigger, provider, answer_ms)]


def working_page(provider, answer_ms=6000, draft=""):
    """A page that does its work: Send is disabled until there is text, Enter and Send both send."""
    page = ready_page(provider, draft, can_send=bool(draft))
    return page.with_rules(send_enabled_on_paste(), *sending_rules({"invoke": "send"}, provider, answer_ms),
                           *sending_rules({"key": "Enter"}, provider, answer_ms))


def pasted_page(provider):
    """A page that takes the paste and enables Send, and does nothing more: whatever is sent, the text remains."""
    return ready_page(provider).with_rules(send_enabled_on_paste())


def sign_in_elements(provider):
    """The panel that stands in place of a conversation when the session has ended."""
    return [
        text("signInTitle", f"Log in to {provider.name}", (660, 200, 1260, 240)),
        button("continueGoogle", "Continue with Google", (660, 280, 1260, 328)),
        button("continueApple", "Continue with Apple", (660, 340, 1260, 388)),
        edit("email", "Email", (660, 420, 1260, 468), value=""),
        edit("password", "Password", (660, 480, 1260, 528), value="", password=True),
        button("continueEmail", "Continue with email", (660, 550, 1260, 598)),
    ]


def becomes_sign_in(milliseconds, provider):
    """The page turns into the sign-in panel: conversation and composer are gone."""
    gone = [remove(one) for one in ("lastMessage", "copyAnswer", "attach", "composer", "voice", "send")]
    return at(milliseconds, *gone, *[add(one) for one in sign_in_elements(provider)])


def composer_vanishes(milliseconds):
    return at(milliseconds, remove("composer"))


def attachments(count):
    """Files that wait in the composer, each with its remove button."""
    return [button(f"removeFile{i}", f"Remove file lease-page-{i}.pdf", (560 + 64 * i, 850, 600 + 64 * i, 890))
            for i in range(1, count + 1)]

