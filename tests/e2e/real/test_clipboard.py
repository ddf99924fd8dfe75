"""The clipboard between the host and programs of other kinds."""
import base64
import struct
import zlib

from real import x_clipboard
from real.stage import RealTest, window_call


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def png():
    """A picture of 2 x 1 pixels."""
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", 2, 1, 8, 2, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(b"\x00\x10\x20\x30\xA0\xB0\xC0")) + chunk(b"IEND", b""))


def bitmap(header_size, width, height):
    """A bitmap's block: its header and rows, with 32 bits for a pixel."""
    header = struct.pack("<IiiHHIIiiII", header_size, width, height, 1, 32, 0, 0, 2835, 2835, 0, 0)
    return header.ljust(header_size, b"\0") + bytes(index % 251 for index in range(width * height * 4))


class Clipboard(RealTest):
    TEXT = "Grüße, 世界 — مرحبا 😀"
    HTML = "<p>Grüße, <b>世界</b> — مرحبا 😀</p>"

    def test_written_draft_is_read_by_another_program(self):
        came = {}

        def read():
            came.update((target, x_clipboard.read(self.session.display, target)) for target in ("text/html", "UTF8_STRING"))

        report = self.run_scenario(
            {"steps": [window_call("writeOrvaneDraftClipboard", {"text": self.TEXT, "html": self.HTML})]}, at_end=read)
        self.assertEqual(report["replies"][0]["value"], {"success": True})
        self.assertEqual(came["UTF8_STRING"], self.TEXT.encode())
        self.assertEqual(came["text/html"].rstrip(b"\0"), self.HTML.encode())

    def read_offer(self, target, octets, method):
        with x_clipboard.offered(self.session.display) as offer:
            report = self.run_scenario({"steps": [{"wait": 100}, window_call(method)]},
                                       before=lambda: offer(target, octets))
        return report["replies"][0]["value"]

    def test_html_of_another_program_is_read(self):
        came = self.read_offer("text/html", self.HTML.encode(), "readOrvaneDraftClipboard")
        self.assertTrue(came["success"])
        self.assertEqual(came["html"].strip("\0\r\n"), self.HTML)

    def test_text_of_another_program_is_read(self):
        came = self.read_offer("UTF8_STRING", self.TEXT.encode(), "readOrvaneDraftClipboard")
        self.assertTrue(came["success"])
        self.assertEqual(came["text"].rstrip(), self.TEXT)

    def test_png_of_another_program_is_read_byte_for_byte(self):
        came = self.read_offer("image/png", png(), "readClipboardImage")
        self.assertEqual(came, {"success": True, "bytes": {"$bytes": base64.b64encode(png()).decode()}})

    def read_bitmap(self, form, block):
        """The bytes of the picture that the host makes of a program's bitmap, and where its pixels begin."""
        report = self.run_scenario({
            "desktop": {"clipboard": {form: base64.b64encode(block).decode()}},
            "steps": [window_call("readClipboardImage")],
        })
        value = report["replies"][0]["value"]
        self.assertTrue(value["success"])
        picture = base64.b64decode(value["bytes"]["$bytes"])
        size, _, _, offset = struct.unpack("<IHHI", picture[2:14])
        self.assertEqual((picture[:2], size), (b"BM", len(picture)))
        return picture, offset

    def test_bitmap_of_another_program_becomes_a_file_of_its_own_bytes(self):
        block = bitmap(124, 5, 3)
        picture, offset = self.read_bitmap("dibv5", block)
        self.assertEqual((picture[14:], offset), (block, 14 + 124))

    def test_pixels_of_an_older_bitmap_are_its_own(self):
        block = bitmap(40, 5, 3)
        picture, offset = self.read_bitmap("dib", block)
        # The platform makes the newer form of it, which has a longer header.
        self.assertEqual(picture[offset:], block[40:])
