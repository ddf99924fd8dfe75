"""What the two worlds can't agree on, each with its reason. Nothing else is left out of a comparison."""
import re

# Paths in a report, as regular expressions for the whole path.
LEFT_OUT = [
    (r"virtualMs|realMs", "the one is the simulation's clock, the other the real world's"),
    (r"platformCalls|painted|attributes|posted|shell", "only the simulation sees the host's calls"),
    (r"live", "the stand-ins count their own objects alone; all must be 0"),
    (r"replies\.\d+\.(startMs|endMs)", "compared as the time that a call took"),
    (r"replies\.\d+\.stepMs", "only the simulation sees when a trace step was written"),
    (r"replies\.\d+\.replyHex", "holds handles and times; compared where the values are equal to the letter"),
    (r"toInterface\.\d+\.ms|input\.\d+\.ms", "the real clock"),
    (r"input\.\d+\.batch", "which SendInput call a key came from isn't seen by the one who gets it"),
    (r"desktop\.clipboard\.sequence", "the platform raises it as it likes"),
]

# Items of a list that are left out of it on both sides.
NOT_LISTED = [
    ("desktop.zOrder", lambda window: window == "backdrop",
     "Wine raises a window that is shown behind another as soon as the display exposes it"),
    ("input", lambda key: key["window"] in (None, "main", "backdrop"),
     "of the host's own windows no page takes the keys and tells of them"),
]

# Steps of a trace whose values are read from a clock: the times in them are compared as times.
OF_THE_CLOCK = re.compile(r"^Timing |^Experimental ")

# Steps of a trace whose values count what belongs to the platform alone.
OF_THE_PLATFORM = {
    "Top-level windows": "the platform has windows of its own",
}

_ERROR_ONLY = "Wine fails too, with another error"
_FRAME = "a sizable frame without a caption is 7 pixels wide in Wine, not 8"

# Tests of the contract that Wine or this machine can't show.
CONTRACT_SKIPPED = {
    "Activation.ShowingWithoutActivation_RestoresAnIconicWindow": "restoring a window activates it in Wine",
    "ClipboardReading.LastUnlock_GivesFalseWithoutAnError": "Wine keeps a block of the clipboard locked",
    "Conversion.IllFormedUtf8_BecomesOneReplacementForEachLongestPiece": "Wine cuts ill-formed bytes elsewhere",
    "DeviceContexts.Drawing_Fails_WithoutAContext": "Wine's FillRect succeeds",
    "Frames.NewStyle_ShowsOnlyWhenTheFrameIsRecomputed": _FRAME,
    "Frames.NewStyle_ShowsWithAnotherSize": _FRAME,
    "Frames.SizableWithoutACaption_HasFourEqualSides": _FRAME,
    "Input.Attachment_Fails_WithTheOwnThread": _ERROR_ONLY,
    "Monitors.Info_NeedsItsSizeAndAMonitor": _ERROR_ONLY,
    "Process.OwnImage_IsCutToTheBuffer": "Wine closes a path that was cut without a zero",
    "WinEventHook.Callback_ComesToo_WhenTheProgramItselfMovesTheForeground":
        "Wine announces no foreground by itself; the other program does so later",
    "WinEventHook.Callback_NamesTheOtherProgramsWindow_InTheLoop": "Wine calls back while the program waits, too",
    "WinEventHook.WaitingCallback_IsDropped_WhenItsHookGoes": "Wine calls back while the program waits, too",
    "WindowNames.DeadWindow_HasNone": _ERROR_ONLY,
    "Windows.Creation_Fails_WithoutTheClass": _ERROR_ONLY,
}
