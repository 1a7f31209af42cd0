#include "settings/preferences/ui/option_controls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QSlider>
#include <stdexcept>

#include "playlist/paths/text.h"

namespace qublet {
namespace {

template <typename Control = QWidget>
Control* Find(const QWidget& page, std::string_view name) {
  return page.findChild<Control*>(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
}

bool IsNumber(const SettingRow& row) {
  return row.code == SettingCode::kInteger16 || row.code == SettingCode::kInteger32;
}

// The first of two options stands for True or the lower limit.
bool IsFirst(const SettingRow& row, const SettingValue& value) {
  return IsNumber(row) ? value == SettingValue(row.limits.least) : std::get<bool>(value);
}

SettingValue ValueOf(const SettingRow& row, bool first) {
  return IsNumber(row) ? SettingValue(first ? row.limits.least : row.limits.most) : SettingValue(first);
}

// The Tab key goes to the chosen one alone, as after a click.
void Choose(QRadioButton& chosen, QRadioButton& other) {
  chosen.setChecked(true);
  chosen.setFocusPolicy(Qt::StrongFocus);
  other.setFocusPolicy(Qt::ClickFocus);
}

// A number that isn't in the list is shown all the same.
void ShowIn(QComboBox& list, std::int32_t number, const SettingLimits& limits) {
  const bool listed = limits.least <= number && number <= limits.most;
  list.setPlaceholderText(QString::number(number));
  list.setCurrentIndex(listed ? number - limits.least : -1);
}

std::optional<SettingValue> ValueIn(const QLineEdit& box, const SettingRow& row) {
  const std::string text = box.text().toStdString();
  if (IsNumber(row)) return ReadSetting(row, text);
  return FirstCharacters(text, static_cast<std::size_t>(row.limits.most));
}

}  // namespace

void ShowOption(const QWidget& page, const SettingRow& row, const SettingValue& value) {
  QWidget* const control = Find(page, row.place.control.name);
  if (control == nullptr) throw std::logic_error("a page lacks a control");
  if (auto* box = qobject_cast<QCheckBox*>(control)) {
    box->setChecked(std::get<bool>(value));
  } else if (auto* first = qobject_cast<QRadioButton*>(control)) {
    QRadioButton* const other = Find<QRadioButton>(page, row.place.other.name);
    IsFirst(row, value) ? Choose(*first, *other) : Choose(*other, *first);
  } else if (auto* list = qobject_cast<QComboBox*>(control)) {
    ShowIn(*list, std::get<std::int32_t>(value), row.limits);
  } else if (auto* slider = qobject_cast<QSlider*>(control)) {
    slider->setValue(std::get<std::int32_t>(value));
  } else if (auto* text = qobject_cast<QLineEdit*>(control)) {
    text->setText(QString::fromStdString(WriteSetting(row, value)));
  }
}

std::optional<SettingValue> ShownOption(const QWidget& page, const SettingRow& row) {
  const QWidget* const control = Find(page, row.place.control.name);
  if (const auto* box = qobject_cast<const QCheckBox*>(control)) return box->isChecked();
  if (const auto* first = qobject_cast<const QRadioButton*>(control)) return ValueOf(row, first->isChecked());
  if (const auto* slider = qobject_cast<const QSlider*>(control)) return slider->value();
  if (const auto* text = qobject_cast<const QLineEdit*>(control)) return ValueIn(*text, row);
  const auto* list = qobject_cast<const QComboBox*>(control);
  if (list == nullptr || list->currentIndex() < 0) return std::nullopt;
  return list->currentIndex() + row.limits.least;
}

}  // namespace qublet
