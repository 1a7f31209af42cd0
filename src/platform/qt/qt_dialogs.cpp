#include "platform/qt/qt_dialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QRegularExpression>
#include <QScreen>
#include <algorithm>

#include "platform/qt/BrowseForm.h"
#include "platform/qt/shown_text.h"

namespace qublet {
namespace {

QMessageBox::StandardButtons ButtonsFor(MessageButtons buttons) {
  switch (buttons) {
    case MessageButtons::kOkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case MessageButtons::kYesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case MessageButtons::kYesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case MessageButtons::kOk:
      break;
  }
  return QMessageBox::Ok;
}

QMessageBox::Icon IconFor(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::kStop:
      return QMessageBox::Critical;
    case MessageIcon::kExclamation:
      return QMessageBox::Warning;
    case MessageIcon::kQuestion:
      return QMessageBox::Question;
    case MessageIcon::kInformation:
      break;
  }
  return QMessageBox::Information;
}

// "Description|*.a|Other|*.b|" as Qt wants it: a description and a pattern in brackets each.
QStringList NameFilters(const std::string& filter) {
  static const QRegularExpression kBrackets(QStringLiteral(R"(\s*\([^)]*\)\s*$)"));
  const QStringList parts = QString::fromStdString(filter).split(u'|', Qt::SkipEmptyParts);
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    filters << QStringLiteral("%1 (%2)").arg(QString(parts[i]).remove(kBrackets), parts[i + 1]);
  }
  return filters;
}

// Of the first pattern, without the dot; "*" for any.
QString ExtensionOf(const QString& name_filter) {
  static const QRegularExpression kPattern(QStringLiteral(R"(\*\.([^\s;)]+))"));
  return kPattern.match(name_filter).captured(1);
}

bool HasExtension(const QString& name, const QString& extension) {
  return extension == u'*' || name.endsWith(u'.' + extension, Qt::CaseInsensitive);
}

// The toolkit, and some systems, take what follows any dot for an extension ("Vol. 1"). Ours are those on offer: a
// name that ends in none of them gets that of the chosen type.
QString Completed(const QString& name, const QFileDialog& dialog) {
  const QStringList filters = dialog.nameFilters();
  const bool complete = std::any_of(filters.begin(), filters.end(),
                                    [&](const QString& filter) { return HasExtension(name, ExtensionOf(filter)); });
  return complete || filters.empty() ? name : name + u'.' + ExtensionOf(dialog.selectedNameFilter());
}

// As much of the text as the screen has room for, in lines as the box will break them.
QString FittingMessage(const QMessageBox& box, const std::string& text) {
  constexpr int kWidest = 500, kBesideText = 100, kAroundText = 150;  // pixels: picture; title and buttons
  constexpr qsizetype kFewest = 200;                                  // letters
  const QSize screen = box.screen()->availableSize();
  const QRect room(0, 0, std::min(screen.width() / 2, kWidest) - kBesideText, screen.height() - kAroundText);
  qsizetype longest = kLongestMessage;
  QString shown = ShownMessage(text, longest);
  const auto fits = [&] {
    return box.fontMetrics().boundingRect(room, Qt::TextWordWrap, shown).height() <= room.height();
  };
  while (longest > kFewest && !fits()) {
    longest = longest * 4 / 5;
    shown = ShownMessage(text, longest);
  }
  return shown;
}

}  // namespace

// A dialog stands before the window that the user works in. Between two dialogs none is active.
QWidget* QtDialogs::Owner() {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  QWidget* const active = QApplication::activeWindow();
  const bool stays = active != nullptr && active->isVisible() &&
                     (active->windowType() == Qt::Window || active->windowType() == Qt::Dialog);
  if (stays) last_owner_ = active;
  return last_owner_ != nullptr && last_owner_->isVisible() ? last_owner_ : owner_;
}

MessageAnswer QtDialogs::ShowMessage(const std::string& text, MessageIcon icon, MessageButtons buttons) {
  QMessageBox box(IconFor(icon), title_, QString(), ButtonsFor(buttons), Owner());
  box.setTextFormat(Qt::PlainText);
  box.setText(FittingMessage(box, text));
  switch (box.exec()) {
    case QMessageBox::Yes:
      return MessageAnswer::kYes;
    case QMessageBox::No:
      return MessageAnswer::kNo;
    case QMessageBox::Ok:
      return MessageAnswer::kOk;
    default:
      break;
  }
  return buttons == MessageButtons::kOk      ? MessageAnswer::kOk
         : buttons == MessageButtons::kYesNo ? MessageAnswer::kNo
                                             : MessageAnswer::kCancel;
}

std::optional<std::string> QtDialogs::AskForFile(const FileRequest& request, bool saving) {
  QFileDialog dialog(Owner());
  dialog.setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(saving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  const QStringList filters = NameFilters(request.filter);
  dialog.setNameFilters(filters);
  dialog.setDefaultSuffix(QString::fromStdString(request.default_extension));
  // The type chosen in the list gives a bare name its extension.
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                   [&dialog](const QString& filter) { dialog.setDefaultSuffix(ExtensionOf(filter)); });

  if (!last_folder_.isEmpty()) dialog.setDirectory(last_folder_);
  ResumeNext([&] {
    if (request.file_name.empty()) return;
    const QString native = QString::fromStdString(files_.ToNative(request.file_name));
    const QFileInfo start(native.section(u'*', 0, 0));
    const bool pattern = native.contains(u'*');
    dialog.setDirectory(pattern && start.isDir() ? start.absoluteFilePath() : start.absolutePath());
    if (!pattern) dialog.selectFile(start.fileName());
    if (filters.size() > 1 && start.suffix() == ExtensionOf(filters[1])) dialog.selectNameFilter(filters[1]);
  });
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  last_folder_ = dialog.directory().absolutePath();
  std::optional<std::string> chosen;
  const QString name = dialog.selectedFiles().constFirst();
  ResumeNext([&] { chosen = files_.FromNative((saving ? Completed(name, dialog) : name).toStdString()); });
  return chosen;
}

std::optional<std::string> QtDialogs::ShowOpen(const FileRequest& request) {
  return AskForFile(request, false);
}

std::optional<std::string> QtDialogs::ShowSave(const FileRequest& request) {
  return AskForFile(request, true);
}

std::optional<std::string> QtDialogs::AskText(const std::string& prompt, const std::string& title) {
  bool written = false;
  const QString text = QInputDialog::getText(Owner(), QString::fromStdString(title), QString::fromStdString(prompt),
                                             QLineEdit::Normal, QString(), &written);
  return written ? std::optional(text.toStdString()) : std::nullopt;
}

std::optional<std::string> QtDialogs::BrowseForFolder(const std::string& title, const std::string& start_folder,
                                                      bool files_too) {
  const QStringList patterns = files_too ? file_patterns_ : QStringList();
  BrowseForm browser(QString::fromStdString(title), patterns, UsualPlaces(files_), Owner());
  QString start;
  ResumeNext([&] { start = QString::fromStdString(files_.ToNative(start_folder)); });
  browser.Preselect(QFileInfo::exists(start) ? start : MusicFolder());
  std::optional<std::string> chosen;
  if (browser.exec() == QDialog::Accepted) {
    ResumeNext([&] { chosen = files_.FromNative(browser.Chosen().toStdString()); });
  }
  return chosen;
}

}  // namespace qublet
