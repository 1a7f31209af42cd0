#include "tag_measures.h"

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "floors.h"
#include "media/editor/tag_form.h"
#include "media/editor/tag_journal.h"
#include "media/editor/tag_run.h"
#include "media/tag_file.h"
#include "platform/clock.h"
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

// What is kept of runs stands in this folder meanwhile, not in the user's own.
class DataHome {
 public:
  explicit DataHome(const std::filesystem::path& folder) {
    const char* before = std::getenv("XDG_DATA_HOME");
    if (before != nullptr) before_ = before;
    setenv("XDG_DATA_HOME", folder.c_str(), 1);
  }
  ~DataHome() { before_ ? setenv("XDG_DATA_HOME", before_->c_str(), 1) : unsetenv("XDG_DATA_HOME"); }
  DataHome(const DataHome&) = delete;
  DataHome& operator=(const DataHome&) = delete;

 private:
  std::optional<std::string> before_;
};

// The whole form of a file goes back into it, with another title in both tags.
TagWrite PlanTitle(const FileSystem& files, const std::string& path, const std::string& title) {
  TagObject tag(files);
  tag.ReadTags(path, false);
  TagForm form;
  ShowTag(tag, form);
  form.v1[kV1Title] = form.v2[kV2Title] = title;
  return PlanUpdate(files, path, form);
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

// The same as an update in the tag editor, with the old tags put down so that they come back.
Contest JournaledUpdateAgainstReplacing(Workplace& workplace) {
  const std::vector<std::string> tagged = workplace.Tagged();
  const std::shared_ptr<FileSystem> files = OpenFileSystem();
  Collection paths;
  for (const std::string& file : tagged) paths.push_back(files->FromNative(file));
  const auto update = [files, paths, data = workplace.Root() / "data", run = 0]() mutable {
    const std::string title = Title(++run);
    const DataHome home(data);
    return SecondsOf([&] {
      const SystemClock clock;
      TagRunRecord record(*files, clock, kWindowRun);
      TagRun::Watch watch;
      watch.done = [](const std::string&, const Outcome& outcome) {
        if (!outcome) throw std::runtime_error("a tag can't be written");
      };
      TagRun(
          *files, record, [&](const std::string& path) { return PlanTitle(*files, path, title); }, watch)
          .Over(paths);
      if (!record.Lost().empty()) throw std::runtime_error("the run isn't kept");
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
  return {{"tag_update_1000", 1.5, UpdateAgainstReplacing},
          {"tag_update_1000_journaled", 1.5, JournaledUpdateAgainstReplacing}};
}

}  // namespace qublet::measures
