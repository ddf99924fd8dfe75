"""Elements, tabs, windows, rules, steps and scenarios as plain data, and how a scenario file is written."""
import json

LINE_WIDTH = 118
BROWSER_CHANNEL = "orvane/browser"

# The platform's virtual keys that the host sends to a page.
VK_RETURN, VK_CONTROL, VK_A, VK_V = 13, 17, 65, 86

# What a run without a leak holds at its end.
NOTHING_HELD = {
    "comReferences": 0, "bstrs": 0, "variants": 0, "globalBlocks": 0, "menus": 0,
    "gdiObjects": 0, "processHandles": 0, "threadInputs": 0, "hooks": 0, "openClipboard": 0,
    "taskStrings": 0,
}

E_FAIL = "0x80004005"
# A fault that lasts as long as any run.
ALWAYS = 100000


# Elements: facts as scenario files name them; a fact that isn't given keeps its default.

def element(kind, identifier=None, name=None, bounds=None, children=None, **facts):
    made = {}
    if identifier is not None:
        made["id"] = identifier
    made["type"] = kind
    if name is not None:
        made["name"] = name
    made.update(facts)
    if bounds is not None:
        made["bounds"] = list(bounds)
    if children:
        made["children"] = list(children)
    return made


def button(identifier, name, bounds, **facts):
    return element("button", identifier, name, bounds, **facts)


def edit(identifier, name, bounds, **facts):
    return element("edit", identifier, name, bounds, **facts)


def text(identifier, name, bounds, **facts):
    return element("text", identifier, name, bounds, **facts)


def pane(identifier, name, bounds, children=(), **facts):
    return element("pane", identifier, name, bounds, children, **facts)


# Tabs and windows.

def tab(title, address="", page=(), rules=(), **facts):
    made = {"title": title}
    if address:
        made["address"] = address
    made.update(facts)
    if page:
        made["page"] = list(page)
    if rules:
        made["rules"] = list(rules)
    return made


def _marked(one):
    """The tab as the selected one, said before its page."""
    facts = {key: value for key, value in one.items() if key not in ("page", "rules")}
    return {**facts, "selected": True, **{key: one[key] for key in ("page", "rules") if key in one}}


def browser(identifier, process, tabs, selected=0, bounds=(40, 20, 1640, 1020), **facts):
    """A browser window; `selected` is the index of the tab in front, or None."""
    marked = [_marked(one) if index == selected else one for index, one in enumerate(tabs)]
    made = {"id": identifier, "process": process, "bounds": list(bounds)}
    made.update(facts)
    made["tabs"] = marked
    return made


def window(identifier, process, title, bounds, elements=(), **facts):
    made = {"id": identifier, "process": process, "title": title, "bounds": list(bounds)}
    made.update(facts)
    if elements:
        made["elements"] = list(elements)
    return made


def all_elements(elements):
    """Depth first, as a search finds them."""
    for one in elements:
        yield one
        yield from all_elements(one.get("children", ()))


def selected_page(browser_window):
    return next((one.get("page", []) for one in browser_window["tabs"] if one.get("selected")), [])


def count_of_type(browser_window, kind):
    """How many elements of a type the selected page has as it stands at the start."""
    return sum(1 for one in all_elements(selected_page(browser_window)) if one["type"] == kind)


def count_descendants(browser_window):
    """Everything below a browser window: tab control, tab items, address bar, document and the page."""
    address_bar = 0 if browser_window.get("addressBar", {}) is None else 1
    return 2 + address_bar + len(browser_window["tabs"]) + sum(1 for _ in all_elements(selected_page(browser_window)))


# Rules and what they do.

def rule(on, *actions, after=0, times=None):
    made = {"on": on}
    if after:
        made["after"] = after
    if times is not None:
        made["times"] = times
    made["do"] = list(actions)
    return made


def on_paste(identifier, *actions, **limits):
    return rule({"paste": identifier}, *actions, **limits)


def on_invoke(identifier, *actions, **limits):
    return rule({"invoke": identifier}, *actions, **limits)


def on_key(key, *actions, **limits):
    return rule({"key": key}, *actions, **limits)


def on_focus(identifier, *actions, **limits):
    return rule({"focus": identifier}, *actions, **limits)


def on_read(identifier, *actions, **limits):
    return rule({"read": identifier}, *actions, **limits)


def on_select(title, *actions, **limits):
    return rule({"select": title}, *actions, **limits)


def at(milliseconds, *actions):
    """At a time after the first step began."""
    return rule({"time": milliseconds}, *actions)


def change(identifier, without=(), **facts):
    made = {"element": identifier, **facts}
    if without:
        made["without"] = list(without)
    return {"set": made}


def add(new_element):
    return {"add": new_element}


def remove(identifier):
    return {"remove": identifier}


def copy_value(source, target):
    return {"copyValue": {"from": source, "to": target}}


def move_focus(identifier):
    return {"focus": identifier}


def bring_up(window_id):
    return {"foreground": window_id}


def close_window(window_id):
    return {"closeWindow": window_id}


# Faults and steps.

def fault(call, result, nth=1, times=1, **about):
    made = {"call": call, **about}
    if nth != 1:
        made["nth"] = nth
    if times != 1:
        made["times"] = times
    made["result"] = result
    return made


def call(method, arguments=None, as_=None, channel=BROWSER_CHANNEL):
    made = {"call": {"channel": channel, "method": method}}
    if arguments is not None:
        made["call"]["arguments"] = arguments
    if as_ is not None:
        made["as"] = as_
    return made


def wait(milliseconds):
    return {"wait": milliseconds}


def user(**act):
    return {"user": act}


# Scenarios.

def scenario(name, windows, steps, expect, foreground=..., clipboard=None, faults=(), **more):
    """`clipboard`: its text, or all of its forms."""
    desktop = {"windows": list(windows)}
    if foreground is not ...:
        desktop["foreground"] = foreground
    if clipboard is not None:
        desktop["clipboard"] = {"text": clipboard} if isinstance(clipboard, str) else clipboard
    if faults:
        desktop["faults"] = list(faults)
    desktop.update(more)
    return {"name": name, "desktop": desktop, "steps": list(steps), "expect": expect}


def key_events(milliseconds, window_id, element_id, batch, *keys):
    """The events of one SendInput call; `keys` are (virtual key, is it released)."""
    return [{"ms": milliseconds, "window": window_id, "element": element_id, "vk": vk, "up": up, "batch": batch}
            for vk, up in keys]


def chord(vk):
    """Ctrl with a key: pressed and released around it."""
    return (VK_CONTROL, False), (vk, False), (vk, True), (VK_CONTROL, True)


def same_text(literal):
    """A regular expression that only this text fits, for an expectation that holds a handle too."""
    return "".join("\\" + character if character in r"\^$.|?*+()[]{}" else character for character in literal)


# Writing: a value stands on one line where it fits, so that a change of one fact is a change of one line.

def _written(value, indent, lead=0):
    """`lead` characters of its first line are taken already."""
    line = json.dumps(value, ensure_ascii=False)
    if not isinstance(value, (dict, list)) or not value or indent + lead + len(line) < LINE_WIDTH:
        return line
    inner = " " * (indent + 2)
    is_object = isinstance(value, dict)
    openings = [json.dumps(key, ensure_ascii=False) + ": " if is_object else "" for key in value]
    children = value.values() if is_object else value
    items = [inner + opening + _written(child, indent + 2, len(opening)) for opening, child in zip(openings, children)]
    left, right = "{}" if is_object else "[]"
    return left + "\n" + ",\n".join(items) + "\n" + " " * indent + right


def format_scenario(made):
    """As file content; the keys of the scenario itself stand on lines of their own."""
    entries = []
    for key, value in made.items():
        opening = json.dumps(key) + ": "
        entries.append("  " + opening + _written(value, 2, len(opening)))
    return "{\n" + ",\n".join(entries) + "\n}\n"
