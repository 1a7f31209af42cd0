#include "help/ui/help_browser.h"

#include <QDir>
#include <QFileInfo>

namespace qublet {
namespace {

QDir PagesOf(const QString& contents) {
  return QDir(QFileInfo(contents).absoluteDir().filePath(QStringLiteral("help")));
}

}  // namespace

HelpBrowser::HelpBrowser(QWidget* parent) : QTextBrowser(parent) {
  setAcceptDrops(false);
  setOpenLinks(false);
  document()->setDocumentMargin(12);
  connect(this, &QTextBrowser::anchorClicked, this, &HelpBrowser::Follow);
}

void HelpBrowser::SetBook(const QString& contents) {
  if (contents == contents_) return;
  contents_ = contents;
  clear();
  clearHistory();
}

void HelpBrowser::Open(const QString& page) {
  Follow(QUrl::fromLocalFile(page));
}

QString HelpBrowser::PageNamed(const QString& contents, const QString& name) {
  const QString page = PagesOf(contents).filePath(name + QStringLiteral(".html"));
  return QFileInfo(page).isFile() ? page : QString();
}

// Links of the disk count as what they lead to.
bool HelpBrowser::Holds(const QUrl& url) const {
  const QFileInfo file(url.toLocalFile());
  if (!url.isLocalFile() || !file.isFile()) return false;
  const QString path = file.canonicalFilePath();
  return path == QFileInfo(contents_).canonicalFilePath() ||
         path.startsWith(PagesOf(contents_).canonicalPath() + QLatin1Char('/'));
}

void HelpBrowser::Follow(const QUrl& link) {
  const QUrl page = source().resolved(link);
  if (Holds(page.adjusted(QUrl::RemoveFragment))) setSource(page, QTextDocument::HtmlResource);
}

// What is no resource at all the document would look for by itself, so others are empty ones.
QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
  const QUrl whole = source().resolved(name).adjusted(QUrl::RemoveFragment);
  return Holds(whole) ? QTextBrowser::loadResource(type, whole) : QVariant(QByteArray());
}

bool HelpBrowser::Find(const QString& text, bool backward) {
  const QTextDocument::FindFlags flags = backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
  if (text.isEmpty()) return true;
  if (find(text, flags)) return true;
  QTextCursor cursor = textCursor();
  cursor.movePosition(backward ? QTextCursor::End : QTextCursor::Start);
  setTextCursor(cursor);
  return find(text, flags);
}

}  // namespace qublet
