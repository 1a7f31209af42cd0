#include "media/tag_change.h"

#include "media/tag_file.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {

void ChangeTags(const FileSystem& files, const std::string& path, const TagChange& change) {
  // The bytes of any other kind of file aren't ours to change: a tag in front would break it.
  if (LowerCase(GetExtension(GetFileName(path))) != ".mp3") throw Failure("only .mp3 files have tags to change");
  TagObject tag(files);
  tag.PrepareFile(path);
  tag.ReadTags(path, false);
  bool v1 = tag.HasID3v1() && !change.remove_v1;
  bool v2 = tag.HasID3v2() && !change.remove_v2;
  bool changes_v1 = change.remove_v1;
  bool changes_v2 = change.remove_v2;
  for (const auto& [field, text] : change.settings) {
    field->set(tag, field->name, text);
    (field->in_v1 ? v1 : v2) = true;
    (field->in_v1 ? changes_v1 : changes_v2) = true;
  }
  RefuseUnwritable(files, path);
  // The step that can fail for more reasons comes first: then nothing has changed when it does.
  if (changes_v2) v2 ? tag.WriteID3v2(path) : tag.RemoveID3v2(path);
  if (changes_v1) v1 ? tag.WriteID3v1(path) : tag.RemoveID3v1(path);
}

}  // namespace qublet
