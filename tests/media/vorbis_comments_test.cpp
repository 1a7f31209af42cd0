#include "media/vorbis_comments.h"

#include <gtest/gtest.h>

#include "support/temporary_drives.h"
#include "support/vorbis_bytes.h"

namespace qublet {
namespace {

class VorbisCommentsTest : public testing::Test {
 protected:
  bool Read(const std::string& content) {
    drives_.Write("a.ogg", content);
    return ReadVorbisComments(*files_, "c:\\a.ogg", comments_);
  }
  std::string Error(const std::string& content) {
    EXPECT_FALSE(Read(content));
    return comments_.ErrorText;
  }

  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  VorbisComments comments_;
};

const std::vector<std::string> kAll = {"TITLE=Title", "ARTIST=Artist", "ALBUM=Album",   "GENRE=Rock",
                                       "DATE=1999",   "COMMENT=Said",  "TRACKNUMBER=7", "ENCODED_USING=Encoder"};

TEST_F(VorbisCommentsTest, ReadsEveryField) {
  EXPECT_TRUE(Read(VorbisFile(kAll)));
  EXPECT_EQ(comments_.Title, "Title");
  EXPECT_EQ(comments_.Artist, "Artist");
  EXPECT_EQ(comments_.Album, "Album");
  EXPECT_EQ(comments_.Genre, "Rock");
  EXPECT_EQ(comments_.Date, "1999");
  EXPECT_EQ(comments_.Comment, "Said");
  EXPECT_EQ(comments_.Track, 7);
  EXPECT_EQ(comments_.EncodedUsing, "Encoder");
  EXPECT_EQ(comments_.ErrorText, "");
}

TEST_F(VorbisCommentsTest, KnowsTwoLengthsOfTheVendorString) {
  EXPECT_TRUE(Read(VorbisFile(kAll, 5000, 100, 29)));
  EXPECT_TRUE(Read(VorbisFile(kAll, 5000, 100, 32)));
  EXPECT_EQ(Error(VorbisFile(kAll, 5000, 100, 30)), "Vorbis header not found!");
}

TEST_F(VorbisCommentsTest, FailsBelow2048Bytes) {
  EXPECT_EQ(Error(VorbisFile(kAll, 2047)), "Error processing file.");
  EXPECT_EQ(Error(""), "Error processing file.");
}

TEST_F(VorbisCommentsTest, ThrowsTheFirstBlockAwayBelow4096Bytes) {
  EXPECT_EQ(Error(VorbisFile(kAll, 2048)), "Vorbis header not found!");
  EXPECT_EQ(Error(VorbisFile(kAll, 4095)), "Vorbis header not found!");
  EXPECT_TRUE(Read(VorbisFile(kAll, 4096)));
}

TEST_F(VorbisCommentsTest, RereadsFromTheWrongPlaceWhenTheStartIsInALaterBlock) {
  EXPECT_EQ(Error(VorbisFile(kAll, 9000, 2048 + 100)), "Vorbis header not closed!");
}

TEST_F(VorbisCommentsTest, NeedsTheSetupHeaderInTheSameBlock) {
  EXPECT_EQ(Error(VorbisFile({"TITLE=Title", "COMMENT=" + std::string(3000, 'x')}, 9000)),
            "Vorbis header not closed!");
}

TEST_F(VorbisCommentsTest, NeedsThreeZerosBehindALoneField) {
  EXPECT_TRUE(Read(VorbisFile({"TITLE=Title"})));
  EXPECT_EQ(comments_.Title, "Title");
  std::string file = VorbisFile({"TITLE=Title"});
  std::replace(file.end() - 4000, file.end(), '\0', 'x');
  file.replace(file.find("vorbis", 120) + 6, 500, 500, 'x');
  for (std::size_t i = file.find("TITLE"); i < file.size(); ++i) file[i] = file[i] == '\0' ? 'x' : file[i];
  EXPECT_EQ(Error(file), "Error processing file.");
}

TEST_F(VorbisCommentsTest, FailsWhereNoLastValueEndsBehindAField) {
  // The end mark stands in front of the field, three zeros behind it.
  std::string packet = VorbisPackets({"GENRE=x"});
  packet += "TITLE=Title" + std::string(20, '\0');
  EXPECT_EQ(Error("OggS" + packet + std::string(5000, 'x')), "Error processing file.");
}

TEST_F(VorbisCommentsTest, KeepsWhatWasFoundBeforeAFailure) {
  EXPECT_EQ(Error(VorbisFile({"TITLE=Title", "TRACKNUMBER=32768", "GENRE=Rock"})), "Error processing file.");
  EXPECT_EQ(comments_.Title, "Title");
  EXPECT_EQ(comments_.Genre, "");
  EXPECT_EQ(comments_.Track, 0);
}

TEST_F(VorbisCommentsTest, RoundsTheLeadingNumberOfTheTrack) {
  EXPECT_TRUE(Read(VorbisFile({"TRACKNUMBER=5/12"})));
  EXPECT_EQ(comments_.Track, 5);
  EXPECT_TRUE(Read(VorbisFile({"TRACKNUMBER=2.5"})));
  EXPECT_EQ(comments_.Track, 2);
  EXPECT_TRUE(Read(VorbisFile({"TRACKNUMBER=32767"})));
  EXPECT_EQ(comments_.Track, 32767);
  EXPECT_TRUE(Read(VorbisFile({"TRACKNUMBER=none"})));
  EXPECT_EQ(comments_.Track, 0);
}

TEST_F(VorbisCommentsTest, CountsFieldNamesInCapitalsOnly) {
  EXPECT_EQ(Error(VorbisFile({"title=Title", "Artist=Artist"})), "No tag information exists!");
  EXPECT_EQ(Error(VorbisFile({})), "No tag information exists!");
}

TEST_F(VorbisCommentsTest, TakesAFieldWhoseNameEndsAlike) {
  EXPECT_TRUE(Read(VorbisFile({"SUBTITLE=Below", "TITLE=Title"})));
  EXPECT_EQ(comments_.Title, "Below");
}

TEST_F(VorbisCommentsTest, RunsOnOverAFieldOf256Bytes) {
  EXPECT_TRUE(Read(VorbisFile({"TITLE=Title", "COMMENT=" + std::string(300, 'x'), "DATE=1999"})));
  EXPECT_GT(comments_.Title.size(), 300u);
  EXPECT_TRUE(comments_.Title.starts_with("Title"));
}

TEST_F(VorbisCommentsTest, ReadsEveryByteAsLatin1) {
  EXPECT_TRUE(Read(VorbisFile({"TITLE=Caf\xE9", "ARTIST=\xC3\xA9"})));
  EXPECT_EQ(comments_.Title, "Café");
  EXPECT_EQ(comments_.Artist, "Ã©");
}

TEST_F(VorbisCommentsTest, ClearsAllFieldsFirst) {
  EXPECT_TRUE(Read(VorbisFile(kAll)));
  EXPECT_FALSE(ReadVorbisComments(*files_, "c:\\missing.ogg", comments_));
  EXPECT_EQ(comments_.Title, "");
  EXPECT_EQ(comments_.Track, 0);
  EXPECT_EQ(comments_.ErrorText, "Error opening file! ");
}

}  // namespace
}  // namespace qublet
