#pragma once

#include <QWidget>
#include <optional>

#include "settings/setting_rows.h"

namespace qublet {

// The value of a setting on the control of a page that its row names. A check box or a pair of options has a truth
// value or one of two numbers, a drop-down list and a slider have a number from the lower limit on, a box has a text
// or digits. Buttons aren't touched: what they stand for is their page's affair.
void ShowOption(const QWidget& page, const SettingRow& row, const SettingValue& value);
// Nothing where the control has no value that the setting could take: an empty box, too large a number, no choice.
std::optional<SettingValue> ShownOption(const QWidget& page, const SettingRow& row);

}  // namespace qublet
