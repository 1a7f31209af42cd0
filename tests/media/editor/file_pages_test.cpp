#include "media/editor/file_pages.h"

#include "support/editor_test_base.h"

namespace qublet {
namespace {

class FilePagesTest : public EditorTestBase {
 protected:
  FilePagesTest() {
    mpeg_.fill(kUnknownLabel);
    ogg_.fill(kUnknownLabel);
  }
  FilePage page_;
  MpegLabels mpeg_;
  OggLabels ogg_;
};

TEST(TwoDecimals, RoundsTheDecimalNumberTiesToEven) {
  EXPECT_EQ(TwoDecimals(180.25), "180.25");
  EXPECT_EQ(TwoDecimals(180), "180");
  EXPECT_EQ(TwoDecimals(0.005), "0");
  EXPECT_EQ(TwoDecimals(0.015), "0.02");
  EXPECT_EQ(TwoDecimals(1.005), "1");
  EXPECT_EQ(TwoDecimals(2.675), "2.68");
  EXPECT_EQ(TwoDecimals(0.0051), "0.01");
  EXPECT_EQ(TwoDecimals(9.996), "10");
  EXPECT_EQ(TwoDecimals(1234567.891), "1234567.89");
}

TEST_F(FilePagesTest, ShowNameLengthAndAttributesOfAFile) {
  drives_.WriteSparse("m/a.mp3", "", 1234567);
  ShowFileInfo(*files_, "c:\\m\\a.mp3", ",", page_);
  EXPECT_EQ(page_.FileInfo[0], "a.mp3");
  EXPECT_EQ(page_.FileInfo[1], "File Size: 1,234,567 bytes");
  EXPECT_FALSE(page_.read_only);
  EXPECT_TRUE(page_.archive);
  EXPECT_TRUE(page_.attributes_enabled);
  SetReadOnly("m/a.mp3", true);
  ShowFileInfo(*files_, "c:\\m\\a.mp3", ",", page_);
  EXPECT_TRUE(page_.read_only);
  drives_.Write("empty.mp3", "");
  ShowFileInfo(*files_, "c:\\empty.mp3", ",", page_);
  EXPECT_EQ(page_.FileInfo[1], "File Size:  bytes");
}

TEST_F(FilePagesTest, ShowOfAMissingFileOnlyItsName) {
  page_.read_only = page_.archive = true;
  ShowFileInfo(*files_, "c:\\gone.mp3", ",", page_);
  EXPECT_EQ(page_.FileInfo, (std::array<std::string, 2>{"gone.mp3", "File Size: ???? Bytes"}));
  EXPECT_FALSE(page_.read_only || page_.archive || page_.attributes_enabled);
}

TEST_F(FilePagesTest, ShowTheStreamOfAConstantRate) {
  const StreamFacts stream{180.25, "III", "1.0", "128", 44100, false, true, true, "None", "Joint Stereo"};
  ShowMpegInfo(*files_, "c:\\a.mp3", stream, mpeg_);
  EXPECT_EQ(mpeg_, (MpegLabels{"Length: 180.25 Seconds", "Version: MPEG 1.0", "Encoding: 128 Kbit ",
                               "Samplerate: 44100 Hz", "CRCProtection: No", "Copyrighted: Yes", "Original: Yes",
                               "Emphasis: None", "Mode: Joint Stereo", "Layer: III"}));
}

TEST_F(FilePagesTest, WorkOutTheLengthOfAVaryingRateFromTheFile) {
  drives_.WriteSparse("a.mp3", "", 1'280'000);
  StreamFacts stream;
  stream.StreamLength = 99;
  stream.StreamBitrate = "100 Kbit (VBR)";
  ShowMpegInfo(*files_, "c:\\a.mp3", stream, mpeg_);
  EXPECT_EQ(mpeg_[0], "Length: 100 Seconds");
  EXPECT_EQ(mpeg_[2], "Encoding: 100 Kbit (VBR)");
}

TEST_F(FilePagesTest, KeepTheirTextsWhenTheLengthCanNotBeWorkedOut) {
  StreamFacts stream;
  stream.StreamBitrate = "100 Kbit (VBR)";
  ShowMpegInfo(*files_, "c:\\gone.mp3", stream, mpeg_);
  EXPECT_EQ(mpeg_[0], kUnknownLabel);
  EXPECT_EQ(mpeg_[9], kUnknownLabel);
  ShowMpegInfo(*files_, "", stream, mpeg_);
  for (const std::string& label : mpeg_) EXPECT_EQ(label, "");
}

TEST_F(FilePagesTest, ShowAWavFile) {
  drives_.WriteSparse("a.wav", "", 441'000 * 4 / 10);
  WavHeader header;
  header.FormatTag = 1;
  header.Channels = 2;
  header.SampleRate = 44100;
  header.BitsPerSample = 16;
  ShowWavInfo(*files_, "c:\\a.wav", header, mpeg_);
  EXPECT_EQ(mpeg_,
            (MpegLabels{"Length: 1 Seconds", "Sample Res: 16 bits/sample", "Bitrate: 1411 Kbit ",
                        "Samplerate: 44100 Hz", "Format: PCM", "", "", "", "Channels: 2", "Stereo Interleaved"}));
  header.Channels = 1;
  header.FormatTag = 7;
  ShowWavInfo(*files_, "c:\\a.wav", header, mpeg_);
  EXPECT_EQ(mpeg_[9], "Mono");
  EXPECT_EQ(mpeg_[4], "Format: -");
  header.Channels = 6;
  ShowWavInfo(*files_, "c:\\a.wav", header, mpeg_);
  EXPECT_EQ(mpeg_[8], "Channels: 6");
  EXPECT_EQ(mpeg_[9], "Mono") << "unchanged";
}

TEST_F(FilePagesTest, StopAtTheFirstLabelOfAWavFileThatFails) {
  drives_.Write("a.wav", "abc");
  ShowWavInfo(*files_, "c:\\a.wav", {}, mpeg_);
  EXPECT_EQ(mpeg_, (MpegLabels{"????", "????", "????", "????", "????", "", "", "", "????", "????"}));
  WavHeader header;
  header.Channels = 30000;
  header.SampleRate = 2'000'000'000;
  header.BitsPerSample = 32;
  ShowWavInfo(*files_, "c:\\a.wav", header, mpeg_);
  EXPECT_EQ(mpeg_[0], "????");
  ShowWavInfo(*files_, "", header, mpeg_);
  for (const std::string& label : mpeg_) EXPECT_EQ(label, "");
}

TEST_F(FilePagesTest, ShowVorbisComments) {
  VorbisComments comments;
  comments.Title = "T";
  comments.Artist = "R";
  comments.Album = "L";
  comments.EncodedUsing = "E";
  comments.Track = 7;
  comments.ErrorText = "wrong";
  ShowOggInfo("c:\\a.ogg", comments, ogg_);
  EXPECT_EQ(ogg_, (OggLabels{"Title: T", "Artist: R", "Album: L", "Encoded with: E", "Track: 7"}));
  ShowOggInfo("", comments, ogg_);
  EXPECT_EQ(ogg_, (OggLabels{"wrong", "????", "????", "????", "????"}));
  ShowOggInfo("c:\\a.ogg", {}, ogg_);
  EXPECT_EQ(ogg_, (OggLabels{"Title: ", "Artist: ", "Album: ", "Encoded with: ", "Track: 0"}));
}

}  // namespace
}  // namespace qublet
