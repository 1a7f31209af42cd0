#include "playlist_measures.h"

#include <memory>
#include <stdexcept>
#include <string>

#include "engine/engine.h"
#include "engine/system.h"
#include "floors.h"
#include "workplace.h"

namespace qublet::measures {
namespace {

void Expect(int files, int wanted = Workplace::kTracks) {
  if (files != wanted) throw std::runtime_error("only " + std::to_string(files) + " files were read");
}

// Answers every question with yes.
class Yes : public Dialogs {
 public:
  MessageAnswer ShowMessage(const std::string&, MessageIcon, MessageButtons) override { return MessageAnswer::kYes; }
  std::optional<std::string> ShowOpen(const FileRequest&) override { return std::nullopt; }
  std::optional<std::string> ShowSave(const FileRequest&) override { return std::nullopt; }
  std::optional<std::string> AskText(const std::string&, const std::string&) override { return {}; }
  std::optional<std::string> BrowseForFolder(const std::string&, const std::string&, bool) override {
    return std::nullopt;
  }
};

// The program behind the window, with a list of its own.
struct Program {
  System system{System::Traces::kLeavesNothing};
  Yes dialogs;
  Feedback feedback;
  Engine engine{system.With(dialogs, feedback), {"QUBLET-measures", "", ""}, ","};
  FileSystem& files = *system.files;
  Document& document = engine.document;
  Items& items = engine.items;
  PlaylistFiles& playlists = engine.playlist_files;
};

// Adds a folder or a playlist to an empty list.
Run Add(const std::filesystem::path& what, int wanted) {
  return [what, wanted] {
    Program program;
    const std::string path = program.files.FromNative(what.string());
    const double seconds = SecondsOf([&] { program.items.AddStuff(path, true); });
    Expect(program.document.ListView1.Count(), wanted);
    return seconds;
  };
}

Contest AgainstReadingHeads(Workplace& workplace) {
  const auto folder = workplace.Collection();
  return {Add(folder, Workplace::kTracks), [folder] { return SecondsOf([&] { Expect(ReadHeads(folder)); }); }};
}

Contest AgainstTagLib(Workplace& workplace) {
  const auto folder = workplace.Collection();
  return {Add(folder, Workplace::kTracks), [folder] { return SecondsOf([&] { Expect(ReadByTagLib(folder)); }); }};
}

// A playlist that fills the list, as the program saves it.
std::string FullPlaylist(const std::vector<std::string>& tracks) {
  const auto files = OpenFileSystem();
  std::string text;
  for (const std::string& track : tracks) text += files->FromNative(track) + "\r\n";
  return text;
}

Contest OpenAgainstReadingHeads(Workplace& workplace) {
  const auto tracks = workplace.Tracks(RowStore::MaxRows);
  const auto playlist = workplace.Root() / "open.m3u";
  ReplaceFile(playlist, FullPlaylist(tracks));
  return {Add(playlist, RowStore::MaxRows),
          [tracks] { return SecondsOf([&] { Expect(ReadHeads(tracks), RowStore::MaxRows); }); }};
}

// Lines of files that aren't there, in folders that are, against asking for the attributes of each.
Contest OpenMissingAgainstAttributes(Workplace& workplace) {
  auto tracks = workplace.Tracks(RowStore::MaxRows);
  int number = 0;
  for (std::string& track : tracks) track.insert(track.rfind('/') + 1, "gone " + std::to_string(++number) + " ");
  const auto playlist = workplace.Root() / "missing.m3u";
  ReplaceFile(playlist, FullPlaylist(tracks));
  return {Add(playlist, RowStore::MaxRows),
          [tracks] { return SecondsOf([&] { Expect(CountMissing(tracks), RowStore::MaxRows); }); }};
}

Contest SaveAgainstReplacing(Workplace& workplace) {
  const std::string bytes = FullPlaylist(workplace.Tracks(RowStore::MaxRows));
  const auto floor_file = workplace.Root() / "floor.m3u";
  const auto playlist = workplace.Root() / "save.m3u";
  ReplaceFile(floor_file, bytes);
  ReplaceFile(playlist, bytes);
  auto program = std::make_shared<Program>();
  program->document.CurrentPlaylist = program->files.FromNative(playlist.string());
  program->items.AddStuff(program->document.CurrentPlaylist, true);
  const auto save = [program, playlist, bytes] {
    const double seconds = SecondsOf([&] { program->playlists.SavePlaylistFile(false, false); });
    if (ReadWholeFile(playlist) != bytes) throw std::runtime_error("the playlist wasn't saved");
    return seconds;
  };
  return {save, [floor_file, bytes] { return SecondsOf([&] { ReplaceFile(floor_file, bytes); }); }};
}

}  // namespace

std::vector<Measure> PlaylistMeasures() {
  return {
      {"add_folder_10k", 1.2, AgainstReadingHeads},     {"add_folder_10k_taglib", 0.35, AgainstTagLib},
      {"open_m3u_32767", 1.3, OpenAgainstReadingHeads}, {"open_missing_32767", 3.0, OpenMissingAgainstAttributes},
      {"save_m3u_32767", 1.3, SaveAgainstReplacing},
  };
}

}  // namespace qublet::measures
