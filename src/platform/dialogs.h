#pragma once

#include <optional>
#include <string>

namespace qublet {

enum class MessageIcon { kStop, kExclamation, kInformation, kQuestion };
enum class MessageButtons { kOk, kOkCancel, kYesNo, kYesNoCancel };
enum class MessageAnswer { kOk, kYes, kNo, kCancel };

// What a file dialog starts from. `filter` is a list of description and pattern pairs, each part followed by "|".
struct FileRequest {
  std::string file_name;  // starting name; a folder followed by a pattern opens in that folder
  std::string filter;
  std::string default_extension;  // without the dot
};

// The dialogs that the rules ask for. Paths are in drive form. Nothing means that the user cancelled.
class Dialogs {
 public:
  virtual ~Dialogs() = default;
  // A standard message box titled `AppTitle`. Closing it counts as Cancel (or No, or OK, where that is missing).
  virtual MessageAnswer ShowMessage(const std::string& text, MessageIcon icon, MessageButtons buttons) = 0;
  virtual std::optional<std::string> ShowOpen(const FileRequest& request) = 0;
  // A name that ends in none of the filter's extensions gets that of the chosen pattern. Never asks about replacing a
  // file: the rules do.
  virtual std::optional<std::string> ShowSave(const FileRequest& request) = 0;
  // A line to be written. Nothing is written there at first.
  virtual std::optional<std::string> AskText(const std::string& prompt, const std::string& title) = 0;
  // A browser for a folder, or for a file too when `files_too`. It begins at `start_folder`, which may be a file;
  // where that is nothing, at the user's music.
  virtual std::optional<std::string> BrowseForFolder(const std::string& title, const std::string& start_folder,
                                                     bool files_too) = 0;
};

}  // namespace qublet
