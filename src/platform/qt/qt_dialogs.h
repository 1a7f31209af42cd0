#pragma once

#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWidget>

#include "platform/dialogs.h"
#include "platform/file_system.h"

namespace qublet {

// The standard dialogs, over one window.
class QtDialogs : public Dialogs {
 public:
  // `title` is the title of message boxes; `file_patterns` say which files a browser for folders and files shows.
  QtDialogs(QWidget* owner, const FileSystem& files, QString title, QStringList file_patterns)
      : owner_(owner), files_(files), title_(std::move(title)), file_patterns_(std::move(file_patterns)) {}

  // The window that dialogs stand over while the user works in none.
  void SetOwner(QWidget* owner) { owner_ = owner; }

  MessageAnswer ShowMessage(const std::string& text, MessageIcon icon, MessageButtons buttons) override;
  std::optional<std::string> ShowOpen(const FileRequest& request) override;
  std::optional<std::string> ShowSave(const FileRequest& request) override;
  std::optional<std::string> AskText(const std::string& prompt, const std::string& title) override;
  std::optional<std::string> BrowseForFolder(const std::string& title, const std::string& start_folder,
                                             bool files_too) override;

 private:
  QWidget* Owner();
  std::optional<std::string> AskForFile(const FileRequest& request, bool saving);

  QPointer<QWidget> owner_;
  QPointer<QWidget> last_owner_;
  const FileSystem& files_;
  QString title_;
  QStringList file_patterns_;
  QString last_folder_;  // where the next file dialog starts when nobody says where
};

}  // namespace qublet
