#pragma once

#include <QAbstractScrollArea>
#include <QLabel>
#include <QString>

namespace qublet {

// A dimmed text over a list, which says what would fill it; it is called "Empty" and the list's name. Who fills the
// list hides it.
QLabel* SayWhatFills(QAbstractScrollArea& list, const QString& text);

}  // namespace qublet
