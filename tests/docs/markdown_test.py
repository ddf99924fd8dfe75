#!/usr/bin/env python3
"""The reader of documents itself: what it reads, and what it must refuse."""
import unittest

from markdown import DocumentError, code_of, read_document


class ReadDocument(unittest.TestCase):
    def test_gives_sections_with_tables_code_and_text(self):
        sections = read_document("# A\nwords\n\n| a | b |\n|---|---|\n| `x` | y \\| z |\n\n```json\n{}\n```\n## B")
        self.assertEqual([(s.level, s.title) for s in sections], [(0, ""), (1, "A"), (2, "B")])
        table = sections[1].tables("a")[0]
        self.assertEqual(dict(table.rows[0]), {"a": "`x`", "b": "y | z"})
        self.assertEqual(table.rows[0].line, 6)
        self.assertEqual(sections[1].codes("json")[0].text, "{}")
        self.assertEqual([text.text for text in sections[1].texts()], ["words"])

    def test_takes_no_heading_and_no_table_out_of_code(self):
        sections = read_document("```\n# no\n| no\n```")
        self.assertEqual(len(sections), 1)
        self.assertEqual(sections[0].blocks[0].text, "# no\n| no")

    def test_refuses_what_is_no_whole_table(self):
        for text in (
            "| a | b |",
            "| a | b |\n| x | y |",
            "| a | b |\n|---|---|",
            "| a | b |\n|---|\n| x | y |",
            "| a | b |\n|---|---|\n| x |",
            "| a | b |\n|---|---|\n| x | y | z |",
            "| a | b |\n|---|---|\n| x | y",
            "| a | a |\n|---|---|\n| x | y |",
            "| a | b |\n|---|---|\n| `x | y |",
            "```\nopen",
        ):
            with self.subTest(text), self.assertRaises(DocumentError):
                read_document(text)


class CodeOf(unittest.TestCase):
    def test_gives_the_one_span(self):
        self.assertEqual(code_of("`a b`", 1), "a b")

    def test_refuses_more_or_less_than_one_span(self):
        for cell in ("", "a", "`a` b", "`a` `b`", "``"):
            with self.subTest(cell), self.assertRaises(DocumentError):
                code_of(cell, 1)


if __name__ == "__main__":
    unittest.main()
