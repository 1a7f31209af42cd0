#include "platform/qt/ShownLabel.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>

#include "platform/qt/shown_text.h"

namespace qublet {
namespace {

constexpr qsizetype kLongest = 600;  // characters, about a dozen lines

}  // namespace

ShownLabel::ShownLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

void ShownLabel::Show(std::string_view text) {
  const QString shown = ShownText(text);
  const bool fits = shown.size() <= kLongest;
  setText(WithBreaks(fits ? shown : shown.left(kLongest / 2) + QStringLiteral("...") + shown.right(kLongest / 2)));
  setToolTip(fits ? QString() : ShownTip(text));
}

void ShownLabel::Copy() const {
  if (hasSelectedText()) QGuiApplication::clipboard()->setText(WithoutBreaks(selectedText()));
}

void ShownLabel::keyPressEvent(QKeyEvent* event) {
  if (!event->matches(QKeySequence::Copy)) {
    QLabel::keyPressEvent(event);
    return;
  }
  Copy();
  event->accept();
}

void ShownLabel::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu(this);
  menu.addAction(tr("&Copy"), this, &ShownLabel::Copy)->setEnabled(hasSelectedText());
  menu.addAction(tr("Select &All"), this, [this] { setSelection(0, static_cast<int>(text().size())); });
  menu.exec(event->globalPos());
}

void ShownLabel::mouseReleaseEvent(QMouseEvent* event) {
  QLabel::mouseReleaseEvent(event);
  QClipboard& clipboard = *QGuiApplication::clipboard();
  if (clipboard.supportsSelection() && hasSelectedText())
    clipboard.setText(WithoutBreaks(selectedText()), QClipboard::Selection);
}

}  // namespace qublet
