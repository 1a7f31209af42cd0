#include "platform/file_address.h"

#include "fuzz/fuzz_input.h"
#include "platform/code_page.h"
#include "platform/drive_form.h"
#include "playlist/paths/text_files.h"
#include "playlist/playlist_lines.h"

using namespace qublet;

namespace {

// An address as any other program may write it.
void Take(const FileSystem& files, std::string_view address) {
  const std::string decoded = PercentDecoded(address);
  Require(decoded.size() <= address.size());
  Require(PercentDecoded(PercentEncoded(address, "/:")) == address);
  const auto file = FileOfAddress(address);
  if (!file) return;
  Require(file->path.starts_with('/') && file->host.find('/') == file->host.npos);
  Require(file->path.size() + file->host.size() <= address.size());
  ResumeNext([&] {
    const auto path = PathOfAddress(files, address, LanguageCodePage());
    Require(path && (HasDrive(*path) || path->starts_with("\\\\")));
  });
}

}  // namespace

// The input is a list of addresses, as it is dragged, and a path. A path comes back from its address.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::unique_ptr<FileSystem> files = OpenFileSystem();
  const std::string_view text = TextOf(data, size);
  for (std::string_view rest = text; !rest.empty();) Take(*files, TakeLine(rest));
  const std::string native = "/" + std::string(text);
  const std::string address = FileAddress(native);
  Require(IsAddress(address) && IsAscii(address) && address.find_first_of(" #?\r\n") == address.npos);
  const auto file = FileOfAddress(address);
  Require(file && file->host.empty() && PercentDecoded(file->path) == native);
  return 0;
}
