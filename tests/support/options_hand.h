#pragma once

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QHoverEvent>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSlider>
#include <QStackedWidget>
#include <QTest>
#include <QTreeView>
#include <QTreeWidget>
#include <memory>
#include <stdexcept>
#include <string>

namespace qublet {

// What a person does in the window of the preferences, whoever has made it. Controls are found by their names.
class OptionsHand {
 public:
  explicit OptionsHand(QWidget& window) : window_(window) {}

  template <typename Control>
  Control& Find(std::string_view name) const {
    auto* control = window_.findChild<Control*>(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
    if (control == nullptr) throw std::runtime_error("no control " + std::string(name));
    return *control;
  }
  // Turns to the page by a click on its node.
  void Turn(const char* node) const {
    auto& tree = Find<QTreeWidget>("OptionsTree");
    const auto found = tree.findItems(QString::fromUtf8(node), Qt::MatchExactly | Qt::MatchRecursive);
    if (found.size() != 1) throw std::runtime_error(std::string("no page ") + node);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::NoModifier, tree.visualItemRect(found.front()).center());
  }
  std::string PageCaption() const { return Find<QLabel>("PageCaption").text().toStdString(); }
  // At its left, where a check box is.
  void Click(std::string_view name) const {
    auto& button = Find<QAbstractButton>(name);
    QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, QPoint(8, button.height() / 2));
  }
  void Type(std::string_view name, const char* text) const {
    auto& box = Find<QLineEdit>(name);
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClicks(&box, QString::fromUtf8(text));
  }
  std::string Text(std::string_view name) const { return Find<QLineEdit>(name).text().toStdString(); }
  bool Ticked(std::string_view name) const { return Find<QAbstractButton>(name).isChecked(); }

 private:
  QWidget& window_;
};

// The list as it is painted while the pointer is over the first row's name.
inline QImage PictureUnderPointer(QTreeView& list) {
  const QPoint place = list.visualRect(list.model()->index(0, 0)).center();
  QHoverEvent move(QEvent::HoverMove, place, list.viewport()->mapToGlobal(place), QPointF(1, 1));
  QCoreApplication::sendEvent(list.viewport(), &move);
  return list.viewport()->grab().toImage();
}

}  // namespace qublet
