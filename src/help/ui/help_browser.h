#pragma once

#include <QTextBrowser>

namespace qublet {

// Shows the pages of a book and nothing else: pages, pictures and style sheets come from the contents page's file and
// the folder "help" beside it. A link that leads elsewhere does nothing.
class HelpBrowser : public QTextBrowser {
  Q_OBJECT

 public:
  explicit HelpBrowser(QWidget* parent = nullptr);

  // Native paths. A page that isn't of the book, or isn't there, leaves what is shown.
  void SetBook(const QString& contents);
  void Open(const QString& page);
  void OpenContents() { Open(contents_); }

  // The page of that name in the book with these contents; empty when there is none.
  static QString PageNamed(const QString& contents, const QString& name);

  // Selects the text's next place, or the one before, and begins anew at the end of the page. False when it isn't on
  // the page; the selection is gone then.
  bool Find(const QString& text, bool backward);

 protected:
  QVariant loadResource(int type, const QUrl& name) override;

 private:
  bool Holds(const QUrl& url) const;
  void Follow(const QUrl& link);

  QString contents_;
};

}  // namespace qublet
