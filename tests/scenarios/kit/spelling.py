"""Words as the spell check must take them: what is asked of the checker, and how its suggestions come back."""
from .window_talk import WindowTalk, desktop_of

UNSUPPORTED = {"supported": False, "misspelled": False, "suggestions": []}
CORRECT = {"supported": True, "misspelled": False, "suggestions": []}
MOST_SUGGESTIONS = 8
LEAST_CAPITALS = 4


def letters(word):
    """One UTF-16 unit each; a half of a pair is no letter."""
    return [one for one in word if len(one.encode("utf-16-le")) == 2 and one.isalpha()]


def is_all_capitals(word):
    capitals = sum(one.isupper() for one in letters(word))
    small = sum(one.islower() for one in letters(word))
    return len(word.encode("utf-16-le")) // 2 >= LEAST_CAPITALS and capitals >= 1 and small == 0


def is_mixed(word):
    found = letters(word)
    capitals = sum(one.isupper() for one in found)
    small = sum(one.islower() for one in found)
    return capitals >= 1 and small >= 1 and not (found[0].isupper() and capitals == 1)


def raised(text):
    """As the runtime library raises it in a process that never chooses a locale."""
    return "".join(one.upper() if one.isascii() else one for one in text)


class Dictionary:
    def __init__(self, words=(), suggest=None):
        self.words = list(words)
        self.suggest = dict(suggest or {})

    @property
    def facts(self):
        return {"words": self.words, "suggest": self.suggest}

    def verdict(self, word):
        """What a check of the word must reply."""
        if is_mixed(word):
            return CORRECT
        asked = word.lower() if is_all_capitals(word) else word
        if asked in self.words:
            return CORRECT
        found = self.suggest.get(asked, [])[:MOST_SUGGESTIONS]
        return {"supported": True, "misspelled": True,
                "suggestions": [raised(one) for one in found] if is_all_capitals(word) else found}


class SpellingTalk(WindowTalk):
    def __init__(self, stem, name, dictionaries=None, folder="spelling"):
        super().__init__(folder, stem, name)
        self.dictionaries = dictionaries or {}

    def check(self, word, language=None, value=None):
        """`value`: the reply, where it isn't the dictionary's."""
        arguments = {"word": word, **({} if language is None else {"language": language})}
        self.ask("checkSpelling", arguments,
                 self.dictionaries[language or "en-US"].verdict(word) if value is None else value)

    def made(self, faults=(), **more):
        facts = {tag: one.facts for tag, one in self.dictionaries.items()}
        return self.scenario(desktop_of(faults=faults, spelling=facts or None), **more)
