"""Pictures from the clipboard as complete files, and the number by which a change shows."""
from .clipboard import ClipboardTalk, bitmap, bitmap_file, encoded
from .core import fault, window

PNG = b"\x89PNG\r\n\x1a\n" + bytes(range(40))
GOOD = bitmap()
OTHER = bitmap(5, 1, 32)


def notes():
    return window("notes", "notepad.exe", "Notes", (300, 300, 900, 700))


# (what is so, the block)
BLOCKS = {
    "rows-padded": ("rows are padded to four bytes: 3 x 2 pixels of 24 bits are 24 bytes", bitmap(3, 2, 24)),
    "one-bit": ("a row of one bit takes four bytes", bitmap(9, 3, 1, extra=8)),
    "eight-bits-with-colours": ("a colour table stands between header and pixels", bitmap(4, 2, 8, extra=1024)),
    "masks": ("masks stand between header and pixels", bitmap(2, 2, 16, extra=12)),
    "thirty-two-bits": ("32 bits need no padding", bitmap(3, 3, 32)),
    "top-down": ("a negative height counts as its magnitude and stays in the block", bitmap(3, -2, 24)),
    "negative-width": ("a negative width counts as its magnitude", bitmap(-3, 2, 24)),
    "image-size-told": ("the size that the header tells is taken", bitmap(3, 2, 24, image=24)),
    "image-size-smaller": ("also when it is smaller than the pixels", bitmap(3, 2, 24, image=10)),
    "image-size-of-one": ("and when it is one byte", bitmap(3, 2, 24, image=1)),
    "image-size-as-the-block": ("the size may be the whole block's", bitmap(3, 2, 24, image=64)),
    "image-size-one-beyond": ("a size beyond the block is refused", bitmap(3, 2, 24, image=65)),
    "image-size-greatest": ("the greatest size is refused", bitmap(3, 2, 24, image=0xFFFFFFFF)),
    "pixels-beyond-the-block": ("computed pixels beyond the block are refused", bitmap(100, 100, 24, block_bytes=400)),
    "pixels-as-the-block": ("computed pixels may fill the block", bitmap(10, 1, 32, block_bytes=40)),
    "39-bytes": ("a block of 39 bytes is refused", bitmap(1, 1, 1, block_bytes=39)),
    "40-bytes": ("a block of 40 bytes is enough", bitmap(1, 1, 1, block_bytes=40)),
    "header-of-41-in-40": ("a header larger than its block is refused",
                           bitmap(1, 1, 1, header_bytes=41, block_bytes=40)),
    "header-as-the-block": ("a header may be the whole block", bitmap(1, 1, 1, header_bytes=44, block_bytes=44)),
    "header-of-39": ("a header of 39 bytes is refused", bitmap(1, 1, 24, header_bytes=39)),
    "header-of-12": ("the old short header is refused", bitmap(1, 1, 24, header_bytes=12)),
    "header-of-none": ("a header of no bytes is refused", bitmap(1, 1, 24, header_bytes=0)),
    "header-greatest": ("the greatest header is refused", bitmap(1, 1, 24, block_bytes=200).replace(
        b"\x28\0\0\0", b"\xff\xff\xff\xff", 1)),
    "no-width": ("a width of nought is refused", bitmap(0, 2, 24, image=8, block_bytes=80)),
    "no-height": ("a height of nought is refused", bitmap(3, 0, 24, image=8, block_bytes=80)),
    "no-bits": ("nought bits are refused", bitmap(3, 2, 0, image=8, block_bytes=80)),
    "least-width-and-height": ("the least numbers of width and height are refused",
                               bitmap(-(1 << 31), -(1 << 31), 32, block_bytes=120)),
    "greatest-numbers": ("the greatest numbers are refused",
                         bitmap((1 << 31) - 1, (1 << 31) - 1, 0xFFFF, block_bytes=120)),
    "one-byte": ("a block of one byte is refused", b"("),
    "no-byte": ("a block without a byte is refused", b""),
    "larger-than-needed": ("what stands before the pixels may be anything", bitmap(3, 2, 24, extra=77)),
}


def bitmaps():
    for stem, (name, block) in BLOCKS.items():
        for form in ("dib", "dibv5"):
            talk = ClipboardTalk(f"image-{form}-{stem}", f"{name} ({form})", {form: encoded(block)})
            content = bitmap_file(block)
            assert (content is None) == ("refused" in name), stem
            talk.read_image(content)
            locks = 0 if block == b"" else 1
            yield talk.made(calls={"OpenClipboard": 1, "CloseClipboard": 1, "GlobalUnlock": locks})

    for stem, block in (("no-colour-table", bitmap(3, 2, 24, header_bytes=124)),
                        ("colour-table", bitmap(4, 2, 8, header_bytes=124, extra=64)),
                        ("image-size", bitmap(3, 2, 24, header_bytes=124, image=24))):
        talk = ClipboardTalk(f"image-header-of-124-{stem}", "a header of 124 bytes: the pixels lie at the block's end",
                             {"dibv5": encoded(block)})
        content = bitmap_file(block)
        if stem == "no-colour-table":
            assert content[10:14] == (124 + 14).to_bytes(4, "little")
        talk.read_image(content)
        yield talk.made()


def preferences():
    rows = (
        ("png", "a PNG comes as it is", {"png": PNG}, PNG),
        ("png-of-one-byte", "a PNG isn't looked into", {"png": b"x"}, b"x"),
        ("png-first", "a PNG wins over every bitmap", {"png": PNG, "dibv5": GOOD, "dib": OTHER}, PNG),
        ("png-over-dib", "a PNG wins over a bitmap", {"png": PNG, "dib": GOOD}, PNG),
        ("dibv5-first", "of two bitmaps the newer form is taken", {"dibv5": GOOD, "dib": OTHER}, bitmap_file(GOOD)),
        ("dib", "a bitmap in the older form", {"dib": OTHER}, bitmap_file(OTHER)),
        ("png-without-a-byte", "an empty PNG gives way to the bitmap", {"png": b"", "dib": GOOD}, bitmap_file(GOOD)),
        ("png-without-a-byte-alone", "an empty PNG alone is no picture", {"png": b""}, None),
        ("png-without-a-byte-and-a-bad-bitmap", "nor with a bad bitmap", {"png": b"", "dib": GOOD[:39]}, None),
        ("bad-dibv5", "a bad bitmap isn't made good by its older form", {"dibv5": GOOD[:39], "dib": GOOD}, None),
        ("text-only", "a text is no picture", {"text": "picture"}, None),
        ("html-only", "a page is no picture", {"html": "<img src=x>"}, None),
        ("nothing", "an empty clipboard has no picture", {}, None),
    )
    for stem, name, forms, content in rows:
        given = {form: block if isinstance(block, str) else encoded(block) for form, block in forms.items()}
        talk = ClipboardTalk(f"image-{stem}", name, given or None)
        talk.read_image(content)
        yield talk.made(calls={"OpenClipboard": 1, "CloseClipboard": 1, "EmptyClipboard": 0})

    talk = ClipboardTalk("image-beside-text", "a picture is found beside text, which stays readable",
                         {"text": "Caption", "html": "<!--StartFragment-->c<!--EndFragment-->", "dib": encoded(GOOD)})
    talk.read_image(bitmap_file(GOOD))
    talk.read("c", "Caption")
    yield talk.made()

    talk = ClipboardTalk("image-again", "reading takes nothing away", {"png": encoded(PNG)})
    for arguments in (..., None, {}, {"format": "dib"}):
        talk.ask("readClipboardImage", arguments, {"success": True, "bytes": {"$bytes": encoded(PNG)}})
    talk.sequence(1)
    yield talk.made()


def failures():
    forms = {"png": encoded(PNG), "dibv5": encoded(GOOD), "dib": encoded(OTHER)}
    newer, older = bitmap_file(GOOD), bitmap_file(OTHER)
    bitmaps_only = {"dibv5": encoded(GOOD), "dib": encoded(OTHER)}
    rows = (
        ("png-registering", forms, [fault("RegisterClipboardFormatW", 0)], newer),
        ("png-not-available", forms, [fault("IsClipboardFormatAvailable", False)], newer),
        ("png-handle", forms, [fault("GetClipboardData", None)], newer),
        ("png-size", forms, [fault("GlobalSize", 0)], newer),
        ("png-lock", forms, [fault("GlobalLock", None)], newer),
        ("dibv5-not-available", bitmaps_only, [fault("IsClipboardFormatAvailable", False, nth=2)], older),
        ("no-bitmap-available", bitmaps_only, [fault("IsClipboardFormatAvailable", False, nth=2, times=2)], None),
        ("bitmap-handle", bitmaps_only, [fault("GetClipboardData", None)], None),
        ("bitmap-size", bitmaps_only, [fault("GlobalSize", 0)], None),
        ("bitmap-size-39", bitmaps_only, [fault("GlobalSize", 39)], None),
        ("bitmap-lock", bitmaps_only, [fault("GlobalLock", None)], None),
        ("png-and-bitmap-handle", forms, [fault("GetClipboardData", None, times=2)], None),
        ("png-and-bitmap-lock", forms, [fault("GlobalLock", None, times=2)], None),
        ("opening", forms, [fault("OpenClipboard", False)], None),
    )
    for stem, clipboard, failing, content in rows:
        talk = ClipboardTalk(f"image-fails-at-{stem}", "what can't be had gives way, or is no picture", clipboard)
        talk.read_image(content)
        # The next call finds everything as it should be.
        talk.read_image(PNG if "png" in clipboard else newer)
        yield talk.made(failing, calls={"OpenClipboard": 2, "CloseClipboard": 1 if stem == "opening" else 2})

    talk = ClipboardTalk("image-locked", "a clipboard that another program holds open gives no picture",
                         {**forms, "lockedBy": "notes"}, [notes()])
    talk.read_image()
    talk.close_window("notes")
    talk.read_image(PNG)
    yield talk.made(calls={"OpenClipboard": 2, "CloseClipboard": 1})


def sequences():
    talk = ClipboardTalk("sequence", "the number rises with each change and with nothing else", {"text": "one"},
                         [notes()])
    talk.sequence(1)
    talk.read("", "one")
    talk.read_image()
    talk.sequence(1)
    talk.copy(text="two")
    talk.sequence(2)
    talk.write({"text": "three", "html": ""})
    talk.sequence(5)
    talk.copy(png=encoded(PNG))
    talk.sequence(6)
    talk.read_image(PNG)
    talk.lock("notes")
    talk.sequence(6)
    talk.write({"text": "four"}, False)
    talk.sequence(6)
    yield talk.made(calls={"GetClipboardSequenceNumber": 7})

    for stem, number in (("nought", 0), ("greatest-signed", 0x7FFFFFFF), ("above-signed", 0x80000000),
                         ("greatest", 0xFFFFFFFF)):
        talk = ClipboardTalk(f"sequence-{stem}", f"{number} is told as it is, without a sign")
        talk.sequence(number)
        yield talk.made([fault("GetClipboardSequenceNumber", number)], calls={"OpenClipboard": 0})

    talk = ClipboardTalk("sequence-with-arguments", "arguments aren't looked at")
    for arguments in (None, {}, {"sequence": 7}, 7):
        talk.ask("clipboardSequenceNumber", arguments, {"success": True, "sequence": {"$int64": 1}})
    yield talk.made()


def scenarios():
    for part in (bitmaps, preferences, failures, sequences):
        yield from part()
