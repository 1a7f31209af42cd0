// Opens a playlist and saves it under another name, for the tests of interrupted saves. Gives 0 when it was saved and
// 1 when the user was told that it couldn't be; it aborts when the document or the messages don't fit the outcome.
//
//   save_driver SOURCE TARGET plain|relative

#include <cstdlib>

#include "playlist/playlist_files.h"
#include "support/fake_services.h"

namespace {

using namespace qublet;

bool SaysItCouldNotBeWritten(const ScriptedDialogs& dialogs) {
  return !dialogs.messages.empty() && dialogs.messages.back().text == "Unable to write to the specified file.";
}

int Save(const std::string& source, const std::string& target, bool relative) {
  const std::unique_ptr<FileSystem> files = OpenFileSystem();
  Document document;
  Feedback feedback;
  MainView view;
  AppSettings settings;
  LoadDefaultSettings(settings, {});
  FakeServices fakes;
  ScriptedDialogs& dialogs = fakes.dialogs;
  dialogs.save_names.emplace_back(target);
  dialogs.answers.push_back(MessageAnswer::kYes);
  Items items(document, *files, feedback, view, ",");
  PlaylistFiles playlist_files(document, items, settings, fakes.Over(*files, feedback), view);

  items.AddStuff(source, false);
  const bool saved = playlist_files.SavePlaylistFile(true, relative);
  const bool fits = saved != SaysItCouldNotBeWritten(dialogs) && saved != document.PlaylistChanged &&
                    document.CurrentPlaylist == (saved ? target : "") && saved != document.RecentFiles.empty();
  if (!fits) std::abort();
  return saved ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 4) return 2;
  return Save(arguments[1], arguments[2], std::string(arguments[3]) == "relative");
}
