"""Days of work, from the first call to the last: what one step leaves is what the next one finds."""
from .backdrop import PANEL, another_instance, another_panel
from .clipboard import bitmap, bitmap_file, html_block
from .core import wait
from .day import Day
from .delivery import Delivery
from .delivery_texts import perplexity_verified
from .desktops import chat_browser, editor, mail, second_browser, terminal
from .menus import item
from .monitors import monitor
from .pages import GROK, PERPLEXITY, working_page
from .spelling import Dictionary

TOOLS = [item("newLine", "New line", "Ctrl+Enter"), item("capture", "Capture the screen", "Win+Shift+S"),
         item("settings", "Settings & more")]
STRIP = {"x": 600, "y": 40, "width": 260, "height": 110}

WORDS = Dictionary(["What", "may", "a", "landlord", "keep", "deposit", "depot"],
                   {"depositt": ["deposit", "deposits"], "landlrod": ["landlord"], "tht": ["that", "the"],
                    "kepe": ["keep"], "rentt": ["rent"]})

DRAFT = "What may a landlord keep of the deposit?"
DRAFT_HTML = "<p>What may a landlord <b>keep</b> of the deposit?</p>"
PNG = b"\x89PNG\r\n\x1a\n" + bytes(range(64))


def strip_and_backdrop():
    day = Day("strip-and-backdrop", "a narrow strip with its backdrop: hung, dragged, closed, brought back",
              [mail(), editor()])
    day.set_bounds(**STRIP)
    day.sync(appearance="Deep Blue", height=240)
    day.sync(appearance="Deep Blue", height=240)
    day.drag(590, 150, 1100, 620)
    day.sync(appearance="Deep Blue", height=240)
    day.sync(appearance="White", height=240)
    day.front("mail")
    day.sync(appearance="White", height=240)
    day.close()
    day.sync(appearance="White", height=240)
    day.set_bounds(**{**STRIP, "x": 300, "y": 200})
    day.sync(appearance="White", height=240)
    day.restore()
    day.sync(appearance="White", height=240)
    day.minimize()
    day.sync(appearance="Deep Green", height=240)
    day.front(PANEL)
    day.front("main")
    day.sync(appearance="Deep Green", height=240, resetHeight=1)
    day.sync(enabled=0, appearance="Deep Green")
    day.sync(appearance="Deep Green", height=240)
    yield day.finished(calls={"CreateWindowExW": 2})


def second_screen():
    screens = [monitor(), monitor(144, (1920, 0, 4480, 1440))]
    day = Day("second-screen", "to a screen of another scale and back, the backdrop behind", [mail()], screens)
    day.set_bounds(**STRIP)
    day.sync(height=200)
    day.set_bounds(x=2200, y=100, width=260, height=110)
    day.sync(height=200)
    day.sync(height=200, reopen=1)
    day.sync(height=200, resetHeight=1)
    day.drag(2300, 400, 2900, 1000)
    day.menu(TOOLS, 1, 120.5, 20, appearance="White")
    day.set_bounds(x=100, y=100, width=800, height=500)
    day.sync(height=200, reopen=1, resetHeight=1)
    day.menu(TOOLS, None, 120.5, 20)
    yield day.finished()


def draft_out_and_back():
    day = Day("draft-out-and-back", "a draft goes out with its formatting, and another program's comes in",
              [editor()], clipboard={"text": "old"})
    day.sequence(1)
    day.write(DRAFT, DRAFT_HTML)
    day.sequence(4)
    day.read(DRAFT_HTML, DRAFT)
    day.front("editor")
    day.copy(text="Fees\r\n", html=html_block("<ul><li>Fees – 20 €</li></ul>".encode()).decode() + "\u0000")
    day.sequence(5)
    day.read("<ul><li>Fees – 20 €</li></ul>", "Fees\r\n")
    day.do({"do": [{"clipboard": {"lockedBy": "editor"}}]})
    day.ask("readOrvaneDraftClipboard", ..., {"success": False})
    day.ask("writeOrvaneDraftClipboard", {"text": "x", "html": "x"}, {"success": False})
    day.sequence(5)
    day.do({"do": [{"clipboard": {"text": "plain"}}]})
    day.read("", "plain")
    day.write("", "")
    day.read("", "")
    yield day.finished({"clipboard": {"text": "", "html": html_block(b"").decode(), "sequence": 9}})


def picture():
    block = bitmap(7, -3, 24)
    day = Day("picture-from-the-clipboard", "the interface watches the clipboard and fetches each picture",
              [second_browser()], clipboard={"text": "no picture"})
    day.sequence(1)
    day.read_image()
    day.menu(TOOLS, 2)
    day.capture_screen()
    day.sequence(1)
    day.copy(png=PNG, dibv5=block)
    day.sequence(2)
    day.read_image(PNG)
    day.front("reading")
    day.copy(dib=block, text="a picture's name")
    day.sequence(3)
    day.read_image(bitmap_file(block))
    day.read("", "a picture's name")
    day.copy(text="nothing more")
    day.read_image()
    day.sequence(4)
    yield day.finished({"clipboard": {"text": "nothing more", "html": None, "sequence": 4}})


def menus_over_the_day():
    day = Day("menus-over-the-day", "menus at the strip and at the full window, in the colours of the hour",
              [terminal(), mail()], foreground="terminal")
    day.set_bounds(**STRIP)
    day.sync(appearance="White", height=160)
    day.menu(TOOLS, 3, 250, 30, appearance="White")
    day.front("terminal")
    day.menu(TOOLS, None, 250, 30, appearance="White")
    day.sync(appearance="Deep Green", height=160)
    day.menu(TOOLS[:1], 1, 250, 30, appearance="Deep Green")
    day.set_bounds(x=50, y=50, width=900, height=600)
    day.sync(appearance="Deep Green", reopen=1, resetHeight=1)
    day.menu([*TOOLS, item("more", "…")], 4, 800, 10, appearance="Deep Green")
    yield day.finished(calls={"CreatePopupMenu": 4, "DestroyMenu": 4})


def content_process():
    windows = [mail(), another_instance("content", minimized=True), another_panel("theirs", pid=9100), editor()]
    day = Day("content-process", "a content window is found, told to open its tool box, and raised", windows)
    day.set_bounds(**STRIP)
    day.sync(height=180)
    day.raise_content("content", 9000)
    day.sync(height=180)
    day.front("editor")
    day.sync(height=180)
    day.raise_content("content", 9000, shows_tool_box=True)
    day.sync(height=180, reopen=1)
    day.ask("activateContentProcess", {"processId": 4711}, {"success": False})
    day.restore()
    day.front("theirs")
    day.restore()
    day.front("main")
    day.sync(height=180)
    yield day.finished({"windows": {"content": {"minimized": False}}})


def prompt_in_between():
    chat = chat_browser(working_page(GROK).tab(), process="msedge.exe")
    day = Day("prompt-in-between", "a draft is checked, copied out, delivered to a provider, and work goes on",
              [editor(), chat, mail()], foreground="editor", dictionary=WORDS)
    day.set_bounds(**STRIP)
    day.sync(appearance="Deep Blue", height=220)
    for word in ("landlrod", "landlord", "depositt", "DEPOT", "KEPE", "eBook", "What"):
        day.spell(word)
    day.write(DRAFT, DRAFT_HTML)
    sent = Delivery("Grok").open().plain_settle().enter().sent().observe().plain_unlooked().delivered()
    day.deliver(GROK, "grok.com", sent, 1)
    day.sync(appearance="Deep Blue", height=220)
    day.bring_back()
    day.sync(appearance="Deep Blue", height=220)
    day.read(DRAFT_HTML, DRAFT)
    day.menu(TOOLS, 2, 200, 20, appearance="Deep Blue")
    day.capture_screen()
    yield day.finished({"focus": None, "values": {"chat/composer": "", "chat/lastMessage": DRAFT},
                        "clipboard": {"text": DRAFT, "sequence": 4}},
                       calls={"ISpellCheckerFactory::CreateSpellChecker": 1, "ISpellChecker::Check": 6})


def whole_day():
    screens = [monitor(120, (0, 0, 2400, 1350)), monitor(96, (2400, 0, 4320, 1080))]
    chat = chat_browser(working_page(PERPLEXITY).tab())
    windows = [mail(), chat, another_instance("content"), terminal(), second_browser()]
    day = Day("whole-day", "a day from the first strip to the last prompt, nothing left behind", windows, screens,
              dictionary=WORDS, clipboard={"text": "yesterday"})
    day.read("", "yesterday")
    day.set_bounds(**STRIP)
    day.sync(appearance="White", height=150)
    day.spell("tht")
    day.write(DRAFT, DRAFT_HTML)
    first = Delivery("Perplexity").open(last=perplexity_verified()).perplexity_paste_held()
    first = first.perplexity_button(PERPLEXITY.send_name).sent().perplexity_responds().delivered()
    day.deliver(PERPLEXITY, "perplexity.ai", first, 1)
    day.bring_back()
    day.sync(appearance="White", height=150)
    day.close()
    day.do(wait(20000))
    day.copy(png=PNG)
    day.read_image(PNG)
    day.raise_content("content", 9000, shows_tool_box=True)
    day.set_bounds(x=2100, y=60, width=260, height=110)
    day.sync(appearance="Sepia", height=150)
    day.restore()
    day.menu(TOOLS, 1, 30, 30)
    day.spell("RENTT")
    day.write("And the repairs?", "<i>And the repairs?</i>")
    second = Delivery("Perplexity", batch=first.batch).open(settled=True, last=perplexity_verified())
    second = second.perplexity_paste_held().perplexity_button(PERPLEXITY.send_name).sent().perplexity_responds()
    day.deliver(PERPLEXITY, "perplexity.ai", second.delivered(), 1, nth=2)
    day.bring_back()
    day.set_bounds(x=100, y=100, width=1000, height=640)
    day.sync(appearance="Sepia", reopen=1, resetHeight=1)
    yield day.finished({"values": {"chat/lastMessage": "And the repairs?"}})


def scenarios():
    for part in (strip_and_backdrop, second_screen, draft_out_and_back, picture, menus_over_the_day, content_process,
                 prompt_in_between, whole_day):
        yield from part()
