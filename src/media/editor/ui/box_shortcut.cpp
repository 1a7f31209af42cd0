#include "media/editor/ui/box_shortcut.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QKeyEvent>
#include <utility>

namespace qublet {
namespace {

class BoxShortcut : public QObject {
 public:
  BoxShortcut(QWidget& box, std::function<void()> handler) : QObject(&box), handler_(std::move(handler)) {
    box.installEventFilter(this);
    if (auto* area = qobject_cast<QAbstractScrollArea*>(&box)) area->viewport()->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool key = event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_F4 &&
                     static_cast<QKeyEvent*>(event)->modifiers() == Qt::NoModifier;
    if (!key && event->type() != QEvent::MouseButtonDblClick) return QObject::eventFilter(watched, event);
    handler_();
    return true;
  }

 private:
  std::function<void()> handler_;
};

class DigitFilter : public QObject {
 public:
  explicit DigitFilter(QWidget& box) : QObject(&box) { box.installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
    const auto& press = *static_cast<QKeyEvent*>(event);
    const bool command = (press.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    const bool writes = !command && !press.text().isEmpty() && press.text().front().isPrint();
    const QChar letter = writes ? press.text().front() : QChar();
    return writes && (letter < u'0' || letter > u'9');
  }
};

}  // namespace

void OnDoubleClick(QWidget& box, const QString& tip, const std::function<void()>& handler) {
  box.setToolTip(QObject::tr("%1 (double click or F4)").arg(tip));
  new BoxShortcut(box, handler);
}

void TakeDigitsOnly(QWidget& box) {
  new DigitFilter(box);
}

}  // namespace qublet
