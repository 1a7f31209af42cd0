#pragma once

#include "settings/preferences/preferences.h"
#include "support/editor_test_base.h"
#include "support/fake_window_state.h"

namespace qublet {

// The program with the default settings, and a main window of which only its state is known.
class PreferencesTestBase : public EditorTestBase {
 protected:
  void SetUp() override {
    engine_.Show(window_, state_);
    LoadDefaultSettings(Settings(), {});
  }
  AppSettings& Settings() { return engine_.settings; }
  ScriptedDialogs& Asked() { return fakes_.dialogs; }

  FakeWindowState state_;
};

}  // namespace qublet
