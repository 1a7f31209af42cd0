#include "platform/held_file.h"

#include <utility>

#include "platform/windows/handle.h"
#include "platform/windows/wide_text.h"

namespace qublet {
namespace {

class UnsharedFile : public HeldFile {
 public:
  explicit UnsharedFile(Handle file) : file_(std::move(file)) {}

 private:
  Handle file_;
};

}  // namespace

std::unique_ptr<HeldFile> HoldFile(const FileSystem& files, const std::string& path) {
  const std::string native = files.ToNative(path);
  // The system deletes it with its handle, also that of a killed process.
  Handle file(CreateFileW(WideText(native).c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, 0, nullptr, OPEN_ALWAYS,
                          FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
  if (file.IsOpen()) return std::make_unique<UnsharedFile>(std::move(file));
  if (GetLastError() == ERROR_SHARING_VIOLATION) return nullptr;
  FailWithLastError("hold", native);
}

}  // namespace qublet
