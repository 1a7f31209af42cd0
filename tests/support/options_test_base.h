#pragma once

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTimer>

#include "support/main_window.h"
#include "support/options_hand.h"

namespace qublet {

// The preferences as they are reached from the menus, over a list of three items in two folders.
class OptionsTestBase : public testing::Test {
 protected:
  OptionsTestBase() {
    for (const char* name : {"one/b.mp3", "one/a.mp3", "two/c.mp3"}) window.drives.Write(name, kNoise);
    window.drives.Write("list.m3u", "c:\\one\\b.mp3\r\nc:\\one\\a.mp3\r\nc:\\two\\c.mp3\r\n");
    Start();
    OpenList();
  }
  // As by a user who has been here before.
  void Start() {
    window.store.SaveSetting("QUBLET2021", "Startup", "insl", "c:\\program\\QUBLET20.exe");
    window.Start();
  }
  void OpenList() {
    window.dialogs.open_names = {"c:\\list.m3u"};
    window.Run("MFileOpen");
  }
  void Restart() {
    window.main->close();
    window.Restart();
  }
  std::string Stored(std::string_view section, std::string_view key) {
    return window.store.GetSetting("QUBLET2021", std::string(section), std::string(key));
  }

  // Opens the window by its entry and has `look` work in it; what it leaves open is cancelled.
  void Open(const std::function<void(const OptionsHand& hand, QWidget& form)>& look,
            const char* entry = "MToolOptions") {
    bool seen = false;
    QTimer::singleShot(0, window.main, [&] {
      QWidget* form = QApplication::activeModalWidget();
      ASSERT_NE(form, nullptr);
      EXPECT_TRUE(QTest::qWaitForWindowActive(form));
      seen = true;
      look(OptionsHand(*form), *form);
      form->close();
    });
    window.Run(entry);
    EXPECT_TRUE(seen);
  }
  // Changes something on a page, and ends with OK.
  void Change(const char* page, const std::function<void(const OptionsHand& hand)>& change) {
    Open([&](const OptionsHand& hand, QWidget& form) {
      hand.Turn(page);
      change(hand);
      hand.Click("cmdOK");
      EXPECT_FALSE(form.isVisible());
    });
  }
  void Click(const char* page, const char* control) {
    Change(page, [&](const OptionsHand& hand) { hand.Click(control); });
  }

  MainWindow window;
};

}  // namespace qublet
