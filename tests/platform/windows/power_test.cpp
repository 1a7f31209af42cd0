#include "platform/power.h"

#include <gtest/gtest.h>

#include "platform/windows/handle.h"
#include "platform/windows/windows_api.h"

namespace qublet {
namespace {

bool MaySwitchOff() {
  HANDLE opened = nullptr;
  OpenProcessToken(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY, &opened);
  const Handle token(opened);
  PRIVILEGE_SET asked{};
  LookupPrivilegeValueW(nullptr, L"SeShutdownPrivilege", &asked.Privilege[0].Luid);
  asked.PrivilegeCount = 1;
  BOOL has = FALSE;
  return PrivilegeCheck(token.Get(), &asked, &has) != 0 && has != FALSE;
}

// What switches off is never called here.
TEST(WindowsPower, TakesThePrivilegeThatSwitchingOffNeeds) {
  EXPECT_FALSE(MaySwitchOff());
  OpenPower()->EnableShutdownPrivilege();
  EXPECT_TRUE(MaySwitchOff());
}

}  // namespace
}  // namespace qublet
