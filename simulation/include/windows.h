#pragma once

// The platform as far as the host calls it, in front of the simulated desktop.
#include <minwindef.h>
// minwindef.h first: the others build on it.
#include <guiddef.h>
#include <winbase.h>
#include <winerror.h>
#include <winreg.h>
#include <winuser.h>
#include <winuser_drawing.h>
