"""The host's start: the command line, the place and look of the window, and what its exit code tells."""
from .core import NOTHING_HELD, call, fault, user

TITLE = "Orvane: The Desk for Every Assistant"
CONTENT_PAGE = "--orvane-content-page="
TOOL_BOX = "--orvane-open-toolbox"

NORMAL = [10, 10, 1290, 730]
OFFSCREEN = [-32000, -32000, -30720, -31280]

DARK_MODE = {"window": "main", "attribute": 20, "value": 1}
CAPTION = {"window": "main", "attribute": 35, "value": 0x00425C12}
CAPTION_TEXT = {"window": "main", "attribute": 36, "value": 0x00FFFFFF}
COLOURS = [CAPTION, CAPTION_TEXT]

NO_VIEW = "Failed to create view controller."

# Answered by the running host, and by nobody else.
PROBE = call("openExternalUrl")
PROBED = [{"as": "0", "method": "openExternalUrl", "kind": "success", "value": {"success": False}}]


def monitor(bounds, dpi):
    left, top, right, bottom = bounds
    return {"bounds": bounds, "work": [left, top, right, bottom - 40], "dpi": dpi}


def start(file, name, bounds=None, arguments=None, passed_on=None, attributes=None, calls=None, size=None, steps=None,
          replies=None, **desktop):
    """A start that succeeds; `passed_on` are the arguments that reach the interface."""
    made = {"name": name}
    if arguments is not None:
        made["arguments"] = arguments
    if desktop:
        made["desktop"] = desktop
    made["steps"] = [PROBE] if steps is None else steps
    engine = {
        "assetsPath": "data\\flutter_assets", "icuDataPath": "data\\icudtl.dat", "aotLibraryPath": "data\\app.so",
        "entryPointArguments": (arguments or []) if passed_on is None else passed_on,
        "plugins": ["DesktopDropPlugin", "UrlLauncherWindows", "WebviewWindowsPlugin"]}
    if size is not None:
        engine["size"] = size
    expect = {"exitCode": 0, "replies": PROBED if replies is None else replies, "toInterface": [], "input": [],
              "shell": [], "attributes": COLOURS if attributes is None else attributes, "engine": engine}
    if bounds is not None:
        expect["desktop"] = {"windows": {"main": {"title": TITLE, "bounds": bounds, "visible": True,
                                                  "minimized": False, "topmost": False}}}
    expect["stderr"] = []
    expect["platformCalls"] = {"CreateWindowExW": 1, "CoInitializeEx": 1, "CoUninitialize": 1, **(calls or {})}
    expect["live"] = NOTHING_HELD
    made["expect"] = expect
    return f"start/{file}.json", made


def failed_start(file, name, faults, calls, arguments=None, stderr=()):
    """Nothing is pumped and nothing answered."""
    made = {"name": name}
    if arguments is not None:
        made["arguments"] = arguments
    made["desktop"] = {"faults": faults}
    made["steps"] = [PROBE]
    made["expect"] = {
        "exitCode": 1, "replies": [], "toInterface": [], "shell": [], "desktop": {"windows": {}, "zOrder": []},
        "stderr": list(stderr),
        "platformCalls": {"GetMessageW": 0, "CoInitializeEx": 1, "CoUninitialize": 0, "PostQuitMessage": 0,
                          "FlutterDesktopMessengerSetCallback": 0, "ShowWindow": 0, "MessageBoxW": 0, **calls},
        "live": NOTHING_HELD}
    return f"start/{file}.json", made


def arguments_and_flags():
    everything = ["--verbose", f"{CONTENT_PAGE}/chat?id=7", "two words", "", "say \"hi\"", "C:\\folder\\", "豆包 é 😀",
                  TOOL_BOX, "--verbose"]
    yield start("arguments-reach-the-interface-in-order", "all arguments reach the interface in order, flags included",
                OFFSCREEN, everything)
    yield start("no-arguments", "the program's path never reaches the interface", NORMAL, passed_on=[],
                size=[1264, 681])
    yield start("content-page-flag-with-a-value", "a content page starts off screen", OFFSCREEN, [f"{CONTENT_PAGE}7"])
    yield start("content-page-flag-without-a-value", "the content-page flag needs no value", OFFSCREEN, [CONTENT_PAGE])
    yield start("content-page-flag-without-its-equals-sign", "the content-page flag ends with its equals sign", NORMAL,
                [CONTENT_PAGE.rstrip("=")])
    yield start("content-page-flag-inside-an-argument", "a flag stands at an argument's beginning", NORMAL,
                [f"x{CONTENT_PAGE}7", f"x {TOOL_BOX}"])
    yield start("tool-box-flag", "the tool box flag starts off screen", OFFSCREEN, [TOOL_BOX])
    yield start("tool-box-flag-with-a-value", "the tool box flag has to match whole", NORMAL, [f"{TOOL_BOX}=1"])
    yield start("both-flags", "both flags are as one", OFFSCREEN, [TOOL_BOX, f"{CONTENT_PAGE}7"])
    yield start("flags-in-another-case", "flags are compared with their case", NORMAL,
                ["--Orvane-Content-Page=7", "--orvane-open-ToolBox"])
    yield start("command-line-that-cant-be-split", "no arguments and no flags when the command line can't be split",
                NORMAL, [TOOL_BOX, "x"], passed_on=[], calls={"CommandLineToArgvW": 1, "LocalFree": 0},
                faults=[fault("CommandLineToArgvW", None)])


def places():
    full_hd = [0, 0, 1920, 1080]
    yield start("scale-125-percent", "origin and size are scaled to 125 percent", [12, 12, 1612, 912],
                size=[1580, 851], monitors=[monitor(full_hd, 120)])
    yield start("scale-150-percent", "origin and size are scaled to 150 percent", [15, 15, 1935, 1095],
                monitors=[monitor([0, 0, 3840, 2160], 144)])
    yield start("off-screen-at-150-percent", "the off-screen origin is scaled too", [-48000, -48000, -46080, -46920],
                [TOOL_BOX], monitors=[monitor([0, 0, 3840, 2160], 144)])
    beside = [monitor(full_hd, 96), monitor([-2560, 0, 0, 1440], 144)]
    yield start("off-screen-beside-two-monitors", "the nearest monitor of the off-screen origin gives the scale",
                [-48000, -48000, -46080, -46920], [TOOL_BOX], monitors=beside)
    yield start("normal-start-beside-two-monitors", "the monitor of the normal origin gives the scale", NORMAL,
                monitors=beside)


def looks():
    yield start("light-theme", "light mode gets the dark attribute too", attributes=[DARK_MODE, *COLOURS],
                lightTheme=True)
    yield start("dark-theme", "dark mode gets the dark attribute", attributes=[DARK_MODE, *COLOURS], lightTheme=False)
    yield start("theme-absent", "the dark attribute is left alone where the theme can't be read", attributes=COLOURS)
    yield start("theme-unreadable", "the dark attribute is left alone where reading the theme fails",
                attributes=COLOURS, lightTheme=True, faults=[fault("RegGetValueW", 5)])
    yield start("attributes-refused", "a caption that can't be coloured stops nothing", NORMAL, attributes=[],
                lightTheme=True, faults=[fault("DwmSetWindowAttribute", "0x80070057", times=3)])
    yield start("icons-missing", "icons that can't be loaded are left out", NORMAL,
                calls={"LoadImageW": 2}, faults=[fault("LoadImageW", None, times=2), fault("LoadIconW", None)])


def console_and_apartment():
    yield start("no-console", "the process runs without a console", NORMAL,
                calls={"AttachConsole": 1, "IsDebuggerPresent": 1, "AllocConsole": 0,
                       "FlutterDesktopResyncOutputStreams": 0})
    yield start("parents-console", "the parent's console is taken when there is one", NORMAL,
                calls={"AttachConsole": 1, "AllocConsole": 0, "freopen_s": 0}, faults=[fault("AttachConsole", 1)])
    debugged = fault("IsDebuggerPresent", 1)
    yield start("console-for-a-debugger", "a debugged process without a console gets its own", NORMAL,
                calls={"AllocConsole": 1, "freopen_s": 2, "_dup2": 0, "FlutterDesktopResyncOutputStreams": 1},
                faults=[debugged])
    yield start("no-console-for-a-debugger", "nothing more happens when no console can be made", NORMAL,
                calls={"AllocConsole": 1, "freopen_s": 0, "FlutterDesktopResyncOutputStreams": 0},
                faults=[debugged, fault("AllocConsole", False)])
    yield start("console-streams-that-cant-be-reopened", "stdout is duplicated where a stream can't be reopened",
                NORMAL, calls={"freopen_s": 2, "_fileno": 2, "_dup2": 2, "FlutterDesktopResyncOutputStreams": 1},
                faults=[debugged, fault("freopen_s", 2, times=2)])
    yield start("apartment-refused", "the start goes on when the apartment can't be entered", NORMAL,
                calls={"GetMessageW": 3}, faults=[fault("CoInitializeEx", "0x80010106")])


def endings():
    yield start("closed-by-a-person", "closing the window ends the process with 0", calls={"PostQuitMessage": 1},
                steps=[PROBE, user(close="main")])
    # The window is still there when the loop ends.
    yield start("quit-message-with-a-value", "the quit message's own value is not used",
                calls={"GetMessageW": 2, "UnhookWinEvent": 1, "UnregisterClassW": 2},
                steps=[PROBE, {"post": {"window": "main", "message": 0x12, "wParam": 5}}])
    no_window = {"CreateWindowExW": 1, "DwmSetWindowAttribute": 0, "FlutterDesktopEngineCreate": 0}
    yield failed_start("no-window", "the exit code is 1 when no window can be made",
                       [fault("CreateWindowExW", None)], no_window)
    yield failed_start("no-window-off-screen", "the exit code is 1 off screen too", [fault("CreateWindowExW", None)],
                       no_window, [TOOL_BOX])
    yield failed_start("no-view", "the exit code is 1 when there is no view",
                       [fault("FlutterDesktopViewControllerCreate", None)],
                       {"FlutterDesktopEngineCreate": 1, "FlutterDesktopViewControllerCreate": 1,
                        "FlutterDesktopEngineGetPluginRegistrar": 0}, stderr=[NO_VIEW])
    yield failed_start("no-engine", "the exit code is 1 when there is no engine",
                       [fault("FlutterDesktopEngineCreate", None)],
                       {"FlutterDesktopEngineCreate": 1, "FlutterDesktopEngineGetPluginRegistrar": 0},
                       stderr=[NO_VIEW])


def scenarios():
    yield from arguments_and_flags()
    yield from places()
    yield from looks()
    yield from console_and_apartment()
    yield from endings()
