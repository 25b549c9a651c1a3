// The Windows headers, included in the same order and with the same options throughout the project.
#pragma once

#include <windows.h>

#include <windowsx.h>

#include <commctrl.h>
#include <commdlg.h>
#include <richedit.h>
