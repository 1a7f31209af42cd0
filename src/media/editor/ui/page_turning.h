#pragma once

#include <QTabWidget>

namespace qublet {

// Goes to the next page that can be used (`step` 1), or the previous one (-1), round at the ends.
void TurnPage(QTabWidget& pages, int step);

// The pages inside the present page; null when there are none.
QTabWidget* InnerPages(const QTabWidget& pages);

}  // namespace qublet
