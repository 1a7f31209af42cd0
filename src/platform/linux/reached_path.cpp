#include "platform/linux/reached_path.h"

#include <fcntl.h>
#include <limits.h>

#include <algorithm>

namespace qublet {

ReachedPath::ReachedPath(const std::string& native) : name_(native.c_str()) {
  constexpr std::size_t kMost = PATH_MAX - 1;  // the zero at the end counts
  std::size_t at = 0;
  while (native.size() - at > kMost) {
    const std::size_t end = native.rfind('/', at + kMost);
    if (end == native.npos || end <= at) throw Failure("the name is too long", native);
    folder_ = OpenAt(Folder(), native.substr(at, end - at), O_PATH | O_DIRECTORY);
    at = std::min(native.find_first_not_of('/', end), native.size());
  }
  name_ = at > 0 && at == native.size() ? "." : native.c_str() + at;
}

int ReachedPath::Folder() const {
  return folder_.IsOpen() ? folder_.Get() : AT_FDCWD;
}

}  // namespace qublet
