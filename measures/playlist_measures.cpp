#include "playlist_measures.h"

#include <memory>
#include <stdexcept>
#include <string>

#include "floors.h"
#include "platform/feedback.h"
#include "platform/file_system.h"
#include "playlist/document.h"
#include "playlist/items.h"
#include "playlist/main_view.h"
#include "workplace.h"

namespace qublet::measures {
namespace {

void Expect(int files) {
  if (files != Workplace::kTracks) throw std::runtime_error("only " + std::to_string(files) + " files were read");
}

Run AddFolder(const std::filesystem::path& folder) {
  std::shared_ptr<FileSystem> files = OpenFileSystem();
  return [files, path = files->FromNative(folder.string())] {
    Document document;
    Feedback feedback;
    MainView view;
    Items items(document, *files, feedback, view, ",");
    const double seconds = SecondsOf([&] { items.AddStuff(path, true); });
    Expect(document.ListView1.Count());
    return seconds;
  };
}

Contest AgainstReadingHeads(Workplace& workplace) {
  const auto folder = workplace.Collection();
  return {AddFolder(folder), [folder] { return SecondsOf([&] { Expect(ReadHeads(folder)); }); }};
}

Contest AgainstTagLib(Workplace& workplace) {
  const auto folder = workplace.Collection();
  return {AddFolder(folder), [folder] { return SecondsOf([&] { Expect(ReadByTagLib(folder)); }); }};
}

}  // namespace

std::vector<Measure> PlaylistMeasures() {
  return {
      {"add_folder_10k", 1.2, AgainstReadingHeads},
      {"add_folder_10k_taglib", 0.35, AgainstTagLib},
  };
}

}  // namespace qublet::measures
