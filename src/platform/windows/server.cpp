#include "platform/server.h"

#include "platform/windows/handle.h"
#include "platform/windows/wide_text.h"

namespace qublet {
namespace {

constexpr DWORD kMostPathUnits = 32768;

}  // namespace

// What a drive or a link leads to is a share, or a disk of this computer.
std::string ServerOf(const FileSystem& files, const std::string& folder) {
  std::string server = ServerIn(folder);
  if (!server.empty()) return server;
  ResumeNext([&] {
    const Handle open = OpenExisting(WideText(files.ToNative(folder)), FILE_READ_ATTRIBUTES);
    std::wstring place(kMostPathUnits, L'\0');
    const DWORD length =
        open.IsOpen() ? GetFinalPathNameByHandleW(open.Get(), place.data(), kMostPathUnits, VOLUME_NAME_DOS) : 0;
    if (length < kMostPathUnits) server = ServerIn(NarrowText({place.data(), length}));
  });
  return server;
}

}  // namespace qublet
