#include "platform/power.h"

#include "platform/windows/handle.h"
#include "platform/windows/windows_api.h"

namespace qublet {
namespace {

class WindowsPower : public Power {
 public:
  void EnableShutdownPrivilege() override {
    HANDLE opened = nullptr;
    OpenProcessToken(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY, &opened);
    const Handle token(opened);
    TOKEN_PRIVILEGES wanted{};
    LookupPrivilegeValueW(L"", L"SeShutdownPrivilege", &wanted.Privileges[0].Luid);
    wanted.PrivilegeCount = 1;
    wanted.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
    TOKEN_PRIVILEGES before{};
    DWORD length = 0;
    AdjustTokenPrivileges(token.Get(), FALSE, &wanted, sizeof before, &before, &length);
  }

  void ForceShutdown() override {
    EnableShutdownPrivilege();
    constexpr auto kNoReason = static_cast<DWORD>(-1);
    ExitWindowsEx(EWX_POWEROFF, kNoReason);
  }
};

}  // namespace

std::unique_ptr<Power> OpenPower() {
  return std::make_unique<WindowsPower>();
}

}  // namespace qublet
