#include "generators/bookmarks/categories.h"

#include <chrono>
#include <memory>
#include <thread>
#include <utility>

#include "platform/held_file.h"
#include "platform/program.h"
#include "playlist/m3u_lines.h"
#include "playlist/paths/file_details.h"
#include "playlist/paths/folder_walk.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"
#include "playlist/paths/text_files.h"

namespace qublet {
namespace {

constexpr std::string_view kExtension = ".bm";
constexpr const char* kDefault = "Default";

// Lets another program end what it adds to the same file; after two seconds that one counts as hung. Where files
// can't be held there is nothing to wait for.
std::unique_ptr<HeldFile> WaitToHold(const FileSystem& files, const std::string& path) {
  constexpr int kTries = 200;
  constexpr int kMostFailures = 5;
  constexpr std::chrono::milliseconds kPause{10};
  std::unique_ptr<HeldFile> held;
  for (int tries = 0, failures = 0; tries < kTries && failures < kMostFailures; ++tries) {
    if (!Attempt([&] { held = HoldFile(files, path); })) ++failures;
    if (held) break;
    std::this_thread::sleep_for(kPause);
  }
  return held;
}

}  // namespace

Categories::Categories(const FileSystem& files, Dialogs& dialogs, const std::string& program_folder)
    : files_(files.OwnFiles()),
      dialogs_(dialogs),
      has_place_(!program_folder.empty()),
      folder_(program_folder + "\\Bookmarks") {}

Collection Categories::ListCategories() const {
  Collection paths;
  ListFolderFiles(files_, folder_, "*.*", paths);
  Collection names;
  for (const std::string& path : paths) {
    std::string name = GetFileName(path);
    if (!MatchesWildcard(name, "*.bm")) continue;
    name.resize(name.size() - kExtension.size());
    // Where case counts, nothing that is called by its category leads to "A.BM".
    if (path.ends_with(kExtension) || files_.Exists(PathOf(name))) names.push_back(std::move(name));
  }
  return names;
}

bool Categories::IsDefault(const std::string& category) const {
  return WithCaseOfDisk(files_, PathOf(category)) == WithCaseOfDisk(files_, PathOf(kDefault));
}

Outcome Categories::Told(const Outcome& outcome, const char* text) const {
  if (!outcome) dialogs_.ShowMessage(text, MessageIcon::kStop, MessageButtons::kOk);
  return outcome;
}

Outcome Categories::ProvideDefault() const {
  if (FileExists(files_, PathOf(kDefault))) return {};
  return Told(CreateDefaultCategory(), "Could not create the bookmarks system.");
}

Outcome Categories::CreateDefaultCategory() const {
  return Attempt([&] {
    if (!has_place_) throw Failure("there is no folder for bookmarks");
    if (!files_.Exists(folder_)) files_.CreateFolder(folder_);
    WriteLinesToFileChecked(files_, {}, PathOf(kDefault)).OrThrow();
  });
}

Outcome Categories::AddBookmarks(const std::string& path, const Collection& paths) const {
  const std::unique_ptr<HeldFile> alone = WaitToHold(files_, path + ".lock");
  Collection lines;
  if (FileExists(files_, path)) {
    const Outcome read = ReadLinesFromFile(files_, lines, path);
    if (!read) return Told(read, "Could not open the bookmarks file for writing.");
  }
  lines.insert(lines.end(), paths.begin(), paths.end());
  return Told(WritePlainLines(files_, path, lines), "Could not update the bookmarks file.");
}

}  // namespace qublet
