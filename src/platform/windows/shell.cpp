#include "platform/shell.h"

#include "platform/windows/windows_api.h"

#include <shellapi.h>
#include <shlwapi.h>

#include "platform/windows/wide_text.h"

namespace qublet {
namespace {

std::wstring SystemFolder() {
  std::wstring folder(MAX_PATH, L'\0');
  folder.resize(GetSystemDirectoryW(folder.data(), MAX_PATH));
  return folder;
}

class WindowsShell : public Shell {
 public:
  explicit WindowsShell(const FileSystem& files) : files_(files) {}

  bool Open(const std::string& path) override { return Execute(L"open", path); }

  bool CanStart(const std::string& program) const override {
    return Guarded([&] {
      const std::wstring native = WideText(files_.ToNative(program));
      DWORD kind = 0;
      // Another ending, or none, has the user asked what to do with the file.
      const bool named =
          CompareStringOrdinal(PathFindExtensionW(native.c_str()), -1, L".exe", -1, TRUE) == CSTR_EQUAL;
      if (!named || GetBinaryTypeW(native.c_str(), &kind) == 0) throw Failure("no program");
    });
  }

  // The one argument reaches a program whole only in quotes; a path holds none.
  void Start(const std::string& program, const std::string& argument) override {
    ResumeNext([&] {
      const std::wstring native = WideText(files_.ToNative(program));
      const bool quoted = argument.find(' ') != argument.npos;
      const std::wstring word = WideText(quoted ? '"' + argument + '"' : argument);
      ShellExecuteW(nullptr, L"open", native.c_str(), word.c_str(), nullptr, SW_SHOWNORMAL);
    });
  }

  void OpenAddress(const std::string& address) override {
    if (IsWebAddress(address))
      ShellExecuteW(nullptr, L"open", WideText(address).c_str(), nullptr, nullptr, SW_SHOWNORMAL);
  }
  void Explore(const std::string& folder) override { Execute(L"explore", folder); }
  void Find(const std::string& folder) override { Execute(L"find", folder); }

  void ShowFileProperties(const std::string& path) override {
    ResumeNext([&] {
      const std::wstring native = WideText(files_.ToNative(path));
      SHELLEXECUTEINFOW call{};
      call.cbSize = sizeof call;
      call.fMask = SEE_MASK_INVOKEIDLIST | SEE_MASK_FLAG_NO_UI;
      call.lpVerb = L"properties";
      call.lpFile = native.c_str();
      ShellExecuteExW(&call);
    });
  }

  // The old program's name is still served by some systems, the new one by all since then.
  bool OpenVolumeControl() override { return StartOfSystem(L"sndvol32.exe") || StartOfSystem(L"sndvol.exe"); }

  std::string HandOverFolder() override { return ""; }

 private:
  // Above 32 is success (ShellExecute's own rule).
  static bool Execute(const wchar_t* verb, const wchar_t* native) {
    const HINSTANCE result = ShellExecuteW(nullptr, verb, native, nullptr, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(result) > 32;
  }
  // A bare name would be looked for in the current folder too.
  static bool StartOfSystem(const wchar_t* program) {
    return Execute(L"open", (SystemFolder() + L'\\' + program).c_str());
  }
  bool Execute(const wchar_t* verb, const std::string& path) const {
    bool done = false;
    ResumeNext([&] { done = Execute(verb, WideText(files_.ToNative(path)).c_str()); });
    return done;
  }

  const FileSystem& files_;
};

}  // namespace

std::unique_ptr<Shell> OpenShell(const FileSystem& files, StartupIds /*startup_ids*/) {
  return std::make_unique<WindowsShell>(files);
}

}  // namespace qublet
