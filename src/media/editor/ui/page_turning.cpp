#include "media/editor/ui/page_turning.h"

namespace qublet {

void TurnPage(QTabWidget& pages, int step) {
  const int count = pages.count();
  for (int tries = 1; tries < count; ++tries) {
    const int page = ((pages.currentIndex() + tries * step) % count + count) % count;
    if (!pages.isTabEnabled(page)) continue;
    pages.setCurrentIndex(page);
    return;
  }
}

QTabWidget* InnerPages(const QTabWidget& pages) {
  return pages.currentWidget()->findChild<QTabWidget*>();
}

}  // namespace qublet
