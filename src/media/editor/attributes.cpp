#include "media/editor/attributes.h"

namespace qublet {
namespace {

constexpr unsigned kNormal = 128;

struct AttributeChange {
  const std::string& change;
  unsigned bit;
};

}  // namespace

// The file isn't set to normal on the way: the file system lets the bits of a read-only file be changed.
bool ApplyFileAttributes(const FileSystem& files, const std::string& path, const FileAttributeChanges& changes) {
  const std::optional<unsigned> before = files.Attributes(path);
  if (!before) return false;
  unsigned mask = 0;
  for (const AttributeChange& field : {AttributeChange{changes.normal, kNormal},
                                       {changes.read_only, kReadOnly},
                                       {changes.archive, kArchive},
                                       {changes.system, kSystem},
                                       {changes.hidden, kHidden}}) {
    const bool was_set = (*before & field.bit) != 0;
    if (field.change == "SET" || (field.change.empty() && was_set)) mask |= field.bit;
  }
  return Guarded([&] { files.SetAttributes(path, mask); });
}

}  // namespace qublet
