// Windows' handles by name only, for headers that pass them on without looking inside. The declarations are the same as
// those of <windows.h>.
#pragma once

struct HDC__;
struct HWND__;
struct HINSTANCE__;
struct HICON__;
using HDC = HDC__*;
using HWND = HWND__*;
using HINSTANCE = HINSTANCE__*;
using HICON = HICON__*;
