#pragma once

#include <QWidget>

#include "settings/setting_rows.h"

namespace qublet {

// A page of the preferences: the settings that have it as their place, on its controls. Its window title is its
// caption.
class OptionsPage : public QWidget {
  Q_OBJECT

 public:
  OptionsPage(SettingPage page, QWidget* parent) : QWidget(parent), page_(page) {}

  virtual void Load(const AppSettings& settings);
  // A control that holds no usable value leaves its setting as it is.
  virtual void Store(AppSettings& settings) const;

 private:
  const SettingPage page_;
};

}  // namespace qublet
