// player_stand_in LOG [PLAYLIST]: a window that answers as the player does, and writes what it is told into LOG, a
// line each: "ready", "given z:\tmp.m3u", "stop", "jump 65000". It plays, is at 12,345 ms, and ends after "stop".
#include <windows.h>

#include <fstream>

namespace {

std::ofstream* told = nullptr;
LRESULT position = 12345;

LRESULT CALLBACK Answer(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (message == WM_COMMAND && first == 40047) {
    *told << "stop" << std::endl;
    PostQuitMessage(0);
    return 0;
  }
  if (message != WM_USER) return DefWindowProcW(window, message, first, second);
  if (second == 106) {
    *told << "jump " << first << std::endl;
    position = static_cast<LRESULT>(first);
  }
  return second == 104 ? 1 : second == 105 ? position : 0;
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 2 || count > 3) return 2;
  std::ofstream log(arguments[1]);
  told = &log;
  WNDCLASSW kind{};
  kind.lpfnWndProc = &Answer;
  kind.hInstance = GetModuleHandleW(nullptr);
  kind.lpszClassName = L"Winamp v1.x";
  RegisterClassW(&kind);
  if (CreateWindowW(kind.lpszClassName, L"1. Song - Winamp", 0, 0, 0, 10, 10, nullptr, nullptr, kind.hInstance,
                    nullptr) == nullptr) {
    return 1;
  }
  log << "ready" << std::endl;
  if (count == 3) log << "given " << arguments[2] << std::endl;
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  return 0;
}
