#include "media/tag_change.h"

#include "media/tag_file.h"
#include "media/tpsi.h"

namespace qublet {
namespace {

// True when there is something new.
bool Add(const TagChange& change, TagObject& tag) {
  for (const TagComment& comment : change.comments) tag.Comments().Append(comment);
  for (const TagPicture& picture : change.pictures) tag.Images().Append(picture);
  Collection records = TpsiRecords(tag.Comments().All());
  const std::size_t present = records.size();
  for (const std::string& record : change.positions) AddTpsi(record, records);
  if (records.size() > present) {
    std::vector<TagComment> comments = tag.Comments().All();
    StoreTpsi(records, comments);
    tag.Comments().Assign(std::move(comments));
  }
  return records.size() > present || !change.comments.empty() || !change.pictures.empty();
}

}  // namespace

TagWrite PlanTagChange(const FileSystem& files, const std::string& path, const TagChange& change) {
  RefuseAllButMp3(path);
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
  if (Add(change, tag)) v2 = changes_v2 = true;
  RefuseUnwritable(files, path);
  TagWrite write =
      tag.Plan(path, changes_v1 ? WrittenIf(v1) : TagStep::kLeave, changes_v2 ? WrittenIf(v2) : TagStep::kLeave);
  RefuseUnlessReadFrom(write, tag.Version());
  // When one of the two can't be done, nothing changes.
  write.id3v2.OrThrow();
  return write;
}

}  // namespace qublet
