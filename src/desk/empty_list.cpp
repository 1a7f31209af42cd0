#include "desk/empty_list.h"

#include <QVBoxLayout>

namespace qublet {

QLabel* SayWhatFills(QAbstractScrollArea& list, const QString& text) {
  auto* label = new QLabel(text);
  label->setObjectName(QStringLiteral("Empty") + list.objectName());
  label->setAlignment(Qt::AlignCenter);
  label->setWordWrap(true);
  label->setForegroundRole(QPalette::PlaceholderText);
  auto* over_the_list = new QVBoxLayout(list.viewport());
  over_the_list->addWidget(label);
  return label;
}

}  // namespace qublet
