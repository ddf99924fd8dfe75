"""What Wine can't show of the host, each with its reason."""

LEFT_OUT = {
    "icons as WM_GETICON tells them": "Wine passes no icon between processes; the display's own copy of them is read",
    "the backdrop's place in the z-order": "Wine raises a window that is shown behind another",
    "the frame of the compact form": "Wine's is a pixel narrower; style, title and bounds are looked at",
    "the reply of raising another instance": "it asks for the foreground at once, and Wine moves it a moment later",
    "the menu's typeface": "Wine has another in its place; colours and heights of entries are looked at",
    "the header of an older bitmap": "Wine makes the newer form of it, with a header of its own",
    "the error stream of a console": "Wine attaches no console to a program without one",
}
