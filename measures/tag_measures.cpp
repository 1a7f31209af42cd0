#include "tag_measures.h"

#include <memory>
#include <stdexcept>
#include <string>

#include "floors.h"
#include "media/tag_file.h"
#include "workplace.h"

namespace qublet::measures {
namespace {

// Other in each run, and no longer than the title that the files were made with.
std::string Title(int run) {
  return "A title, changed: " + std::to_string(100 + run);
}

// Changes the title as the tag editor does: the tags are read, one field is set, what was there is written back.
void SetTitle(const FileSystem& files, const std::string& path, const std::string& title) {
  TagObject tag(files);
  tag.ReadTags(path, false);
  tag.SetFrame("TIT2", title);
  Outcome ok;
  WriteTagToFile(files, path, tag, tag.HasID3v1(), tag.HasID3v2(), ok);
  if (!ok) throw std::runtime_error("a tag can't be written");
}

Contest UpdateAgainstReplacing(Workplace& workplace) {
  const std::vector<std::string> tagged = workplace.Tagged();
  const std::shared_ptr<FileSystem> files = OpenFileSystem();
  std::vector<std::string> paths;
  for (const std::string& file : tagged) paths.push_back(files->FromNative(file));
  const auto update = [files, paths, run = 0]() mutable {
    const std::string title = Title(++run);
    return SecondsOf([&] {
      const auto batch = files->BeginBatch();
      for (const std::string& path : paths) SetTitle(*files, path, title);
    });
  };
  const auto replace = [tagged] {
    return SecondsOf([&] {
      for (const std::string& file : tagged) ReplaceFile(file, ReadWholeFile(file));
    });
  };
  return {update, replace};
}

}  // namespace

std::vector<Measure> TagMeasures() {
  return {{"tag_update_1000", 1.5, UpdateAgainstReplacing}};
}

}  // namespace qublet::measures
