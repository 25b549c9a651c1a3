// Windows' headers, in the one order and with the one set of switches that the project uses.
#pragma once

#include <windows.h>

#include <windowsx.h>

#include <commctrl.h>
#include <commdlg.h>
#include <richedit.h>
