#include "settings/preferences/ui/digits_only.h"

#include <algorithm>

namespace qublet {
namespace {

bool IsNoDigit(QChar letter) {
  return letter < u'0' || letter > u'9';
}

}  // namespace

QValidator::State DigitsOnly::validate(QString& input, int& pos) const {
  pos -= static_cast<int>(std::count_if(input.begin(), input.begin() + pos, IsNoDigit));
  input.removeIf(IsNoDigit);
  return Acceptable;
}

}  // namespace qublet
