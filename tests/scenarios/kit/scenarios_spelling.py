"""The spell check of one word: which words are asked about and how, what is suggested, languages, and what fails."""
from .core import ALWAYS, E_FAIL, fault
from .spelling import CORRECT, MOST_SUGGESTIONS, UNSUPPORTED, Dictionary, SpellingTalk

ENGLISH = Dictionary(
    ["Paris", "house", "nasa", "usa's", "1234", "word2", "", "it's", "naïve", "straße"],
    {"hous": ["house", "hours"], "huose": ["house"], "nsaa": ["nasa", "NASDAQ"], "NSA": ["nasa"], "USA": ["usa's"],
     "nord2": ["word2"], "parsi": ["Paris"], "Parsi": ["Paris"], "12345": ["1234"], "naive": ["naïve"],
     "nave": ["naïve"], "a b": ["ab", "a", "b"], "strase": ["straße"], "über": ["uber", "öber"]})
GERMAN = Dictionary(["Haus", "house"], {"Huas": ["Haus"], "haus": ["Haus"]})

MISSPELLED = {"supported": True, "misspelled": True, "suggestions": ["house", "hours"]}
WITHOUT_SUGGESTIONS = {"supported": True, "misspelled": True, "suggestions": []}

# What each word must come to: (word, whether the checker is asked, the reply by hand or None for the dictionary's)
WORDS = (
    ("right", "house", True, CORRECT),
    ("wrong", "hous", True, MISSPELLED),
    ("wrong-without-suggestions", "zzzz", True, WITHOUT_SUGGESTIONS),
    ("capitals", "NSAA", True, {"supported": True, "misspelled": True, "suggestions": ["NASA", "NASDAQ"]}),
    ("capitals-that-are-right-in-small-letters", "NASA", True, CORRECT),
    ("three-capitals-as-they-stand", "USA", True, {"supported": True, "misspelled": True, "suggestions": ["usa's"]}),
    ("three-capitals-keep-the-suggestions-case", "NSA", True,
     {"supported": True, "misspelled": True, "suggestions": ["nasa"]}),
    ("capitals-with-a-digit", "WORD2", True, CORRECT),
    ("wrong-capitals-with-a-digit", "NORD2", True, {"supported": True, "misspelled": True, "suggestions": ["WORD2"]}),
    ("three-capitals-and-a-sign", "USA!", True, WITHOUT_SUGGESTIONS),
    ("one-capital-and-digits", "A123", True, WITHOUT_SUGGESTIONS),
    ("capitals-with-an-apostrophe", "IT'S", True, CORRECT),
    ("brand", "eBook", False, CORRECT), ("name", "McKay", False, CORRECT),
    ("capital-at-the-end", "housE", False, CORRECT), ("two-capitals-then-small", "PAris", False, CORRECT),
    ("capital-behind-a-digit", "2Paris", True, WITHOUT_SUGGESTIONS),
    ("small-then-capital-behind-signs", "-eB-", False, CORRECT),
    ("capitalised", "Paris", True, CORRECT),
    ("wrong-capitalised", "Parsi", True, {"supported": True, "misspelled": True, "suggestions": ["Paris"]}),
    ("capitalised-isnt-lowered", "House", True, WITHOUT_SUGGESTIONS),
    ("digits", "1234", True, CORRECT), ("wrong-digits", "12345", True,
                                        {"supported": True, "misspelled": True, "suggestions": ["1234"]}),
    ("signs", "?!?!", True, WITHOUT_SUGGESTIONS), ("empty", "", True, CORRECT),
    ("two-words-as-one", "a b", True, {"supported": True, "misspelled": True, "suggestions": ["ab", "a", "b"]}),
    ("blank", " ", True, WITHOUT_SUGGESTIONS), ("one-letter", "x", True, WITHOUT_SUGGESTIONS),
    ("one-capital", "X", True, WITHOUT_SUGGESTIONS),
    ("pair-of-units", "😀", True, WITHOUT_SUGGESTIONS),
    ("no-case", "豆包豆包", True, WITHOUT_SUGGESTIONS),
)


def words():
    for stem, word, is_asked, value in WORDS:
        name = f"{word!r} is checked" if is_asked else f"{word!r} counts as right without asking the checker"
        talk = SpellingTalk(f"word-{stem}", name, {"en-US": ENGLISH})
        talk.check(word)
        assert talk.replies[0]["value"] == value, (word, talk.replies[0]["value"])
        calls = {"CoCreateInstance": 1, "ISpellCheckerFactory::IsSupported": 1,
                 "ISpellCheckerFactory::CreateSpellChecker": 1, "ISpellChecker::Check": int(is_asked),
                 "IEnumSpellingError::Next": int(is_asked), "ISpellChecker::Suggest": int(value["misspelled"])}
        if not value["misspelled"]:
            calls["IEnumString::Next"] = 0
        yield talk.made(calls=calls)


def suggestions():
    for count in range(MOST_SUGGESTIONS + 3):
        dictionary = Dictionary([], {"wrd": [f"word{at}" for at in range(count)],
                                     "wrdd": [f"word{at}" for at in range(count)]})
        taken = min(count, MOST_SUGGESTIONS)
        # Behind the last of fewer than eight the list is asked once more.
        asked = taken if taken == MOST_SUGGESTIONS else taken + 1
        talk = SpellingTalk(f"suggestions-{count}", f"of {count} suggestions {taken} are taken, in order",
                            {"en-US": dictionary})
        talk.check("wrd")
        talk.check("WRDD")
        assert len(talk.replies[0]["value"]["suggestions"]) == taken
        yield talk.made(calls={"IEnumString::Next": 2 * asked, "CoTaskMemFree": 2 * taken})

    talk = SpellingTalk("suggestions-in-any-script", "suggestions come as they are; raised, the letters of ASCII are", {
        "en-US": Dictionary([], {"grosse": ["größe", "gros se", "", "😀é"], "grusse": ["grüße", "Ωmega", "ı"]})})
    talk.check("grosse")
    talk.check("GRUSSE", value={"supported": True, "misspelled": True, "suggestions": ["GRüßE", "ΩMEGA", "ı"]})
    yield talk.made()

    talk = SpellingTalk("suggestions-twice-alike", "equal suggestions are told twice",
                        {"en-US": Dictionary([], {"wrd": ["word", "word"]})})
    talk.check("wrd")
    yield talk.made()


def languages():
    both = {"en-US": ENGLISH, "de-DE": GERMAN}
    talk = SpellingTalk("languages", "each language has its own words", both)
    for word, language in (("house", "en-US"), ("haus", "de-DE"), ("Haus", "de-DE"), ("Haus", "en-US"),
                           ("hous", "de-DE"), ("hous", "en-US")):
        talk.check(word, language)
    yield talk.made(calls={"CoCreateInstance": 1, "ISpellCheckerFactory::IsSupported": 2,
                           "ISpellCheckerFactory::CreateSpellChecker": 2, "ISpellChecker::Check": 6})

    talk = SpellingTalk("language-left-out", "without a language it is en-US", both)
    for language in (None, "", 7, None, True, ["de-DE"], {"$bytes": "ZGU="}):
        talk.ask("checkSpelling", {"word": "hous", **({} if language is None else {"language": language})}, MISSPELLED)
    talk.ask("checkSpelling", {"word": "hous", "Language": "de-DE"}, MISSPELLED)
    yield talk.made(calls={"ISpellCheckerFactory::CreateSpellChecker": 1})

    talk = SpellingTalk("language-unsupported", "what isn't there isn't supported, asked anew each time", both)
    for language in ("fr-FR", "fr-FR", "en", "en-US ", "x"):
        talk.check("hous", language, UNSUPPORTED)
    talk.check("hous")
    yield talk.made(calls={"CoCreateInstance": 1, "ISpellCheckerFactory::IsSupported": 6,
                           "ISpellCheckerFactory::CreateSpellChecker": 1, "ISpellChecker::Check": 1})

    talk = SpellingTalk("no-language-at-all", "without any dictionary nothing is supported")
    talk.check("hous", value=UNSUPPORTED)
    talk.check("eBook", value=UNSUPPORTED)
    talk.check("", value=UNSUPPORTED)
    yield talk.made(calls={"CoCreateInstance": 1, "ISpellCheckerFactory::IsSupported": 3})

    talk = SpellingTalk("checkers-are-kept", "one checker for each language, however often it is used", both)
    for _ in range(3):
        talk.check("hous")
        talk.check("Huas", "de-DE")
    yield talk.made(calls={"CoCreateInstance": 1, "ISpellCheckerFactory::IsSupported": 2,
                           "ISpellCheckerFactory::CreateSpellChecker": 2})

    talk = SpellingTalk("tags-are-kept-as-given", "a tag in another case is another entry", both)
    talk.check("hous", "en-US")
    talk.check("hous", "EN-us", MISSPELLED)
    talk.check("hous", "en-US")
    talk.check("hous", "EN-us", MISSPELLED)
    yield talk.made(calls={"ISpellCheckerFactory::IsSupported": 2, "ISpellCheckerFactory::CreateSpellChecker": 2})


def arguments():
    talk = SpellingTalk("arguments-of-every-kind", "a word that is no text is the empty word", {"en-US": ENGLISH})
    for given in (..., None, {}, "hous", ["hous"], {"word": 7}, {"word": None}, {"word": True}, {"Word": "hous"},
                  {"word": {"$bytes": "aG91cw=="}}):
        talk.ask("checkSpelling", given, CORRECT)
    talk.ask("checkSpelling", {"word": "hous", "more": 1}, MISSPELLED)
    yield talk.made(calls={"ISpellChecker::Check": 11})

    talk = SpellingTalk("nothing-before-the-first-check", "nothing is made before the first word", {"en-US": ENGLISH})
    talk.ask("clipboardSequenceNumber", ..., {"success": True, "sequence": {"$int64": 1}})
    yield talk.made(calls={"CoCreateInstance": 0, "ISpellCheckerFactory::IsSupported": 0})


def failures():
    factory, checker = "ISpellCheckerFactory::", "ISpellChecker::"
    rows = (
        ("no-factory", "CoCreateInstance", E_FAIL, UNSUPPORTED, {factory + "IsSupported": 1}),
        ("null-factory", "CoCreateInstance", None, UNSUPPORTED, {factory + "IsSupported": 1}),
        ("support-unknown", factory + "IsSupported", E_FAIL, UNSUPPORTED, {factory + "CreateSpellChecker": 1}),
        ("no-checker", factory + "CreateSpellChecker", E_FAIL, UNSUPPORTED, {checker + "Check": 1}),
        ("null-checker", factory + "CreateSpellChecker", None, UNSUPPORTED, {checker + "Check": 1}),
        ("no-check", checker + "Check", E_FAIL, CORRECT, {"IEnumSpellingError::Next": 1}),
        ("null-check", checker + "Check", None, CORRECT, {"IEnumSpellingError::Next": 1}),
        ("no-error", "IEnumSpellingError::Next", E_FAIL, CORRECT, {checker + "Suggest": 1}),
        ("null-error", "IEnumSpellingError::Next", None, CORRECT, {checker + "Suggest": 1}),
        ("no-suggestions", checker + "Suggest", E_FAIL, WITHOUT_SUGGESTIONS, {"IEnumString::Next": 3}),
        ("null-suggestions", checker + "Suggest", None, WITHOUT_SUGGESTIONS, {"IEnumString::Next": 3}),
        ("no-first-suggestion", "IEnumString::Next", E_FAIL, WITHOUT_SUGGESTIONS, {"CoTaskMemFree": 2}),
        ("null-first-suggestion", "IEnumString::Next", None, WITHOUT_SUGGESTIONS, {"CoTaskMemFree": 2}),
        ("end-at-once", "IEnumString::Next", "0x00000001", WITHOUT_SUGGESTIONS, {"CoTaskMemFree": 2}),
    )
    for stem, platform_call, result, value, calls in rows:
        talk = SpellingTalk(f"failure-{stem}", "a failed call ends the check with what was known; the next is whole",
                            {"en-US": ENGLISH})
        talk.check("hous", value=value)
        talk.check("hous", value=MISSPELLED)
        yield talk.made([fault(platform_call, result)], calls=calls)

    for stem, result in (("fails", E_FAIL), ("is-null", None)):
        talk = SpellingTalk(f"failure-second-suggestion-{stem}", "the suggestions before a failed one are kept",
                            {"en-US": ENGLISH})
        talk.check("hous", value={"supported": True, "misspelled": True, "suggestions": ["house"]})
        talk.check("NSAA", value={"supported": True, "misspelled": True, "suggestions": ["NASA", "NASDAQ"]})
        yield talk.made([fault("IEnumString::Next", result, nth=2)], calls={"CoTaskMemFree": 3})

    talk = SpellingTalk("failure-never-a-factory", "a factory that can't be made is asked for at each check",
                        {"en-US": ENGLISH})
    for word in ("hous", "house", "eBook"):
        talk.check(word, value=UNSUPPORTED)
    yield talk.made([fault("CoCreateInstance", "0x80040154", times=ALWAYS)], calls={"CoCreateInstance": 3})

    talk = SpellingTalk("failure-of-one-language", "a checker that can't be made hurts no other language",
                        {"en-US": ENGLISH, "de-DE": GERMAN})
    talk.check("Huas", "de-DE", UNSUPPORTED)
    talk.check("hous")
    talk.check("Huas", "de-DE")
    yield talk.made([fault(factory + "CreateSpellChecker", E_FAIL)],
                    calls={factory + "IsSupported": 3, factory + "CreateSpellChecker": 3})


def scenarios():
    for part in (words, suggestions, languages, arguments, failures):
        yield from part()
