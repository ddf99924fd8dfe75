"""One delivery on one desktop as a scenario."""
from .core import E_FAIL, fault, scenario, wait
from .delivery import deliver, expect
from .desktops import chat_browser, desk
from .pages import EARLIER_MESSAGE

PROMPT = "Which three questions should I ask before I sign a lease?"
SECOND_PROMPT = "And which of them matters most when the landlord is in a hurry?"

# What the page shows of the prompt at the end.
SENT = {"chat/lastMessage": PROMPT}
NOT_SENT = {"chat/lastMessage": EARLIER_MESSAGE}


def words_of(stem):
    return stem.replace("-", " ")


def named(folder, stem, made):
    """(path, scenario) under the name that the file's own name says."""
    return f"{folder}/{stem}.json", {**made, "name": words_of(stem)}


def final_values(composer, message):
    """`composer` None: it exposes no value, or is gone."""
    return {} if composer is None else {"chat/composer": composer, **message}


def scene(stem, page, delivery, composer, message=NOT_SENT, send=0, invoked=None, values=None, name=None, faults=(),
          foreground="chat", steps=None, windows=None, tab_index=1, chat_facts=None):
    """`composer` and `message`: their texts at the end; `send`: how often the Send control was pressed."""
    chat = chat_browser(page.tab(), **(chat_facts or {}))
    shown = dict(message) if composer is None else final_values(composer, message)
    return named(
        "delivery", stem,
        scenario("", windows or desk(chat), steps or [deliver(name if name is not None else page.provider.name)],
                 expect(delivery, foreground=foreground, tab_index=tab_index,
                        values={**shown, **(values or {})}, invoked={"chat/send": send, **(invoked or {})}),
                 foreground="chat", clipboard=PROMPT, faults=faults))


# Between two deliveries: longer than any answer that a page of theirs gives.
BETWEEN_MS = 8000


def twice(stem, page, first, second, composer, message, send=0, faults=()):
    """Two deliveries on one page, `BETWEEN_MS` apart, the second with a prompt of its own."""
    steps = [deliver(first.name, as_="first"), wait(BETWEEN_MS), {"do": [{"clipboard": {"text": SECOND_PROMPT}}]},
             deliver(second.name, as_="second")]
    return named("delivery", stem, scenario(
        "", desk(chat_browser(page.tab())), steps,
        expect(first, second, names=("first", "second"), values=final_values(composer, {"chat/lastMessage": message}),
               invoked={"chat/send": send}),
        foreground="chat", clipboard=PROMPT, faults=faults))


def searches_fail(before, first, last):
    """The searches of the window from the `first` to the `last` behind the `before` that precede them."""
    return [fault("IUIAutomationElement::FindAll", E_FAIL, nth=before + first, times=last - first + 1, window="chat")]
