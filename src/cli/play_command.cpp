#include "cli/play_command.h"

#include "cli/list_command.h"
#include "player/player_link.h"
#include "player/preview.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

// Messages go where errors go, questions are answered with Cancel.
class PrintedDialogs : public Dialogs {
 public:
  explicit PrintedDialogs(std::ostream& err) : err_(err) {}

  MessageAnswer ShowMessage(const std::string& text, MessageIcon /*icon*/, MessageButtons buttons) override {
    said_something = true;
    Complain(err_, ReplaceAll(text, "\r", "\n"), kCouldNot);
    return buttons == MessageButtons::kOk ? MessageAnswer::kOk : MessageAnswer::kCancel;
  }
  std::optional<std::string> ShowOpen(const FileRequest& /*request*/) override { return std::nullopt; }
  std::optional<std::string> ShowSave(const FileRequest& /*request*/) override { return std::nullopt; }
  std::optional<std::string> BrowseForFolder(const std::string& /*title*/, const std::string& /*start_folder*/,
                                             bool /*files_too*/) override {
    return std::nullopt;
  }

  bool said_something = false;

 private:
  std::ostream& err_;
};

}  // namespace

int PlayWith(CommandContext& context, Shell& shell, const Associations& associations,
             const std::string& program_folder) {
  if (!OnlyPaths(context, "play")) return kWrongUse;
  if (associations.FindAssociatedProgram(TempPlaylist(program_folder)).empty())
    return Complain(context.err, "play: no program opens playlists here", kCouldNot);

  Document document;
  const bool all_there = AddPaths(document, context, context.arguments);
  Feedback feedback;
  MainView view;
  Items items(document, context.files, feedback, view, ",");
  PrintedDialogs dialogs(context.err);
  Preview preview(document, items, {context.files, shell, dialogs, feedback}, program_folder);
  std::int16_t mode = kPlayList;
  preview.PrevM3U(mode);
  return all_there && !dialogs.said_something ? kDone : kCouldNot;
}

int PlayCommand(CommandContext& context) {
  const auto shell = OpenShell(context.files);
  return PlayWith(context, *shell, *OpenAssociations(context.files), OwnFolder(context.files));
}

}  // namespace qublet
