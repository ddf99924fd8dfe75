"""The clipboard's forms: the HTML block as it must be written and read, and bitmaps as the files they become."""
import base64
import struct

from .core import user
from .wire import whole_number
from .window_talk import PLAIN_FAILURE, WindowTalk, desktop_of

PREFIX, SUFFIX = b"<html><body><!--StartFragment-->", b"<!--EndFragment--></body></html>"
GREATEST_KEY_OFFSET = 4096
GREATEST_BLOCK = 0x800000


def header(start_html, end_html, start_fragment, end_fragment):
    return (f"Version:1.0\r\nStartHTML:{start_html:010}\r\nEndHTML:{end_html:010}\r\n"
            f"StartFragment:{start_fragment:010}\r\nEndFragment:{end_fragment:010}\r\n").encode()


HEADER_BYTES = len(header(0, 0, 0, 0))


def html_block(fragment):
    """As the host writes it, without the closing NUL."""
    count = len(fragment)
    begin = HEADER_BYTES + len(PREFIX)
    return (header(HEADER_BYTES, HEADER_BYTES + count + len(PREFIX) + len(SUFFIX), begin, begin + count)
            + PREFIX + fragment + SUFFIX)


assert (HEADER_BYTES, len(PREFIX), len(SUFFIX)) == (105, 32, 32)


def encoded(content):
    return base64.b64encode(content).decode()


class ClipboardQuestions:
    """What a conversation over the window channel asks of the clipboard."""

    def read(self, html="", text=""):
        self.ask("readOrvaneDraftClipboard", ..., {"success": True, "html": html, "text": text})

    def read_image(self, content=None):
        found = PLAIN_FAILURE if content is None else {"success": True, "bytes": {"$bytes": encoded(content)}}
        self.ask("readClipboardImage", ..., found)

    def sequence(self, number):
        self.ask("clipboardSequenceNumber", ..., {"success": True, "sequence": whole_number(number)})


class ClipboardTalk(ClipboardQuestions, WindowTalk):
    """What is read from and written to a clipboard that begins with `clipboard`."""

    def __init__(self, stem, name, clipboard=None, windows=(), folder="clipboard"):
        super().__init__(folder, stem, name)
        self.clipboard = clipboard
        self.windows = windows

    def read_fails(self):
        self.ask("readOrvaneDraftClipboard", ..., PLAIN_FAILURE)

    def write(self, arguments, is_written=True):
        self.ask("writeOrvaneDraftClipboard", arguments, {"success": is_written})

    def lock(self, window_id, **content):
        self.do({"do": [{"clipboard": {**content, "lockedBy": window_id}}]})

    def copy(self, **content):
        """A person copies something in another program."""
        self.do({"do": [{"clipboard": content}]})

    def close_window(self, window_id):
        self.do(user(close=window_id))

    def made(self, faults=(), holds=None, **more):
        """`holds`: the clipboard at the end."""
        end = None if holds is None else {"clipboard": holds}
        return self.scenario(desktop_of(self.windows, clipboard=self.clipboard, faults=faults), end=end, **more)


# Bitmaps.

FILE_HEADER_BYTES = 14


def bitmap(width=3, height=2, bits=24, image=0, header_bytes=40, block_bytes=None, extra=0):
    """A block: the header, `extra` bytes of colours or masks, and pixels; `image`: the size that the header tells."""
    pixels = (bits * abs(width) + 31) // 32 * 4 * abs(height)
    head = struct.pack("<IiiHHIIiiII", header_bytes, width, height, 1, bits, 0, image, 2835, 2835, 0, 0)
    made = head.ljust(max(header_bytes, 40), b"\x11") + b"\x22" * extra
    size = len(made) + pixels if block_bytes is None else block_bytes
    return (made + bytes(at % 251 for at in range(max(0, size - len(made)))))[:size]


def bitmap_file(block):
    """The file that a block becomes; None when it can't be a bitmap."""
    if len(block) < 40:
        return None
    header_bytes, width, height = struct.unpack_from("<Iii", block)
    bits, = struct.unpack_from("<H", block, 14)
    image, = struct.unpack_from("<I", block, 20)
    if not 40 <= header_bytes <= len(block) or 0 in (width, height, bits):
        return None
    image = image or (bits * abs(width) + 31) // 32 * 4 * abs(height)
    if image == 0 or image > len(block):
        return None
    return struct.pack("<2sIHHI", b"BM", len(block) + FILE_HEADER_BYTES, 0, 0,
                       len(block) - image + FILE_HEADER_BYTES) + block
