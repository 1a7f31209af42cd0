#pragma once

#include <QTranslator>

namespace qublet {

// Keys in menus as they are called on Windows: "Enter", where the toolkit says "Return".
class WindowsKeyNames : public QTranslator {
  Q_OBJECT

 public:
  QString translate(const char* context, const char* source, const char* disambiguation, int n) const override;
  bool isEmpty() const override { return false; }
};

}  // namespace qublet
