#include "platform/shell.h"

#include <windows.h>

#include <shellapi.h>

#include "platform/windows/registry.h"

namespace qublet {
namespace {

class WindowsShell : public Shell {
 public:
  explicit WindowsShell(const FileSystem& files) : files_(files) {}

  void Open(const std::string& path) override {
    ResumeNext([&] {
      const std::wstring native = WideText(files_.ToNative(path));
      ShellExecuteW(nullptr, L"open", native.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    });
  }

  std::string HandOverFolder() override { return ""; }

 private:
  const FileSystem& files_;
};

}  // namespace

std::unique_ptr<Shell> OpenShell(const FileSystem& files) {
  return std::make_unique<WindowsShell>(files);
}

}  // namespace qublet
