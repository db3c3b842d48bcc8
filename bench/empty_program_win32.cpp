// The least that a GUI program can do: it has a message queue, so it brings the window library with it, and ends.
#include <windows.h>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    PostQuitMessage(0);
    return 0;
}
