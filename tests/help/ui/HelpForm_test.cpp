#include "help/ui/HelpForm.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <QTest>
#include <memory>

namespace qublet {
namespace {

// The help window over a book of three pages, with a file beside the book that isn't its own.
class HelpFormTest : public testing::Test {
 protected:
  HelpFormTest() {
    QDir(folder_.path()).mkpath(QStringLiteral("book/help"));
    Write("book/QUBLET20.hlp",
          "<title>Contents</title><p><a href='help/one.html'>one</a><p><a href='help/../../secret.html'>out</a>"
          "<p><a href='http://localhost/x.html'>away</a>");
    Write("book/help/one.html",
          "<title>One</title><p>apple pear apple</p><a href='two.html#end'>two</a><a href='lost.html'>lost</a>"
          "<a href='link.html'>link</a><img src='../../secret.png'>");
    Write("book/help/two.html", "<title>Two</title><p>plum</p><p><a name='end'></a>end</p>");
    Write("secret.html", "<title>Secret</title>secret");
    QFile::link(Path("secret.html"), Path("book/help/link.html"));
    QImage picture(30, 20, QImage::Format_RGB32);
    picture.fill(Qt::red);
    EXPECT_TRUE(picture.save(Path("secret.png")));
    EXPECT_TRUE(picture.save(Path("book/help/in.png")));
    Open("book/QUBLET20.hlp");
  }

  QString Path(const char* name) const { return folder_.filePath(QString::fromUtf8(name)); }
  void Write(const char* name, const char* text) const {
    QFile file(Path(name));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write(text);
  }
  void Open(const char* page) {
    form_.Open(Path("book/QUBLET20.hlp"), Path(page));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form_));
  }
  template <typename Control>
  Control& Find(const char* name) {
    return *form_.findChild<Control*>(QString::fromUtf8(name));
  }
  HelpBrowser& Browser() { return Find<HelpBrowser>("Browser"); }
  std::string Title() const { return form_.windowTitle().toStdString(); }
  void Click(const char* name) { QTest::mouseClick(&Find<QPushButton>(name), Qt::LeftButton); }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(form_.windowHandle(), key, modifiers);
  }
  // A click on the link with that text, where it stands on the page.
  void Follow(const char* text) {
    QTextCursor cursor = Browser().document()->find(QString::fromUtf8(text));
    ASSERT_FALSE(cursor.isNull()) << text;
    Browser().setTextCursor(cursor);
    const QRect end = Browser().cursorRect(cursor);
    QTest::mouseClick(Browser().viewport(), Qt::LeftButton, Qt::NoModifier, end.center() - QPoint(4, 0));
  }

  // A picture that stands in its own address.
  QString Inline() const {
    QFile file(Path("book/help/in.png"));
    return file.open(QFile::ReadOnly) ? u"data:image/png;base64,"_qs + QString::fromLatin1(file.readAll().toBase64())
                                      : u""_qs;
  }
  // Whether the page gets a picture for that address.
  bool Loads(const char* name) {
    const QUrl url(QString::fromUtf8(name));
    const QVariant got = Browser().document()->resource(QTextDocument::ImageResource, url);
    return got.canConvert<QPixmap>() && !got.value<QPixmap>().isNull();
  }

  QTemporaryDir folder_;
  HelpForm form_{nullptr};
};

TEST_F(HelpFormTest, FollowsALinkAndGoesBackAndForwardAndToTheContents) {
  EXPECT_EQ(Title(), "Contents - Help");
  EXPECT_FALSE(Find<QPushButton>("cmdBack").isEnabled());
  Follow("one");
  EXPECT_EQ(Title(), "One - Help");
  Follow("two");
  EXPECT_EQ(Title(), "Two - Help");
  EXPECT_FALSE(Find<QPushButton>("cmdForward").isEnabled());
  Click("cmdBack");
  EXPECT_EQ(Title(), "One - Help");
  Click("cmdBack");
  EXPECT_EQ(Title(), "Contents - Help");
  Click("cmdForward");
  EXPECT_EQ(Title(), "One - Help");
  Click("cmdContents");
  EXPECT_EQ(Title(), "Contents - Help");
}

TEST_F(HelpFormTest, GoesItsWaysByKeys) {
  Follow("one");
  Key(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(Title(), "Contents - Help");
  Key(Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(Title(), "One - Help");
  Key(Qt::Key_Home, Qt::AltModifier);
  EXPECT_EQ(Title(), "Contents - Help");
  Key(Qt::Key_Escape);
  EXPECT_FALSE(form_.isVisible());
}

TEST_F(HelpFormTest, StaysWhereItIsForALinkThatLeadsOutOfTheBookOrNowhere) {
  for (const char* link : {"out", "away"}) {
    Follow(link);
    EXPECT_EQ(Title(), "Contents - Help") << link;
  }
  Follow("one");
  Follow("lost");
  EXPECT_EQ(Title(), "One - Help");
  Open("secret.html");
  EXPECT_EQ(Title(), "One - Help");
}

TEST_F(HelpFormTest, FollowsNoLinkOnTheDiskOutOfTheBook) {
  Follow("one");
  Follow("link");
  EXPECT_EQ(Title(), "One - Help");
}

TEST_F(HelpFormTest, LoadsPicturesOfTheBookAndNoOthers) {
  Open("book/help/one.html");
  EXPECT_TRUE(Loads("in.png"));
  EXPECT_FALSE(Loads("../../secret.png"));
  EXPECT_FALSE(Loads(Inline().toUtf8().constData()));
}

TEST_F(HelpFormTest, FindsATextAgainAndBackwardAndBeginsAnewAtTheEnd) {
  Open("book/help/one.html");
  Key(Qt::Key_F, Qt::ControlModifier);
  ASSERT_EQ(form_.focusWidget(), &Find<QLineEdit>("txtFind"));
  QTest::keyClicks(&Find<QLineEdit>("txtFind"), QStringLiteral("apple"));
  const auto place = [this] { return Browser().textCursor().selectionStart(); };
  EXPECT_EQ(place(), 0);
  QTest::keyClick(&Find<QLineEdit>("txtFind"), Qt::Key_Return);
  EXPECT_EQ(place(), 11);
  Key(Qt::Key_F3);
  EXPECT_EQ(place(), 0);
  Key(Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(place(), 11);
  Click("cmdFindBack");
  EXPECT_EQ(place(), 0);
  EXPECT_EQ(Find<QLabel>("lblFound").text(), QString());
}

TEST_F(HelpFormTest, SaysThatATextIsNotOnThePage) {
  Find<QLineEdit>("txtFind").setText(QStringLiteral("cherry"));
  Click("cmdFindNext");
  EXPECT_EQ(Find<QLabel>("lblFound").text(), QStringLiteral("Not on this page."));
  Follow("one");
  EXPECT_EQ(Find<QLabel>("lblFound").text(), QString());
}

TEST_F(HelpFormTest, GrowsAndShrinksItsLetters) {
  const qreal before = Browser().font().pointSizeF();
  Key(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_GT(Browser().font().pointSizeF(), before);
  Key(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(Browser().font().pointSizeF(), before);
}

TEST_F(HelpFormTest, KeepsItsLettersReadable) {
  const int usual = Browser().font().pointSize();
  for (int times = 0; times < 40; ++times) Key(Qt::Key_Minus, Qt::ControlModifier);
  const int smallest = Browser().font().pointSize();
  EXPECT_LT(smallest, usual);
  EXPECT_GE(smallest, usual - 3);
  for (int times = 0; times < 60; ++times) Key(Qt::Key_Plus, Qt::ControlModifier);
  const int largest = Browser().font().pointSize();
  EXPECT_GT(largest, usual);
  EXPECT_LE(largest, usual + 12);
  Key(Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(Browser().font().pointSize(), usual);
}

}  // namespace
}  // namespace qublet
