#include "platform/windows/handle.h"

#include <algorithm>
#include <iterator>

#include "platform/failure.h"
#include "platform/windows/wide_text.h"

namespace qublet {
namespace {

struct KnownError {
  DWORD number;
  std::errc error;
};

constexpr KnownError kKnownErrors[] = {
    {ERROR_FILE_NOT_FOUND, std::errc::no_such_file_or_directory},
    {ERROR_PATH_NOT_FOUND, std::errc::no_such_file_or_directory},
    {ERROR_INVALID_DRIVE, std::errc::no_such_file_or_directory},
    {ERROR_BAD_NETPATH, std::errc::no_such_file_or_directory},
    {ERROR_BAD_NET_NAME, std::errc::no_such_file_or_directory},
    {ERROR_ACCESS_DENIED, std::errc::permission_denied},
    {ERROR_WRITE_PROTECT, std::errc::read_only_file_system},
    {ERROR_DISK_FULL, std::errc::no_space_on_device},
    {ERROR_HANDLE_DISK_FULL, std::errc::no_space_on_device},
    {ERROR_FILE_EXISTS, std::errc::file_exists},
    {ERROR_ALREADY_EXISTS, std::errc::file_exists},
    {ERROR_DIR_NOT_EMPTY, std::errc::directory_not_empty},
    {ERROR_FILENAME_EXCED_RANGE, std::errc::filename_too_long},
    {ERROR_INVALID_NAME, std::errc::invalid_argument},
    {ERROR_INVALID_PARAMETER, std::errc::invalid_argument},
    {ERROR_SHARING_VIOLATION, std::errc::device_or_resource_busy},
    {ERROR_LOCK_VIOLATION, std::errc::device_or_resource_busy},
    {ERROR_USER_MAPPED_FILE, std::errc::device_or_resource_busy},
    {ERROR_TOO_MANY_OPEN_FILES, std::errc::too_many_files_open},
    {ERROR_NOT_ENOUGH_MEMORY, std::errc::not_enough_memory},
    {ERROR_OUTOFMEMORY, std::errc::not_enough_memory},
    {ERROR_CRC, std::errc::io_error},
    {ERROR_IO_DEVICE, std::errc::io_error},
};

std::string TextOfSystem(DWORD error) {
  wchar_t text[512];
  DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0, text,
                                static_cast<DWORD>(std::size(text)), nullptr);
  while (length > 0 && (text[length - 1] <= L' ' || text[length - 1] == L'.')) --length;
  return length > 0 ? NarrowText({text, length}) : "error " + std::to_string(error);
}

}  // namespace

void FailWithLastError(const std::string& what, const std::string& native) {
  const DWORD number = GetLastError();
  const auto* known = std::ranges::find(kKnownErrors, number, &KnownError::number);
  const bool is_known = known != std::end(kKnownErrors);
  throw Failure(is_known ? ReasonOf(std::make_error_code(known->error)) : TextOfSystem(number),
                "can't " + what + " \"" + native + "\"");
}

Handle OpenExisting(const std::wstring& place, DWORD access) {
  // The flag is what opens a folder; it changes nothing for a file.
  return Handle(CreateFileW(place.c_str(), access, kSharedWithAll, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS,
                            nullptr));
}

}  // namespace qublet
