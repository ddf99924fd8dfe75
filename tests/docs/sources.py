"""What is read out of the host's sources: the texts that they hold, what they include, and their code."""
import re

TOKEN = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)
      |(?P<directive>^[ \t]*\#[^\n]*)
      |(?P<text>(?P<prefix>\b(?:L|u8|u|U|R|LR))?"(?P<body>(?:[^"\\\n]|\\.)*)")
      |(?P<character>'(?:[^'\\\n]|\\.)+')
      |(?P<space>\s+)
      |(?P<other>[A-Za-z0-9_']+|.)""",
    re.VERBOSE | re.DOTALL | re.MULTILINE,
)
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*"([^"]+)"', re.MULTILINE)
ESCAPES = {"n": "\n", "t": "\t", "r": "\r", "0": "\0", '"': '"', "\\": "\\", "'": "'"}


def unescape(body):
    return re.sub(r"\\(.)", lambda match: ESCAPES[match.group(1)], body)


def read_texts(source):
    """(line, text) of each narrow string literal, those that stand side by side as one."""
    texts, line, is_joined = [], 1, False
    for token in TOKEN.finditer(source):
        if token.lastgroup in ("text", "body", "prefix") or token.group("text"):
            if token.group("prefix") is None:
                body = unescape(token.group("body"))
                if is_joined:
                    texts[-1] = (texts[-1][0], texts[-1][1] + body)
                else:
                    texts.append((line, body))
                is_joined = True
            else:
                is_joined = False
        elif not token.group("space") and not token.group("comment"):
            is_joined = False
        line += token.group(0).count("\n")
    return texts


def source_files(folder):
    return sorted(path for path in folder.rglob("*") if path.suffix in (".cpp", ".h"))


def read_includes(path):
    return INCLUDE.findall(path.read_text(encoding="utf-8"))


def read_code(path):
    """A source without its comments and texts."""
    return "".join(" " if token.group("comment") or token.group("text") else token.group(0)
                   for token in TOKEN.finditer(path.read_text(encoding="utf-8")))
