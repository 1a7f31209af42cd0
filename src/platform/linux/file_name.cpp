#include "platform/file_name.h"

#include <limits.h>

#include "platform/failure.h"
#include "platform/linux/native_text.h"

namespace qublet {

std::string NameRefusal(const std::string& name) {
  const char* const forbidden = "the name holds a forbidden character";
  if (name.find('/') != name.npos) return forbidden;
  std::string native;
  if (!Guarded([&] { native = NativeFromText(name); })) return forbidden;
  return native.size() > NAME_MAX ? "the name is too long" : "";
}

std::string PathKey(const std::string& path) {
  return path;
}

}  // namespace qublet
