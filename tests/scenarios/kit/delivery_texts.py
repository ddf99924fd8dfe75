"""The waits, limits and texts of a delivery, as `delivery.py` puts them together."""

# Waits, in milliseconds.
BEFORE_FOREGROUND_READ_MS = 260
FIRST_USE_MS = 1800
AFTER_REMOVAL_MS = 80
BOX_PAUSE_MS = 250
BEFORE_SELECT_ALL_MS = 120
BEFORE_PASTE_MS = 70
CLAUDE_SETTLE_MS = 1100
CLAUDE_AFTER_SEND_MS = 900
CLAUDE_TRY_MS = 450
CHATGPT_SETTLE_MS = 500
GEMINI_SETTLE_MS = 650
PLAIN_SETTLE_MS = 220
PERPLEXITY_EXTRA_SETTLE_MS = 500
VALUE_PAUSE_MS = 180
SEND_PAUSE_MS = 250
AFTER_SEND_MS = 350
POST_SUBMIT_MS = 800
RESPONDING_PAUSE_MS = 250
PERPLEXITY_PAUSE_MS = 250

# Limits on checks.
BOX_CHECKS = 14
CLAUDE_SEND_CHECKS, CLAUDE_SEND_SIGHTINGS = 20, 2
CLAUDE_TRIES = 10
CLAUDE_RETRY_CHECKS = 20
CHATGPT_VALUE_CHECKS = 7
GEMINI_VALUE_CHECKS = 8
PERPLEXITY_VALUE_CHECKS = 8
CHATGPT_SEND_CHECKS = 10
PERPLEXITY_SEND_CHECKS = 12
CHATGPT_POLLS = 10
GEMINI_POLLS = 8
PERPLEXITY_PASSES = 24
POST_SEND_CHECKS = 8
SIGHTINGS = 3

# The first moment at which three checks in a row can have held.
EARLIEST_STABLE = 3

# When things happen in the shortest run with a first-use wait; what a page's rules aim at.
BOX_READY_MS = BEFORE_FOREGROUND_READ_MS + FIRST_USE_MS + 2 * BOX_PAUSE_MS
SELECT_ALL_MS = BOX_READY_MS + BEFORE_SELECT_ALL_MS
PASTE_MS = SELECT_ALL_MS + BEFORE_PASTE_MS

# Messages of the reply.
DELIVERED = "Prompt pasted and submitted"
UNVERIFIED = "Prompt pasted, but submit could not be verified"
WRONG_WINDOW = "Wrong AI is in the foreground; send blocked"
NOT_SELECTED = "Could not select existing draft text"
NOT_PASTED = "Paste failed"
EXPERIMENTAL_STOPPED = "Experimental: stopped or delivery unverified; inspect trace and page before retry"

# Texts of the composer's checks.
HANDLE_MATCHES = "PASS: foreground HWND matches activated AI window"
HANDLE_DIFFERS = "FAIL: foreground HWND does not match activated AI window"
NO_CANDIDATE = "No visible keyboard-focusable prompt box found"
NOT_LOWER_PAGE = "Focused control is not a verified lower-page AI prompt box"
ADDRESS_FIELD = "Browser search/address field detected; message was not sent"
SET_FOCUS_FAILED = "Prompt box found, but SetFocus failed"
FOCUS_UNKNOWN = "Prompt focus could not be verified"
NO_WINDOW = "No foreground browser window"
NO_AUTOMATION = "UI Automation unavailable"
NO_ROOT = "Could not inspect foreground window"
NO_CONDITION = "Could not create prompt-search condition"
NO_SEARCH = "No editable controls exposed by browser"
PROXY_FOCUS = "Verified lower-page ChatGPT composer focused through UIA proxy"
WRONG_HOST = "Perplexity URL not verified; nothing pasted"
SIGN_IN = "Perplexity sign-in panel visible; nothing pasted. Make page ready manually, then retry."
PERPLEXITY_FOCUS_ELSEWHERE = ("Perplexity composer focus not verified; focused control is not the named composer or "
                              "its contained proxy; nothing pasted")
NOT_EXPOSED = "Prompt text value is not exposed"
STILL_TEXT = "Prompt still contains text"
VALUE_UNSTABLE = "UNSTABLE: pasted prompt was not stable across three checks"
VALUE_NEVER_SEEN = "INFO: prompt value is not exposed; conservative timing used"
NOT_RESPONDING = "No visible AI responding control found"


def box_verified(name):
    return f"Verified lower-page AI prompt box focused for {name}"


def perplexity_verified(role=50004, named=1, focusable="true", focus="exact element"):
    return (f"Verified Perplexity composer; role={role}; namedCandidates={named}; "
            f"browserFocusable={focusable}; focus={focus}")


def no_perplexity_composer(scanned, named=0, visible=0, non_focusable=0, wrong_type=0):
    return (f"No verified Perplexity composer; scannedControls={scanned}; named={named}; visible={visible}; "
            f"nonFocusableNamed={non_focusable}; wrongType={wrong_type}")


def value_stable(attempt=EARLIEST_STABLE):
    return f"PASS: pasted prompt remained available across three checks; attempt={attempt}"


def send_stable(name, sightings, attempt):
    return f"PASS: stable enabled Send button confirmed {sightings} times; attempt={attempt}; name={name}"


def send_unstable(checks):
    return f"FAIL: enabled Send button did not become stable within {checks} checks"


def send_invoked(send_name, provider_name):
    return f"PASS: invoked exact send button {send_name} for {provider_name}"


def send_not_invoked(buttons, exact_named=0, visible_enabled=0, refused=0):
    return (f"No invokable Send button; buttons={buttons}; exactNamed={exact_named}; "
            f"visibleEnabled={visible_enabled}; invokable={refused}")


def responding(stop_name):
    return f"PASS: AI responding control is visible: {stop_name}"
