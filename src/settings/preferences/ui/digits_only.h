#pragma once

#include <QValidator>

namespace qublet {

// Drops whatever is no digit, typed or pasted.
class DigitsOnly : public QValidator {
  Q_OBJECT

 public:
  using QValidator::QValidator;

  State validate(QString& input, int& pos) const override;
};

}  // namespace qublet
