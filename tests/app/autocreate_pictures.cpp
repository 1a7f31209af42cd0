#include "autocreate_pictures.h"

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>

#include "support/modal_work.h"

namespace qublet {
namespace {

template <typename Control>
Control& Find(const QWidget& form, const char* name) {
  return *form.findChild<Control*>(QString::fromUtf8(name));
}

void TakeSteps(QWidget& form, MainWindow& window, const TakePicture& take) {
  take("autocreate-mode", &form);
  window.dialogs.folders = {"c:\\Lists of last year\\Everything by folder"};
  Find<QRadioButton>(form, "MyFolderOnly").click();
  take("autocreate-my-folder", &form);
  Find<QRadioButton>(form, "BothFolders").click();
  auto& next = Find<QPushButton>(form, "CmdNext");
  next.click();
  Find<QTreeWidget>(form, "lstPaths").topLevelItem(2)->setCheckState(0, Qt::Unchecked);
  take("autocreate-folders", &form);
  next.click();
  Find<QPushButton>(form, "CmdTest").click();
  take("autocreate-format", &form);
  next.click();
  take("autocreate-ready", &form);
  next.click();
  take("autocreate-done", &form);
  window.dialogs.answers = {MessageAnswer::kYes};
  Find<QPushButton>(form, "cmdUndo").click();
  take("autocreate-undone", &form);
}

void Open(MainWindow& window, const char* list, const std::function<void(QWidget& form)>& look) {
  window.dialogs.open_names = {list};
  window.Run("MFileOpen");
  WorkInModal([&] { window.Run("MToolsM3UWiz"); }, look);
}

}  // namespace

void TakeAutoCreatePictures(MainWindow& window, const TakePicture& take) {
  Open(window, "c:\\Evening.m3u8", [&](QWidget& form) { TakeSteps(form, window, take); });
  window.drives.Write("gone.m3u", "c:\\Old\\Night Ferry\\01 - Slack Water.mp3\r\n");
  Open(window, "c:\\gone.m3u", [&](QWidget& form) { take("autocreate-nothing", &form); });
}

}  // namespace qublet
