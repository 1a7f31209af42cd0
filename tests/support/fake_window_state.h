#pragma once

#include <functional>

#include "engine/session.h"

namespace qublet {

// A main window of which only this is known.
class FakeWindowState : public Session::Window {
 public:
  std::function<void(AppSettings& settings)> copy = [](AppSettings&) {};  // how it stands
  int applied = 0;
  int ended_unsaved = 0;

  void ApplyQUBLETSettings() override { ++applied; }
  void CopyState(AppSettings& settings) override { copy(settings); }
  bool Maximised() const override { return false; }
  ColumnWidths DefColumnWidths() const override { return {}; }
  ScreenSize Screen() const override { return {}; }
  void Relayout() override {}
  void EndUnsaved() override { ++ended_unsaved; }
};

}  // namespace qublet
