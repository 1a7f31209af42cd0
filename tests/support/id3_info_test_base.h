#pragma once

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <memory>
#include <string>

#include "media/editor/ui/Id3Info.h"
#include "support/editor_test_base.h"

namespace qublet {

// The tag editor's window over songs of the drive c:. Controls are found by their names.
class Id3InfoTestBase : public EditorTestBase {
 protected:
  Id3InfoTestBase() {
    for (const char* name : {"1.mp3", "2.mp3", "3.mp3"}) drives_.Write(name, TaggedSong(name));
    drives_.Write("bare.mp3", AudioBytes());
    drives_.Write("a.wav", "abc");
    AddRows({"1.mp3", "2.mp3", "3.mp3", "bare.mp3", "a.wav"});
  }

  void Open(const std::string& letters) {
    Select(letters);
    editor_ = std::make_unique<Id3Info>(engine_, background_, nullptr);
    editor_->show();
    editor_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(editor_.get()));
  }

  template <typename Control>
  Control& Find(const char* name) {
    auto* control = editor_->findChild<Control*>(QString::fromUtf8(name));
    if (control == nullptr) throw std::runtime_error(std::string("no control ") + name);
    return *control;
  }
  QLineEdit& Box(const char* name) { return Find<QLineEdit>(name); }
  QPushButton& Button(const char* name) { return Find<QPushButton>(name); }
  QCheckBox& Check(const char* name) { return Find<QCheckBox>(name); }
  QTabWidget& Pages() { return Find<QTabWidget>("Id3MainTab"); }
  std::string Text(const char* name) { return Box(name).text().toStdString(); }
  std::string Label(const char* name) { return Find<QLabel>(name).text().remove(QChar(0x200B)).toStdString(); }
  bool Enabled(const char* name) { return Find<QWidget>(name).isEnabled(); }
  std::string Colour(const char* name) {
    return Find<QWidget>(name).property("colour").value<QColor>().name().toStdString();
  }
  void Turn(int page) { Pages().setCurrentIndex(page); }
  // At its left, where a check box is.
  void Click(const char* name) {
    auto& button = Find<QAbstractButton>(name);
    QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, QPoint(8, button.height() / 2));
  }
  void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* focus = QApplication::focusWidget();
    QTest::keyClick(focus != nullptr ? focus : editor_.get(), static_cast<Qt::Key>(key), modifiers);
  }

  Background background_;
  std::unique_ptr<Id3Info> editor_;
};

}  // namespace qublet
