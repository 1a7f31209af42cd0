#include <QComboBox>
#include <QPlainTextEdit>
#include <QToolBar>
#include <QTreeWidget>

#include "support/id3_info_test_base.h"

namespace qublet {
namespace {

class Id3InfoTest : public Id3InfoTestBase {};

TEST_F(Id3InfoTest, HasThePagesAndTheirInnerPages) {
  Open("x----");
  EXPECT_EQ(editor_->windowTitle().toStdString(), "File Info/Tag Editor...");
  QStringList titles;
  for (int page = 0; page < Pages().count(); ++page) titles << Pages().tabText(page);
  EXPECT_EQ(titles.join(u'|').toStdString(), "General|ID3v1|ID3v2");
  titles.clear();
  auto& inner = Find<QTabWidget>("Id3v2SubTab");
  for (int page = 0; page < inner.count(); ++page) titles << inner.tabText(page);
  EXPECT_EQ(titles.join(u'|').toStdString(), "Info|Comments|Lyrics|Images|Misc|TPSI");
  EXPECT_EQ(Find<QTabWidget>("Id3GeneralTab").tabText(0).toStdString(), "Info");
}

TEST_F(Id3InfoTest, HasTheGivenCaptions) {
  Open("x----");
  struct Caption {
    const char* name;
    const char* text;
  };
  for (const Caption& c : {Caption{"CmdRefresh", "Refresh"},
                           {"CmdCopy", "Copy"},
                           {"CmdPaste", "Paste"},
                           {"CmdUpdate", "&Update"},
                           {"CmdListen", "&Preview"},
                           {"CmdInfo", "Req &Info"},
                           {"CmdPrev", ""},
                           {"CmdNext", ""},
                           {"CmdClose", "&Close"},
                           {"ID3v1Present", "ID3v1 Tag Present"},
                           {"ID3v2Present", "ID3v2 Tag Present"},
                           {"ID3v1Duplicate", "<<Copy from ID3v1"},
                           {"ID3v2Duplicate", "<<Copy from ID3v2"},
                           {"TPSIautoupdate", "Update Time with current position in WinAmp."}})
    EXPECT_EQ(Find<QAbstractButton>(c.name).text().toStdString(), c.text) << c.name;
  for (const Caption& c : {Caption{"ID3v1Title", "Title:"},
                           {"ID3v1Artist", "Artist:"},
                           {"ID3v1Album", "Album:"},
                           {"ID3v1Year", "Year:"},
                           {"ID3v1Comment", "Comment:"},
                           {"ID3v1Track", "Track:"},
                           {"ID3v1Genre", "Genre:"},
                           {"ID3v2Title", "Title:"},
                           {"ID3v2Artist", "Artist:"},
                           {"ID3v2Album", "Album:"},
                           {"ID3v2Year", "Year:"},
                           {"ID3v2Track", "Track:"},
                           {"ID3v2Composer", "Composer:"},
                           {"ID3v2OrigArtist", "Orig Artist:"},
                           {"ID3v2Copyright", "Copyright:"},
                           {"ID3v2EncodedBy", "Encoded:"},
                           {"ID3v2URL", "File URL:"},
                           {"ID3v2UserText", "UserText:"},
                           {"ID3v2ArtistURL", "Artist URL:"},
                           {"ID3v2Genre", "Genre:"},
                           {"ID3v2Preference", "Preference:"},
                           {"ID3v2Mood", "Mood:"},
                           {"ID3v2Tempo", "Tempo:"},
                           {"ID3v2Situation", "Situation:"}}) {
    const auto& label = Find<QLabel>((std::string("Caption_") + c.name).c_str());
    EXPECT_EQ(label.text().toStdString(), c.text);
    EXPECT_EQ(label.buddy(), &Find<QWidget>(c.name)) << c.name;
  }
}

TEST_F(Id3InfoTest, HasAToolbarOfTenPlacesAndUndoAtItsEnd) {
  Open("x----");
  QStringList places;
  for (const QAction* action : Find<QToolBar>("Toolbar1").actions()) {
    places << (action->isSeparator() ? QStringLiteral("|") : action->text());
    EXPECT_EQ(action->icon().isNull(), action->isSeparator());
  }
  EXPECT_EQ(places.join(u' ').toStdString(),
            "Refresh Copy Paste Update | Preview Req Info | Previous Next Undo Update");
}

TEST_F(Id3InfoTest, ShowsOneFile) {
  Open("-x---");
  EXPECT_EQ(Label("FileInfo0"), "2.mp3");
  EXPECT_EQ(Label("MPEGInfo2"), "Encoding: 128 Kbit ");
  EXPECT_EQ(Text("ID3v1Title"), "2.mp3");
  EXPECT_EQ(Text("ID3v1Year"), "1999");
  EXPECT_EQ(Find<QComboBox>("ID3v1Genre").currentText().toStdString(), "Rock");
  EXPECT_EQ(Text("ID3v2Artist"), "Artist");
  EXPECT_TRUE(Check("ID3v1Present").isChecked() && Check("ID3v2Present").isChecked());
  EXPECT_TRUE(Enabled("CmdUpdate") && Enabled("CmdCopy") && Enabled("CmdPrev") && Enabled("CmdNext"));
  EXPECT_FALSE(Enabled("CmdPaste"));
  EXPECT_TRUE(Find<QWidget>("FrameMPEGInfo").isVisible());
  EXPECT_FALSE(Find<QWidget>("FrameOGGInfo").isVisible());
  EXPECT_EQ(Pages().currentIndex(), 0);
}

TEST_F(Id3InfoTest, MarksItsPagesByColourAndWord) {
  Open("x----");
  EXPECT_EQ(Colour("FileInfoIndicator") + Colour("Id31Indicator") + Colour("Id32Indicator"), "#0000ff#0000ff#0000ff");
  EXPECT_EQ(Find<QWidget>("Id31Indicator").accessibleName().toStdString(), "ID3v1: in use");
  Open("---x-");
  EXPECT_EQ(Colour("FileInfoIndicator") + Colour("Id31Indicator") + Colour("Id32Indicator"), "#0000ff#000040#000040");
  EXPECT_EQ(Find<QWidget>("Id32Indicator").accessibleName().toStdString(), "ID3v2: not in use");
  Open("x---x");
  EXPECT_EQ(Colour("FileInfoIndicator"), "#ff0000");
  EXPECT_EQ(Find<QWidget>("FileInfoIndicator").accessibleName().toStdString(), "File Info: unusable");
}

TEST_F(Id3InfoTest, TakesAwayThePagesOfTagsForOtherFiles) {
  Open("x----");
  Turn(2);
  Select("----x");
  Click("CmdRefresh");
  EXPECT_EQ(Pages().currentIndex(), 0);
  EXPECT_FALSE(Pages().isTabEnabled(1) || Pages().isTabEnabled(2));
  EXPECT_FALSE(Enabled("CmdUpdate") || Enabled("ID3v1Present") || Enabled("ID3v2Present"));
  EXPECT_EQ(Find<QGroupBox>("FrameMPEGInfo").title().toStdString(), "WAV File Info");
  Select("x----");
  Click("CmdRefresh");
  EXPECT_TRUE(Pages().isTabEnabled(1) && Pages().isTabEnabled(2) && Enabled("ID3v1Title") && Enabled("ID3v2Title"));
}

TEST_F(Id3InfoTest, StaysOnItsPageFromFileToFile) {
  Open("x----");
  Turn(1);
  Click("CmdNext");
  EXPECT_EQ(Pages().currentIndex(), 1);
  EXPECT_EQ(Text("ID3v1Title"), "2.mp3");
  EXPECT_EQ(Selection(), "-x---");
  Click("CmdPrev");
  EXPECT_EQ(Text("ID3v1Title"), "1.mp3");
  EXPECT_FALSE(Enabled("CmdPrev"));
}

TEST_F(Id3InfoTest, ReturnsToTheFirstInnerPageOfId3v2) {
  Open("x----");
  Turn(2);
  Find<QTabWidget>("Id3v2SubTab").setCurrentIndex(4);
  Turn(1);
  EXPECT_EQ(Find<QTabWidget>("Id3v2SubTab").currentIndex(), 4);
  Turn(2);
  EXPECT_EQ(Find<QTabWidget>("Id3v2SubTab").currentIndex(), 0);
}

TEST_F(Id3InfoTest, EnablesTheControlsOfATagByItsPresenceBox) {
  Open("---x-");
  Turn(1);
  EXPECT_FALSE(Enabled("ID3v1Title") || Enabled("ID3v1Genre") || Enabled("CmdCopy"));
  Click("ID3v1Present");
  EXPECT_TRUE(Enabled("ID3v1Title") && Enabled("ID3v1Genre") && Enabled("CmdCopy"));
  EXPECT_EQ(Colour("Id31Indicator"), "#0000ff");
  Box("ID3v1Title").setText(QStringLiteral("kept"));
  Click("ID3v1Present");
  EXPECT_FALSE(Enabled("ID3v1Title") || Enabled("CmdCopy"));
  EXPECT_EQ(Text("ID3v1Title"), "kept");
  Turn(2);
  Click("ID3v2Present");
  for (const char* name : {"ID3v2Title", "ID3v2Genre", "ID3v2Lyrics", "ID3v2Mood", "ID3v2LstComments", "TPSIlist"})
    EXPECT_TRUE(Enabled(name)) << name;
  EXPECT_FALSE(Enabled("TPSIautoupdate") || Enabled("TPSIgoto")) << "no player";
}

TEST_F(Id3InfoTest, EnablesWhatWorksWithThePlayer) {
  engine_.player.PlayerAssociated = true;
  Open("x----");
  EXPECT_TRUE(Enabled("TPSIautoupdate") && Enabled("TPSIgoto"));
}

TEST_F(Id3InfoTest, CopiesAndPastes) {
  Open("x----");
  Click("CmdCopy");
  EXPECT_TRUE(Enabled("CmdPaste"));
  Select("---x-");
  Click("CmdRefresh");
  Click("CmdPaste");
  EXPECT_EQ(Text("ID3v2Title"), "1.mp3");
  EXPECT_TRUE(Check("ID3v1Present").isChecked() && Enabled("ID3v1Title"));
  Open("---x-");
  EXPECT_FALSE(Enabled("CmdPaste")) << "the clipboard lives as long as the window";
}

TEST_F(Id3InfoTest, ChangesAttributesByAClickAndByNothingElse) {
  Open("xx---");
  Click("FileInfoReadOnly");
  EXPECT_TRUE(files_->IsReadOnly("c:\\1.mp3") && files_->IsReadOnly("c:\\2.mp3"));
  Click("CmdRefresh");
  EXPECT_TRUE(Check("FileInfoReadOnly").isChecked()) << "several files keep the boxes";
  Select("--x--");
  Click("CmdRefresh");
  EXPECT_FALSE(Check("FileInfoReadOnly").isChecked());
  EXPECT_TRUE(files_->IsReadOnly("c:\\1.mp3"));
  EXPECT_FALSE(files_->IsReadOnly("c:\\3.mp3"));
}

TEST_F(Id3InfoTest, OffersTheGenres) {
  Open("x----");
  auto& v1 = Find<QComboBox>("ID3v1Genre");
  auto& v2 = Find<QComboBox>("ID3v2Genre");
  EXPECT_EQ(v1.count(), v2.count());
  EXPECT_EQ(v1.itemText(0).toStdString() + "|" + v1.itemText(1).toStdString(), "|Blues");
  EXPECT_FALSE(v1.isEditable());
  EXPECT_TRUE(v2.isEditable());
}

TEST_F(Id3InfoTest, HasListsWithTheirColumnsAndTimeBoxes) {
  Open("x----");
  const auto columns = [&](const char* name) {
    const auto& tree = Find<QTreeWidget>(name);
    QStringList texts;
    for (int i = 0; i < tree.columnCount(); ++i) texts << tree.headerItem()->text(i);
    return texts.join(u'|').toStdString();
  };
  EXPECT_EQ(columns("ID3v2LstComments"), "Description|Text");
  EXPECT_EQ(columns("ID3v2LstImages"), "Description|Size|MIMEType");
  EXPECT_EQ(columns("TPSIlist"), "Offset [mS]|Offset [HrMnSec]");
  for (const char* name : {"TPSIhour", "TPSImin", "TPSIsec"}) {
    EXPECT_EQ(Find<QComboBox>(name).count(), 60);
    EXPECT_EQ(Find<QComboBox>(name).currentText().toStdString(), "00");
    EXPECT_EQ(Find<QComboBox>(name).itemText(59).toStdString(), "59");
  }
}

TEST_F(Id3InfoTest, ShowsTheCommentsAndPicturesThatTravelWithTheForm) {
  TagObject tag(*files_);
  tag.ReadTags("c:\\1.mp3", false);
  tag.Comments().Add("text", "about");
  tag.Images().Append({"front", "image/png", {1, 2, 3}});
  tag.WriteID3v2("c:\\1.mp3");
  Open("x----");
  const auto& comments = Find<QTreeWidget>("ID3v2LstComments");
  ASSERT_EQ(comments.topLevelItemCount(), 1);
  EXPECT_EQ(comments.topLevelItem(0)->text(1).toStdString(), "text");
  EXPECT_EQ(Find<QPlainTextEdit>("ID3v2Comment").toPlainText().toStdString(), "text");
  EXPECT_EQ(Find<QTreeWidget>("ID3v2LstImages").topLevelItem(0)->text(1).toStdString(), "3 Bytes");
  Click("CmdNext");
  EXPECT_EQ(comments.topLevelItemCount(), 0);
  EXPECT_EQ(Find<QPlainTextEdit>("ID3v2Comment").toPlainText().toStdString(), "");
}

TEST_F(Id3InfoTest, FitsASmallScreen) {
  Open("x----");
  EXPECT_LE(editor_->width(), 1260);
  EXPECT_LE(editor_->height(), 740);
}

TEST_F(Id3InfoTest, ClosesAndReloadsWhenItIsOpenedAgain) {
  Open("x----");
  Click("CmdClose");
  EXPECT_FALSE(editor_->isVisible());
}

}  // namespace
}  // namespace qublet
