#include "help/ui/help_pages.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScreen>

#include "desk/placement.h"
#include "platform/failure.h"
#include "settings/application.h"

namespace qublet {
namespace {

bool IsHelpKey(const QEvent& event) {
  if (event.type() != QEvent::KeyPress) return false;
  const auto& press = static_cast<const QKeyEvent&>(event);
  return press.key() == Qt::Key_F1 && press.modifiers() == Qt::NoModifier;
}

}  // namespace

HelpPages::HelpPages(const Desk& desk) : QObject(&desk.main), desk_(desk) {
  qApp->installEventFilter(this);
}

QString HelpPages::FindContents() const {
  const Engine& engine = desk_.engine;
  std::string native;
  ResumeNext([&] {
    const std::string path = engine.CompanionFile(std::string(ProgramVersion().stem) + ".hlp");
    if (!path.empty()) native = engine.services.files.ToNative(path);
  });
  return QString::fromStdString(native);
}

void HelpPages::ShowContents() {
  const QString contents = FindContents();
  if (!contents.isEmpty()) Show(contents, contents);
}

void HelpPages::ShowPageOf(const QWidget& window) {
  const QString contents = FindContents();
  if (contents.isEmpty()) return;
  QString page;
  for (const QWidget* asked = &window; asked != nullptr && page.isEmpty(); asked = asked->parentWidget())
    if (asked->isWindow()) page = HelpBrowser::PageNamed(contents, asked->objectName());
  Show(contents, page.isEmpty() ? contents : page);
}

void HelpPages::Show(const QString& contents, const QString& page) {
  if (!form_) form_ = new HelpForm(&desk_.main);
  if (!form_->isVisible()) {
    const QSize frame = desk_.main.frameGeometry().size() - desk_.main.size();
    form_->resize(form_->size().boundedTo(desk_.main.screen()->availableSize() - frame));
    PositionForm(desk_.main, *form_);
    GrowOnScreen(*form_, {0, 0});
  }
  form_->Open(contents, page);
}

bool HelpPages::eventFilter(QObject* watched, QEvent* event) {
  if (!IsHelpKey(*event) || !watched->isWidgetType() || QApplication::activePopupWidget() != nullptr) return false;
  const QWidget& window = *static_cast<QWidget*>(watched)->window();
  if (&window == &desk_.main) return false;
  ShowPageOf(window);
  return true;
}

}  // namespace qublet
