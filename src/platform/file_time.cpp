#include "platform/file_time.h"

#include <system_error>

namespace qublet {

std::optional<std::filesystem::file_time_type> LastWrite(const FileSystem& files, const std::string& path) {
  std::string native;
  ResumeNext([&] { native = files.ToNative(path); });
  std::error_code error;
  const auto time = std::filesystem::last_write_time(std::u8string(native.begin(), native.end()), error);
  return error ? std::nullopt : std::optional(time);
}

}  // namespace qublet
