#include "help/ui/HelpForm.h"

#include <QShortcut>
#include <algorithm>

#include "platform/qt/pictures.h"

namespace qublet {
namespace {

// Steps of a point from the size that letters have at first.
constexpr int kSmallest = -3;
constexpr int kLargest = 12;

}  // namespace

HelpForm::HelpForm(QWidget* parent) : QDialog(parent, Qt::Window) {
  setupUi(this);
  setProperty("passing", true);  // who comes back from it hasn't been in another window of the program
  cmdBack->setIcon(Picture(QStringLiteral("previous")));
  cmdForward->setIcon(Picture(QStringLiteral("next")));
  cmdContents->setIcon(Picture(QStringLiteral("help")));
  connect(Browser, &QTextBrowser::backwardAvailable, cmdBack, &QWidget::setEnabled);
  connect(Browser, &QTextBrowser::forwardAvailable, cmdForward, &QWidget::setEnabled);
  connect(Browser, &QTextBrowser::sourceChanged, this, [this] {
    const QString title = Browser->documentTitle();
    setWindowTitle(title.isEmpty() ? tr("Help") : tr("%1 - Help").arg(title));
    lblFound->clear();
  });
  connect(cmdContents, &QPushButton::clicked, Browser, &HelpBrowser::OpenContents);
  connect(cmdBack, &QPushButton::clicked, Browser, &QTextBrowser::backward);
  connect(cmdForward, &QPushButton::clicked, Browser, &QTextBrowser::forward);
  connect(cmdFindBack, &QPushButton::clicked, this, [this] { FindAgain(true); });
  connect(cmdFindNext, &QPushButton::clicked, this, [this] { FindAgain(false); });
  connect(txtFind, &QLineEdit::returnPressed, this, [this] { FindAgain(false); });
  connect(txtFind, &QLineEdit::textEdited, this, &HelpForm::FindTyped);
  MakeKeys();
  create();  // winId() would make windows of the owner's widgets
  beside_modal_ = new BesideModal(*this);
}

void HelpForm::MakeKeys() {
  const auto key = [this](const char* keys, const std::function<void()>& handler) {
    auto* shortcut = new QShortcut(QKeySequence(QString::fromUtf8(keys)), this);
    connect(shortcut, &QShortcut::activated, this, handler);
  };
  key("Alt+Home", [this] { cmdContents->click(); });
  key("Alt+Left", [this] { cmdBack->click(); });
  key("Alt+Right", [this] { cmdForward->click(); });
  key("Ctrl+F", [this] {
    txtFind->setFocus();
    txtFind->selectAll();
  });
  key("F3", [this] { FindAgain(false); });
  key("Shift+F3", [this] { FindAgain(true); });
  key("Ctrl++", [this] { Zoom(zoomed_ + 1); });
  key("Ctrl+=", [this] { Zoom(zoomed_ + 1); });
  key("Ctrl+-", [this] { Zoom(zoomed_ - 1); });
  key("Ctrl+0", [this] { Zoom(0); });
}

void HelpForm::Open(const QString& contents, const QString& page) {
  beside_modal_->Follow();
  Browser->SetBook(contents);
  Browser->Open(page);
  show();
  raise();
  activateWindow();
  Browser->setFocus();
}

void HelpForm::Zoom(int steps) {
  steps = std::clamp(steps, kSmallest, kLargest);
  Browser->zoomIn(steps - zoomed_);
  zoomed_ = steps;
}

// What is typed is looked for from where the last place begins, so that a longer text stays where the shorter one
// was.
void HelpForm::FindTyped() {
  QTextCursor cursor = Browser->textCursor();
  cursor.setPosition(cursor.selectionStart());
  Browser->setTextCursor(cursor);
  FindAgain(false);
}

void HelpForm::FindAgain(bool backward) {
  lblFound->setText(Browser->Find(txtFind->text(), backward) ? QString() : tr("Not on this page."));
}

}  // namespace qublet
