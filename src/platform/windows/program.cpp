#include "platform/program.h"

#include "platform/windows/windows_api.h"

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <cstdio>

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
  int count = 0;
  wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(NarrowText(words[i]));
  LocalFree(words);
  return arguments;
}

Utf8Console::Utf8Console() {
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  page_before_ = GetConsoleOutputCP();
  if (page_before_ != 0) SetConsoleOutputCP(CP_UTF8);
}

// The console outlives us and gets its own page back.
Utf8Console::~Utf8Console() {
  std::fflush(nullptr);
  if (page_before_ != 0) SetConsoleOutputCP(page_before_);
}

std::string ExecutablePath(const FileSystem& files) {
  std::wstring place(kMostPathUnits, L'\0');
  const DWORD length = GetModuleFileNameW(nullptr, place.data(), kMostPathUnits);
  if (length == 0 || length >= kMostPathUnits) throw Failure("the executable can't be found");
  return files.FromNative(NarrowText({place.data(), length}));
}

std::string OwnFolderOfUser(const FileSystem& files) {
  const std::string folder = LocalDataFolder() + "\\Velmora";
  CreateDirectoryW(WideText(folder).c_str(), nullptr);
  const std::string text = files.FromNative(folder);
  if (!files.IdentityOf(text)) throw Failure("the folder can't be made", folder);
  return text;
}

}  // namespace qublet
