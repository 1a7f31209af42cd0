#include "platform/linux/small_files.h"

#include "platform/linux/replacement.h"

namespace qublet {
namespace {

void Write(Replacement&& replacement, const std::string& content) {
  replacement.Write({reinterpret_cast<const std::uint8_t*>(content.data()), content.size()});
  replacement.Commit();
}

}  // namespace

std::string ContentOf(InputFile& file, std::int64_t most) {
  if (file.Size() > most) throw Failure("too large", std::to_string(file.Size()) + " bytes");
  std::string content(static_cast<std::size_t>(file.Size()), '\0');
  content.resize(file.ReadAt(0, {reinterpret_cast<std::uint8_t*>(content.data()), content.size()}));
  return content;
}

void WriteWholeFile(const std::string& native, const std::string& content) {
  Write(Replacement(native), content);
}

void WriteWholeOwnFile(const std::string& native, const std::string& content) {
  Write(Replacement(native, Replacement::Role::kOwnFile), content);
}

}  // namespace qublet
