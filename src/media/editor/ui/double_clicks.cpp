#include "media/editor/ui/double_clicks.h"

#include <QLineEdit>
#include <QPlainTextEdit>

#include "media/editor/ui/box_shortcut.h"

namespace qublet {
namespace {

QLineEdit& Box(const QWidget& window, const char* name) {
  return *window.findChild<QLineEdit*>(QString::fromUtf8(name));
}

void FillOnDoubleClick(QLineEdit& box, const QString& tip, const std::function<std::optional<std::string>()>& text) {
  OnDoubleClick(box, tip, [&box, text] {
    if (const std::optional<std::string> found = text()) box.setText(QString::fromStdString(*found));
  });
}

}  // namespace

void BindDoubleClicks(QWidget& window, TagEditor& editor) {
  for (const char* name : {"ID3v1Title", "ID3v2Title"}) {
    FillOnDoubleClick(Box(window, name), QObject::tr("Take the file's name"),
                      [&editor] { return editor.TitleOfFile(); });
  }
  for (const char* name : {"ID3v1Artist", "ID3v2Artist", "ID3v1Album", "ID3v2Album"}) {
    FillOnDoubleClick(Box(window, name), QObject::tr("Take the name of the file's folder"),
                      [&editor] { return editor.NameOfFolder(); });
  }
  for (const char* name : {"ID3v2URL", "ID3v2ArtistURL"}) {
    QLineEdit& box = Box(window, name);
    OnDoubleClick(box, QObject::tr("Open this address"),
                  [&box, &editor] { editor.OpenUrl(box.text().toStdString()); });
  }
  const QString search = QObject::tr("Search the web for this text");
  QLineEdit& comment = Box(window, "ID3v1Comment");
  OnDoubleClick(comment, search, [&comment, &editor] { editor.WebSearch(comment.text().toStdString()); });
  auto& comments = *window.findChild<QPlainTextEdit*>(QStringLiteral("ID3v2Comment"));
  OnDoubleClick(comments, search, [&comments, &editor] { editor.WebSearch(comments.toPlainText().toStdString()); });
}

}  // namespace qublet
