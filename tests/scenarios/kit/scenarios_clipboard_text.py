"""Drafts on the clipboard: what is written, what is read back, and what other programs' blocks give."""
from .clipboard import GREATEST_BLOCK, GREATEST_KEY_OFFSET, ClipboardTalk, encoded, html_block
from .core import fault, window

UNTOUCHED = {"text": "Mine", "html": "<p>Mine</p>"}


def notes(identifier="notes"):
    return window(identifier, "notepad.exe", "Notes", (300, 300, 900, 700))


def holds(text, html, sequence):
    return {"text": text, "html": html, "sequence": sequence}


# What is written: (text, html)
DRAFTS = (
    ("plain", "a draft is written in both forms", "Dear Sir", "<p>Dear Sir</p>"),
    ("empty", "two empty texts make a valid block and an empty text", "", ""),
    ("text-alone", "without HTML its block is there all the same", "Only text", ""),
    ("html-alone", "without a text its form is there, and empty", "", "<b>Only HTML</b>"),
    ("any-script", "offsets count bytes of UTF-8", "Größe 豆包 😀", "<p>Größe 豆包 😀</p>"),
    ("end-marker-inside", "an end marker in the fragment is written as it stands", "x",
     "a<!--EndFragment-->b<!--StartFragment-->c"),
    ("header-inside", "what looks like a header in the fragment is text", "x",
     "StartFragment:0000000001\r\nEndFragment:0000000002"),
    ("not-escaped", "nothing is escaped or checked", "a < b & c", "a < b & <i>c"),
    ("lines", "ends of lines stay as they are", "one\r\ntwo\nthree\r", "one\r\ntwo\nthree\r"),
    ("block-of-bytes", "a fragment of some thousand bytes", "long", "<p>0123456789</p>" * 300),
)


def writing():
    for stem, name, text, html in DRAFTS:
        talk = ClipboardTalk(f"write-{stem}", name, UNTOUCHED)
        talk.write({"text": text, "html": html})
        talk.read(html, text)
        if stem == "empty":
            assert b"EndHTML:0000000169\r\n" in html_block(b"")
        yield talk.made(holds=holds(text, html_block(html.encode()).decode(), 4),
                        calls={"GlobalAlloc": 2, "GlobalFree": 0, "OpenClipboard": 2, "CloseClipboard": 2,
                               "EmptyClipboard": 1, "SetClipboardData": 2, "RegisterClipboardFormatW": 2})

    rows = (("nothing", ..., "", ""), ("null", None, "", ""), ("a-text", "text", "", ""), ("a-list", ["t"], "", ""),
            ("an-empty-map", {}, "", ""), ("wrong-types", {"text": 7, "html": True}, "", ""),
            ("byte-lists", {"text": {"$bytes": "QQ=="}, "html": {"$bytes": "QQ=="}}, "", ""),
            ("other-keys", {"Text": "a", "HTML": "b", "text ": "c"}, "", ""), ("text-only", {"text": "a"}, "a", ""),
            ("html-only", {"html": "b"}, "", "b"), ("more-keys", {"text": "a", "html": "b", "rtf": "c"}, "a", "b"))
    for stem, arguments, text, html in rows:
        talk = ClipboardTalk(f"write-given-{stem}", "what is absent or no text is written as empty", UNTOUCHED)
        talk.write(arguments)
        yield talk.made(holds=holds(text, html_block(html.encode()).decode(), 4))

    talk = ClipboardTalk("write-a-zero-inside", "a zero ends what a reader sees, not what is written")
    talk.write({"text": "before\u0000after", "html": "<p>one\u0000two</p>"})
    # The block ends for the reader before its end marker and before the offset of its end.
    talk.read("", "before")
    yield talk.made(holds=holds("before", html_block(b"<p>one\0two</p>").decode(), 4))

    broken = b"caf\xc3 \xff\xfe!"
    talk = ClipboardTalk("write-broken-utf-8", "HTML keeps its bytes; in the text what is broken is replaced")
    talk.ask_in_bytes("writeOrvaneDraftClipboard", {"text": b"caf\xff!", "html": broken}, {"success": True})
    talk.read(broken, "caf\ufffd!")
    yield talk.made()

    talk = ClipboardTalk("write-twice", "the second draft takes the place of the first")
    talk.write({"text": "one", "html": "<p>one</p>"})
    talk.write({"text": "two", "html": ""})
    talk.read("", "two")
    talk.sequence(7)
    yield talk.made(holds=holds("two", html_block(b"").decode(), 7))

    talk = ClipboardTalk("write-takes-pictures-away", "a draft takes everything else off the clipboard",
                         {"png": encoded(b"\x89PNG"), "dib": encoded(bytes(40))})
    talk.write({"text": "a", "html": "b"})
    talk.read_image()
    yield talk.made(holds=holds("a", html_block(b"b").decode(), 4))


def failed_writing():
    both = {"text": "new", "html": "<p>new</p>"}
    block = html_block(b"<p>new</p>").decode()
    untouched = {**UNTOUCHED, "sequence": 1}
    rows = (
        ("first-allocation", "GlobalAlloc", None, 1, untouched, {"OpenClipboard": 0}),
        ("second-allocation", "GlobalAlloc", None, 2, untouched, {"OpenClipboard": 0}),
        ("first-lock", "GlobalLock", None, 1, untouched, {"OpenClipboard": 0}),
        ("second-lock", "GlobalLock", None, 2, untouched, {"OpenClipboard": 0}),
        ("opening", "OpenClipboard", False, 1, untouched,
         {"OpenClipboard": 1, "CloseClipboard": 0, "EmptyClipboard": 0, "GlobalFree": 2}),
        ("emptying", "EmptyClipboard", False, 1, untouched,
         {"CloseClipboard": 1, "SetClipboardData": 0, "GlobalFree": 2}),
        ("setting-html", "SetClipboardData", None, 1, holds("new", None, 3),
         {"CloseClipboard": 1, "SetClipboardData": 2, "GlobalFree": 1}),
        ("setting-text", "SetClipboardData", None, 2, holds(None, block, 3),
         {"CloseClipboard": 1, "SetClipboardData": 2, "GlobalFree": 1}),
        ("registering", "RegisterClipboardFormatW", 0, 1, holds("new", None, 3),
         {"CloseClipboard": 1, "SetClipboardData": 2, "GlobalFree": 1}),
    )
    for stem, platform_call, result, nth, left, calls in rows:
        talk = ClipboardTalk(f"write-fails-at-{stem}", f"a draft isn't written when {platform_call} fails", UNTOUCHED)
        talk.write(both, False)
        yield talk.made([fault(platform_call, result, nth=nth)], left, calls=calls)

        talk = ClipboardTalk(f"write-again-after-{stem}", "nothing stands in the way of the next draft", UNTOUCHED)
        talk.write(both, False)
        talk.write(both)
        yield talk.made([fault(platform_call, result, nth=nth)], holds("new", block, left["sequence"] + 3))

    talk = ClipboardTalk("write-fails-at-setting-both", "a clipboard that takes nothing is left empty", UNTOUCHED)
    talk.write(both, False)
    talk.read()
    yield talk.made([fault("SetClipboardData", None, times=2)], holds(None, None, 2), calls={"GlobalFree": 2})

    talk = ClipboardTalk("write-locked", "a clipboard that another program holds open isn't written to",
                         {**UNTOUCHED, "lockedBy": "notes"}, [notes()])
    talk.write(both, False)
    yield talk.made(holds=untouched, calls={"OpenClipboard": 1, "GlobalAlloc": 2, "GlobalFree": 2})


def with_offsets(start, end, body, extra=""):
    return f"Version:1.0\r\nStartFragment:{start}\r\nEndFragment:{end}\r\n{extra}{body}"


MARKED = "<html><!--StartFragment-->inside<!--EndFragment--></html>"


# Where the page begins behind a header of `placed`.
BODY_AT = 80


def placed(start, end, body):
    return with_offsets(f"{start:010}", f"{end:010}", "").ljust(BODY_AT, ".") + body


def key_at(offset, first, key):
    """`first` at the beginning, `key` at an offset, markers behind it."""
    return first + "x" * (offset - len(first)) + key + MARKED


def read_blocks(rows):
    """Of each block the fragment that is read."""
    for stem, name, block, fragment in rows:
        talk = ClipboardTalk(f"html-{stem}", name, {"text": "Text", "html": block})
        talk.read(fragment, "Text")
        yield talk.made(holds=holds("Text", block.removesuffix("\u0000"), 1))


def html_offsets():
    yield from read_blocks((
        ("offsets", "the bytes between the offsets are the fragment", placed(BODY_AT, BODY_AT + 3, "ABCDEF"),
         "ABC"),
        ("offsets-of-the-usual-block", "offsets 137 and 140 give three bytes",
         html_block(b"abc").decode(), "abc"),
        ("offsets-without-digits-before", "offsets need no ten digits", with_offsets(0, 7, MARKED), "Version"),
        ("offsets-alike", "equal offsets give an empty fragment", with_offsets(5, 5, MARKED), ""),
        ("offsets-to-the-very-end", "the end may be the block's end",
         placed(BODY_AT, BODY_AT + 15, "to the very end"), "to the very end"),
        ("end-before-start", "with its end before its start the markers count", with_offsets(20, 10, MARKED), "inside"),
        ("end-beyond-the-block", "with its end beyond the block the markers count", with_offsets(5, 5000, MARKED),
         "inside"),
        ("end-one-beyond", "one byte beyond is beyond",
         placed(BODY_AT, BODY_AT + len(MARKED) + 1, MARKED), "inside"),
        ("start-below-zero", "a start below zero is none", with_offsets(-1, 10, MARKED), "inside"),
        ("end-below-zero", "an end below zero is none", with_offsets(0, -1, MARKED), "inside"),
        ("numbers-too-large", "a number beyond all measure is beyond the block",
         with_offsets(5, "9" * 30, MARKED), "inside"),
        ("start-too-large", "a start beyond all measure lies behind its end", with_offsets("9" * 30, 7, MARKED),
         "inside"),
        ("no-digits", "a key without a number stands for nought", with_offsets("x", 7, MARKED), "Version"),
        ("blanks-and-a-sign", "blanks and a plus sign may stand before a number", with_offsets("  +0", "\t7", MARKED),
         "Version"),
        ("digits-then-words", "a number ends at its last digit", with_offsets("0x10", "7bytes", MARKED), "Version"),
    ))


def html_keys():
    far = GREATEST_KEY_OFFSET
    start_line, end_line = "StartFragment:3\r\n", "EndFragment:6\r\n"
    yield from read_blocks((
        ("no-start-key", "without the start key the markers count", f"EndFragment:7\r\n{MARKED}", "inside"),
        ("no-end-key", "without the end key the markers count", f"StartFragment:0\r\n{MARKED}", "inside"),
        ("keys-in-lower-case", "the keys' case counts", f"startfragment:0\r\nendfragment:7\r\n{MARKED}", "inside"),
        ("keys-twice", "the first of two keys counts",
         f"StartFragment:0\r\nStartFragment:5\r\nEndFragment:5\r\nEndFragment:9\r\n{MARKED}", "Start"),
        ("end-key-first", "the keys' order doesn't count", f"EndFragment:3\r\nStartFragment:0\r\n{MARKED}", "End"),
        ("keys-in-the-page", "keys in the page itself count too", f"<p>0123456789</p>{start_line}{end_line}",
         "012"),
        ("start-key-at-4096", "a key at byte 4096 is still found", key_at(far, end_line, start_line), "Fra"),
        ("start-key-at-4097", "a key behind byte 4096 is ignored", key_at(far + 1, end_line, start_line), "inside"),
        ("end-key-at-4096", "an end key at byte 4096 is still found", key_at(far, start_line, end_line), "rtF"),
        ("end-key-at-4097", "an end key behind byte 4096 is ignored", key_at(far + 1, start_line, end_line), "inside"),
        ("nothing", "without keys and markers there is no fragment", "<html><body>Hello</body></html>", ""),
    ))


def html_markers():
    yield from read_blocks((
        ("markers", "markers alone are enough", MARKED, "inside"),
        ("markers-with-nothing-between", "nothing may stand between the markers",
         "<!--StartFragment--><!--EndFragment-->", ""),
        ("markers-overlapping", "markers in reverse order give nothing", "<!--EndFragment-->x<!--StartFragment-->", ""),
        ("end-marker-twice", "the first end marker counts",
         "<!--StartFragment-->a<!--EndFragment-->b<!--EndFragment-->", "a"),
        ("end-marker-before-too", "an end marker before the start marker is the first",
         "<!--EndFragment--><!--StartFragment-->a<!--EndFragment-->", ""),
        ("start-marker-twice", "the first start marker counts",
         "<!--StartFragment-->a<!--StartFragment-->b<!--EndFragment-->", "a<!--StartFragment-->b"),
        ("no-start-marker", "without a start marker there is nothing", "a<!--EndFragment-->", ""),
        ("no-end-marker", "without an end marker there is nothing", "<!--StartFragment-->a", ""),
        ("markers-in-lower-case", "the markers' case counts", "<!--startfragment-->a<!--endfragment-->", ""),
    ))


def html_ends():
    yield from read_blocks((
        ("a-zero-inside", "the block ends at its first zero", f"{with_offsets(0, 7, '')}\u0000{MARKED}", "Version"),
        ("a-zero-before-the-end", "an end behind the first zero is beyond the block",
         placed(BODY_AT, BODY_AT + len(MARKED) + 5, MARKED + "\u0000" + "y" * 30), "inside"),
        ("a-zero-before-the-markers", "markers behind the first zero aren't there", f"x\u0000{MARKED}", ""),
        ("a-zero-at-once", "a block that begins with a zero is empty", f"\u0000{MARKED}", ""),
        ("no-byte", "a block without a byte gives nothing", "", ""),
        ("one-byte", "a block of one byte is read", "x", ""),
        ("closing-zero", "a closing zero ends the block", html_block(b"abc").decode() + "\u0000", "abc"),
        ("any-script", "offsets count bytes", html_block("Größe 豆包 😀".encode()).decode(), "Größe 豆包 😀"),
    ))

    block = placed(BODY_AT, BODY_AT + 1, "é")
    talk = ClipboardTalk("html-cut-inside-a-character", "the bytes go out as they are, a cut character too",
                         {"html": block})
    talk.read(b"\xc3", "")
    yield talk.made()


def utf16(text):
    return text.encode("utf-16-le")


def reading_text():
    rows = (
        ("odd-size", "a block's odd last byte is left out", utf16("abc") + b"x", "abc"),
        ("no-closing-zero", "a text without a closing zero ends with its block", utf16("abc"), "abc"),
        ("zero-inside", "a text ends at its first zero", utf16("ab\0cd\0"), "ab"),
        ("zero-alone", "a block of one zero is an empty text", utf16("\0"), ""),
        ("one-byte", "a block of one byte is none", b"a", ""),
        ("no-byte", "a block without a byte is none", b"", ""),
        ("three-bytes", "three bytes hold one unit", utf16("a") + b"b", "a"),
        ("lone-surrogate", "half a pair is replaced", b"a\x00\x3d\xd8b\x00\x00\x00", "a\ufffdb"),
        ("pair", "a pair is one character", utf16("😀\0"), "😀"),
        ("padded", "what stands behind the zero isn't read", utf16("abc\0") + b"\xff" * 9, "abc"),
    )
    for stem, name, block, text in rows:
        talk = ClipboardTalk(f"text-{stem}", name, {"textBlock": encoded(block), "html": MARKED})
        talk.read("inside", text)
        yield talk.made(calls={"GlobalUnlock": 1 if len(block) < 2 else 2})

    rows = (("plain", "Hello"), ("any-script", "Größe 豆包 😀"), ("lines", "one\r\ntwo\n"), ("empty", ""))
    for stem, text in rows:
        talk = ClipboardTalk(f"text-{stem}-alone", "a text alone leaves the HTML empty", {"text": text})
        talk.read("", text)
        yield talk.made()

    talk = ClipboardTalk("nothing-on-the-clipboard", "an empty clipboard is read with success")
    talk.read()
    yield talk.made(holds=holds(None, None, 1), calls={"GlobalLock": 0, "CloseClipboard": 1})

    talk = ClipboardTalk("read-with-arguments", "arguments aren't looked at", {"text": "a"})
    for arguments in (None, {}, {"text": "b"}, 7):
        talk.ask("readOrvaneDraftClipboard", arguments, {"success": True, "html": "", "text": "a"})
    yield talk.made()


def failed_reading():
    full = {"text": "Text", "html": MARKED}
    rows = (
        ("registering", fault("RegisterClipboardFormatW", 0), "", "Text"),
        ("html-handle", fault("GetClipboardData", None), "", "Text"),
        ("text-handle", fault("GetClipboardData", None, nth=2), "inside", ""),
        ("html-lock", fault("GlobalLock", None), "", "Text"),
        ("text-lock", fault("GlobalLock", None, nth=2), "inside", ""),
        ("html-of-no-size", fault("GlobalSize", 0), "", "Text"),
        ("text-of-no-size", fault("GlobalSize", 0, nth=2), "inside", ""),
        ("html-too-large", fault("GlobalSize", GREATEST_BLOCK + 1), "", "Text"),
        ("text-too-large", fault("GlobalSize", GREATEST_BLOCK + 1, nth=2), "inside", ""),
        ("text-too-small", fault("GlobalSize", 1, nth=2), "inside", ""),
        ("both-handles", fault("GetClipboardData", None, times=2), "", ""),
    )
    for stem, failing, html, text in rows:
        talk = ClipboardTalk(f"read-fails-at-{stem}", "one form that can't be had is empty, the other is read", full)
        talk.read(html, text)
        talk.read("inside", "Text")
        yield talk.made([failing], {**full, "sequence": 1}, calls={"OpenClipboard": 2, "CloseClipboard": 2})

    talk = ClipboardTalk("read-fails-at-opening", "a clipboard that can't be opened is a failure, not asked again",
                         full)
    talk.read_fails()
    talk.read("inside", "Text")
    yield talk.made([fault("OpenClipboard", False)], calls={"OpenClipboard": 2, "CloseClipboard": 1})

    talk = ClipboardTalk("read-locked", "a clipboard that another program holds open can't be read",
                         {**full, "lockedBy": "notes"}, [notes()])
    talk.read_fails()
    talk.sequence(1)
    talk.close_window("notes")
    talk.read("inside", "Text")
    yield talk.made(calls={"OpenClipboard": 2})


def scenarios():
    for part in (writing, failed_writing, html_offsets, html_keys, html_markers, html_ends, reading_text, failed_reading):
        yield from part()
