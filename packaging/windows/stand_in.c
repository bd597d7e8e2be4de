/* Stands in for the game while the package is checked: a window with the game's title. */
#include <windows.h>

static LRESULT CALLBACK Handle(HWND window, UINT message, WPARAM wide, LPARAM large) {
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcW(window, message, wide, large);
}

int WINAPI WinMain(HINSTANCE program, HINSTANCE previous, LPSTR arguments, int show) {
  const WNDCLASSW description = {.lpfnWndProc = Handle,
                                 .hInstance = program,
                                 .hbrBackground = (HBRUSH)(COLOR_WINDOW + 1),
                                 .lpszClassName = L"StandIn"};
  MSG message;
  HWND window;
  (void)previous;
  (void)arguments;
  (void)show;
  RegisterClassW(&description);
  window = CreateWindowW(L"StandIn", L"Soldat", WS_OVERLAPPEDWINDOW, 50, 50, 300, 200, NULL, NULL,
                         program, NULL);
  ShowWindow(window, SW_SHOW); /* as the game does, which is started with the wish to hide */
  while (GetMessageW(&message, NULL, 0, 0) > 0) DispatchMessageW(&message);
  return 0;
}
