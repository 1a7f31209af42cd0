#include "platform/failure.h"

#include <cctype>

namespace qublet {
namespace {

struct Wording {
  std::errc error;
  const char* reason;
};

// In words of our own, so that they are alike on every system and in every language.
constexpr Wording kWordings[] = {
    {std::errc::no_such_file_or_directory, "no such file or folder"},
    {std::errc::not_a_directory, "no such file or folder"},
    {std::errc::permission_denied, "permission denied"},
    {std::errc::operation_not_permitted, "permission denied"},
    {std::errc::read_only_file_system, "read-only"},
    {std::errc::no_space_on_device, "no space left"},
    {std::errc::file_exists, "there is a file of this name already"},
    {std::errc::is_a_directory, "is a folder"},
    {std::errc::directory_not_empty, "the folder isn't empty"},
    {std::errc::filename_too_long, "the name is too long"},
    {std::errc::file_too_large, "too large"},
    {std::errc::invalid_argument, "refused by the system"},
    {std::errc::text_file_busy, "in use by another program"},
    {std::errc::device_or_resource_busy, "in use by another program"},
    {std::errc::too_many_files_open, "too many open files"},
    {std::errc::too_many_files_open_in_system, "too many open files"},
    {std::errc::too_many_symbolic_link_levels, "too many links"},
    {std::errc::not_enough_memory, "not enough memory"},
    {std::errc::io_error, "input/output error"},
    {std::errc::no_such_device, "the device is gone"},
};

}  // namespace

std::string ReasonOf(const std::error_code& error) {
  for (const Wording& wording : kWordings) {
    if (error == wording.error) return wording.reason;
  }
  std::string text = error.message();
  while (!text.empty() && (text.back() == '.' || std::isspace(static_cast<unsigned char>(text.back())))) {
    text.pop_back();
  }
  if (!text.empty()) text[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(text[0])));
  return text;
}

}  // namespace qublet
