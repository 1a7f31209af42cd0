#include "fuzz/fuzz_input.h"
#include "platform/linux/absent_places.h"

using namespace qublet;

// The tables of what is to be mounted and of what is, parted by the first zero. What is told of a place doesn't
// depend on when it is asked, and with no first table every place is there.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::unique_ptr<FileSystem> files = OpenFileSystem();
  const std::string_view text = TextOf(data, size);
  const std::string_view fstab = text.substr(0, text.find('\0'));
  const std::string_view mounted = text.substr(std::min(fstab.size() + 1, size));
  UnmountedPlaces places(*files, fstab, mounted);
  UnmountedPlaces none(*files, "", mounted);
  for (const char* path : {"z:\\mnt\\music\\a.mp3", "z:\\a b\\c.mp3", "z:\\", "\\\\server\\share\\a.mp3", ""}) {
    const std::string place = places.Of(path);
    Require(UnmountedPlaces(*files, fstab, mounted).Of(path) == place);
    Require(place.empty() || place.find('\0') == place.npos);
    if (std::string_view(path).starts_with("z:")) Require(none.Of(path).empty());
  }
  return 0;
}
