#include <gtest/gtest.h>

#include <QComboBox>
#include <QListWidget>
#include <QPushButton>

#include "support/main_window.h"
#include "support/modal_work.h"

namespace qublet {
namespace {

// The wizard as it is reached from the menus.
class DiscTest : public testing::Test {
 protected:
  DiscTest() {
    window.drives.Write("discs/mine/one.mp3", kNoise);
    window.Start();
  }
  void Open(const std::function<void(QWidget& form)>& look) {
    EXPECT_TRUE(WorkInModal([&] { window.Run("MToolsMP3CDWiz"); },
                            [&](QWidget& form) {
                              EXPECT_EQ(form.objectName().toStdString(), "MP3CDWizard");
                              look(form);
                            }));
  }
  static void Click(const QWidget& form, const char* name) {
    QTest::mouseClick(form.findChild<QPushButton*>(QString::fromUtf8(name)), Qt::LeftButton);
  }

  MainWindow window;
};

TEST_F(DiscTest, ItsWizardComesFromTheMenuEvenForAnEmptyListAndMakesADiscByTheKeyboard) {
  Open([&](QWidget& form) {
    const auto press = [&](Qt::Key key) { QTest::keyClick(form.windowHandle(), key); };
    window.dialogs.folders = {"c:\\discs"};
    press(Qt::Key_Space);  // the root's button has the keyboard
    press(Qt::Key_Tab);
    for (const Qt::Key key : {Qt::Key_M, Qt::Key_I, Qt::Key_N, Qt::Key_E}) press(key);
    for (int step = 0; step < 3; ++step) press(Qt::Key_Return);
    EXPECT_TRUE(window.dialogs.messages.empty());
    press(Qt::Key_Return);
    EXPECT_EQ(form.findChild<QListWidget*>(QStringLiteral("DragToBurn"))->count(), 1);
    press(Qt::Key_Return);  // "Close" has the keyboard now
    EXPECT_FALSE(form.isVisible());
  });
}

TEST_F(DiscTest, WhatWasChosenComesAgainForTheNextDisc) {
  Open([&](QWidget& form) {
    window.dialogs.folders = {"c:\\discs", "c:\\discs\\mine"};
    for (const char* name : {"BrowseAssembleLoc", "BrowseImageLoc", "CmdNext", "CmdNext", "CmdNext", "CmdNext"})
      Click(form, name);
  });
  Open([&](QWidget& form) {
    const auto& names = *form.findChild<QComboBox*>(QStringLiteral("CDROMLoc"));
    EXPECT_EQ(names.itemText(0).toStdString(), "mine");
    EXPECT_EQ(names.currentText().toStdString(), "");
  });
}

}  // namespace
}  // namespace qublet
