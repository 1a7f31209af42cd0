#pragma once

#include <string>
#include <utility>

#include "platform/windows/windows_api.h"

namespace qublet {

// A handle of the system, closed with its owner.
class Handle {
 public:
  Handle() = default;
  explicit Handle(HANDLE handle) : handle_(handle) {}
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  Handle& operator=(Handle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~Handle() { Close(); }

  bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE && handle_ != nullptr; }
  HANDLE Get() const { return handle_; }
  void Close() {
    if (IsOpen()) CloseHandle(handle_);
    handle_ = INVALID_HANDLE_VALUE;
  }

 private:
  HANDLE handle_ = INVALID_HANDLE_VALUE;
};

// Throws Failure that says what couldn't be done, to what, and the system's reason (GetLastError).
[[noreturn]] void FailWithLastError(const std::string& what, const std::string& native);

// What every one that is open may do with a file besides us: anything.
inline constexpr DWORD kSharedWithAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// Opens a file or folder that exists, links followed. Not open when that fails; GetLastError tells why.
Handle OpenExisting(const std::wstring& place, DWORD access);

}  // namespace qublet
