#include "platform/program.h"

#include "platform/windows/windows_api.h"

#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <utility>

#include "platform/drive_form.h"
#include "platform/terminal_buffer.h"
#include "platform/windows/command_words.h"
#include "platform/windows/user_folders.h"
#include "platform/windows/wide_text.h"

namespace qublet {
namespace {

constexpr DWORD kMostPathUnits = 32768;

}  // namespace

// The consumer line ended with Windows Me.
int GetPlatformId() {
  return 3;
}

// What main() has is in the code page, which can't say every path.
std::vector<std::string> CommandLineArguments(int /*count*/, char** /*arguments*/) {
  return CommandWords(GetCommandLineW());
}

std::optional<std::string> TypedCommandLine() {
  return NarrowText(BehindProgram(GetCommandLineW()));
}

namespace {

// Shows a text whatever code page the console has.
bool ShowOnConsole(HANDLE console, const std::string& text) {
  const std::wstring wide = WideText(text);
  DWORD shown = 0;
  return WriteConsoleW(console, wide.data(), static_cast<DWORD>(wide.size()), &shown, nullptr) != 0;
}

}  // namespace

Utf8Console::Utf8Console() {
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  for (const auto& [stream, number] :
       {std::pair{&std::cout, STD_OUTPUT_HANDLE}, std::pair{&std::cerr, STD_ERROR_HANDLE}}) {
    const HANDLE handle = GetStdHandle(number);
    DWORD mode = 0;
    if (!GetConsoleMode(handle, &mode)) continue;
    streams_.push_back(std::make_unique<TerminalStream>(
        *stream, [handle](const std::string& text) { return ShowOnConsole(handle, text); }));
  }
}

Utf8Console::~Utf8Console() = default;

std::string WithCaseOfDisk(const FileSystem& files, const std::string& path) {
  if (!HasDrive(path)) return path;
  std::string real = path;
  for (std::size_t begin = 3; begin < real.size();) {
    const std::size_t end = std::min(real.find('\\', begin), real.size());
    std::string native;
    WIN32_FIND_DATAW found{};
    ResumeNext([&] { native = files.ToNative(real.substr(0, end)); });
    const bool plain = native.find_first_of("*?") == native.npos;
    const HANDLE search = plain ? FindFirstFileW(WideText(native).c_str(), &found) : INVALID_HANDLE_VALUE;
    if (search == INVALID_HANDLE_VALUE) break;
    FindClose(search);
    const std::string name = NarrowText(found.cFileName);
    // A short name ("MUSIC~1") stays what was typed.
    const std::wstring typed = WideText(real.substr(begin, end - begin));
    const bool same = CompareStringOrdinal(typed.c_str(), -1, found.cFileName, -1, TRUE) == CSTR_EQUAL;
    if (same && name.size() == end - begin) real.replace(begin, name.size(), name);
    begin = end + 1;
  }
  return real;
}

std::string ExecutablePath(const FileSystem& files) {
  std::wstring place(kMostPathUnits, L'\0');
  const DWORD length = GetModuleFileNameW(nullptr, place.data(), kMostPathUnits);
  if (length == 0 || length >= kMostPathUnits) throw Failure("the executable can't be found");
  return files.FromNative(NarrowText({place.data(), length}));
}

std::string WindowProgram(const FileSystem& files) {
  const std::string running = ExecutablePath(files);
  return running.substr(0, running.rfind('\\')) + "\\QUBLET20.exe";
}

std::string InstalledDataFolder(const std::string& /*beside*/) {
  return "";
}

std::string OwnFolderOfUser(const FileSystem& files) {
  const std::string folder = LocalDataFolder() + "\\Velmora";
  CreateDirectoryW(WideText(folder).c_str(), nullptr);
  const std::string text = files.FromNative(folder);
  if (!files.IdentityOf(text)) throw Failure("the folder can't be made", folder);
  return text;
}

}  // namespace qublet
