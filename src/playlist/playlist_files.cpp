#include "playlist/playlist_files.h"

#include "playlist/m3u_lines.h"
#include "playlist/paths/collections.h"
#include "playlist/paths/file_details.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/playlist_name.h"
#include "playlist/paths/text.h"
#include "playlist/playlist_lines.h"
#include "playlist/recent_files.h"
#include "playlist/row_paths.h"
#include "playlist/stoppable_change.h"

namespace qublet {
namespace {

constexpr const char* kPlaylistFilter = "M3U Playlist Files (*.m3u)|*.m3u|M3U8 Playlist Files (*.m3u8)|*.m3u8|";
constexpr const char* kDefaultName = "playlist.m3u";

std::string LeftOutText(const LeftOut& left_out, bool full) {
  std::string text;
  if (left_out.further_lines > 0) {
    text = full ? "The list ends at 32,767 items: " : "The list ends at 64 MiB of paths: ";
    text += std::to_string(left_out.further_lines) + " lines of this file were left out.";
  }
  const std::string long_lines = LongLinesText(left_out.long_lines);
  if (!long_lines.empty()) text += (text.empty() ? "" : "\r") + long_lines + ".";
  return text;
}

}  // namespace

std::string CaptionText(const std::string& AppTitle, const std::string& CurrentPlaylist) {
  if (CurrentPlaylist.empty()) return AppTitle;
  return AppTitle + "[" + GetFileName(CurrentPlaylist) + "]";
}

std::string FullPathsText(int items) {
  return items == 1 ? "1 item had to keep its full path"
                    : std::to_string(items) + " items had to keep their full paths";
}

bool PlaylistFiles::OpenPlaylistFile(bool Import) {
  FileRequest request{"", kPlaylistFilter, "m3u"};
  const std::string start = Trim(settings_.Idir);
  if (Import && FileExists(services_.files, start)) request.file_name = start + "*.m3u";
  const std::optional<std::string> chosen = services_.dialogs.ShowOpen(request);
  if (!chosen) return false;

  if (!Import && !PromptSaveFirst()) return false;
  const bool added = Load(*chosen, Import ? Into::kPresentList : Into::kEmptyList, Import);
  if (items_.Stopped()) {
    view_.Refresh();
    return false;
  }
  if (added && !Import) {
    TakeOpened(NormalizedPath(*chosen));
    AddRecent();
  }
  items_.MEditSelNone_Click();
  if (added && !Import) TellWhatIsLeftOut();
  return added;
}

void PlaylistFiles::TakeOpened(const std::string& path) {
  document_.CurrentPlaylist = path;
  document_.CurrentForm = items_.LastForm();
  view_.ShowCaption();
}

// A list that holds less than its file must not be saved over it by the way.
void PlaylistFiles::TellWhatIsLeftOut() {
  const LeftOut& left_out = items_.LastLeftOut();
  if (!left_out.OfPlaylists()) return;
  document_.CurrentPlaylist.clear();
  document_.CurrentForm.reset();
  view_.ShowCaption();
  const bool full = document_.ListView1.Count() == RowStore::MaxRows;
  services_.dialogs.ShowMessage(LeftOutText(left_out, full), MessageIcon::kExclamation, MessageButtons::kOk);
}

bool PlaylistFiles::Load(const std::string& path, Into into, bool ReSelect) {
  StoppableChange change(document_, services_.feedback);
  if (into == Into::kEmptyList) change.GiveWay();
  document_.PlaylistChanged = into == Into::kPresentList;
  return static_cast<bool>(items_.AddStuff(path, ReSelect));
}

void PlaylistFiles::MFileOpen_Click() {
  if (OpenPlaylistFile(false)) document_.PlaylistChanged = false;
}

void PlaylistFiles::MFileNew_Click() {
  if (!PromptSaveFirst()) return;
  document_.ListView1.Clear();
  view_.Refresh();
  document_.MarkStored();
  document_.CurrentPlaylist.clear();
  document_.CurrentForm.reset();
  view_.ShowCaption();
}

void PlaylistFiles::MFileRecent_Click(int Index) {
  if (!PromptSaveFirst()) return;
  const int count = static_cast<int>(document_.RecentFiles.size());
  if (Index < 1 || Index > count) return;
  const std::string path = document_.RecentFiles[static_cast<std::size_t>(count - Index)];
  if (!FileExists(services_.files, path)) {
    services_.dialogs.ShowMessage("Could not open the file, check that it hasnt been moved, renamed or deleted!",
                                  MessageIcon::kStop, MessageButtons::kOk);
    return;
  }
  const bool added = Load(path, Into::kEmptyList, true);
  if (added) TakeOpened(path);
  if (!items_.Stopped()) document_.PlaylistChanged = false;
  view_.Refresh();
  if (added) TellWhatIsLeftOut();
}

bool PlaylistFiles::PromptSaveFirst() {
  if (!WouldAsk()) return true;
  switch (services_.dialogs.ShowMessage("Do you want to save the current playlist first?", MessageIcon::kQuestion,
                                        MessageButtons::kYesNoCancel)) {
    case MessageAnswer::kYes:
      return SavePlaylistFile(false, false);
    case MessageAnswer::kNo:
      return true;
    default:
      return false;
  }
}

bool PlaylistFiles::CheckExists(const std::string& filename) {
  FileDetails details;
  std::string path = filename;
  if (!Guarded([&] { services_.files.ToNative(path); })) return true;
  GetFileDetails(services_.files, path, details);
  if (!details.IsFile) return false;
  return services_.dialogs.ShowMessage(filename + " exists, do you want to replace it?", MessageIcon::kQuestion,
                                       MessageButtons::kYesNoCancel) != MessageAnswer::kYes;
}

std::string PlaylistFiles::NameFor(const std::string& common) {
  std::string format = Trim(settings_.DefSName);
  return MakePlaylistName(format, common, services_.clock);
}

std::string PlaylistFiles::ProposeRelativeName(const std::string& common, bool& Relative) {
  if (!common.empty()) return common + "\\" + NameFor(common);
  services_.dialogs.ShowMessage(
      "This playlist cannot be saved to a relative directory because it points to files at different Root locations "
      "or items that are pointed to incorrectly.",
      MessageIcon::kInformation, MessageButtons::kOk);
  Relative = false;
  return NormalizedPath(services_.files.CurrentFolder()) + "\\" + kDefaultName;
}

std::string PlaylistFiles::ProposeName(const std::string& common) {
  if (!document_.CurrentPlaylist.empty()) return document_.CurrentPlaylist;
  const std::string name = common.empty() ? kDefaultName : NameFor(common);
  return NormalizedPath(services_.files.CurrentFolder()) + "\\" + name;
}

bool PlaylistFiles::AskForTarget(bool& Relative, std::string& target) {
  const std::string common = FindCommonFolder(PathsOf(document_.ListView1, WhichRows::kAll));
  const std::string proposed = Relative ? ProposeRelativeName(common, Relative) : ProposeName(common);
  const std::optional<std::string> chosen = services_.dialogs.ShowSave({proposed, kPlaylistFilter, "m3u"});
  if (chosen) target = *chosen;
  return chosen.has_value();
}

bool PlaylistFiles::SavePlaylistFile(bool AsNew, bool Relative) {
  if (document_.ListView1.Count() == 0) return false;
  bool saved = false;
  ResumeNext([&] {
    std::string target = document_.CurrentPlaylist;
    if ((AsNew || target.empty()) && !AskForTarget(Relative, target)) return;
    saved = static_cast<bool>(SaveTo(target, Relative ? LineForm::kRelative : LineForm::kFull));
  });
  return saved;
}

Outcome PlaylistFiles::SaveTo(std::string target, LineForm form) {
  return Attempt([&] {
    FileDetails details;
    GetFileDetails(services_.files, target, details);
    services_.files.ToNative(details.Path);  // says so where no drive leads there
    if (CheckExists(details.Path)) throw Failure("it is there, and not to be replaced");
    WriteTo(details.Path, form).OrThrow();
  });
}

Outcome PlaylistFiles::WriteTo(const std::string& path, LineForm form) {
  const WaitCursor wait(services_.feedback);
  services_.feedback.ShowActivity("Saving file: " + path);
  const Outcome written = WriteRows(path, form);
  const bool new_name = path != document_.CurrentPlaylist;
  if (written) {
    document_.CurrentPlaylist = path;
    if (new_name) document_.CurrentForm.reset();
    view_.ShowCaption();
    AddRecent();
    document_.MarkStored();
  } else {
    services_.dialogs.ShowMessage("Unable to write to the specified file.", MessageIcon::kStop, MessageButtons::kOk);
  }
  services_.feedback.ShowActivity("");
  if (written) TellAboutLines(new_name);
  return written;
}

void PlaylistFiles::TellAboutLines(bool new_name) {
  const std::string& path = document_.CurrentPlaylist;
  std::string remark;
  if (left_absolute_ > 0) remark = FullPathsText(left_absolute_);
  if (new_name && !told_of_players_ && !IsNativePlaylist(path) && !OwnFormHasDrives(services_.files)) {
    told_of_players_ = true;
    remark = JoinedRemarks(remark, "players of this system want .m3u8");
  }
  if (!remark.empty()) services_.feedback.ShowRemark(remark);
}

Outcome PlaylistFiles::WriteRows(const std::string& path, LineForm form) {
  const RowStore& rows = document_.ListView1;
  const bool same_file = path == document_.CurrentPlaylist;
  PlaylistText text(services_.files, path, form == LineForm::kRelative,
                    same_file ? document_.CurrentForm : std::nullopt);
  for (int i = 1; i <= rows.Count(); ++i) {
    rows.ExpectPaths(i);
    const Row& row = rows.At(i);
    text.Add(row.cells[kPath], row.cells[kFileName], row.kept.get());
  }
  left_absolute_ = text.LeftAbsolute();
  return text.Write();
}

void PlaylistFiles::AddRecent() {
  AddRecentFile(document_.RecentFiles, document_.CurrentPlaylist, settings_);
  view_.RefreshRecentMenu();
}

}  // namespace qublet
