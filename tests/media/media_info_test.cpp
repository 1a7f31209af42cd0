#include "media/media_info.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <thread>
#include <vector>

#include "support/mpeg_frames.h"
#include "support/temporary_drives.h"

namespace qublet {
namespace {

Bytes LittleEndian(std::uint64_t value, std::size_t length) {
  Bytes bytes(length);
  for (std::size_t i = 0; i < length; ++i) bytes[i] = static_cast<std::uint8_t>(value >> (8 * i));
  return bytes;
}

std::string Wav(std::uint16_t tag, std::uint16_t channels, std::uint32_t rate, std::uint16_t bits) {
  return TextOf(Joined({BytesOf("RIFF....WAVEfmt ...."), LittleEndian(tag, 2), LittleEndian(channels, 2),
                        LittleEndian(rate, 4), LittleEndian(0, 6), LittleEndian(bits, 2), BytesOf("data....")}));
}

class GetMediaInfoTest : public testing::Test {
 protected:
  MediaInfo Info(const std::string& path) const {
    MediaInfo info;
    GetMediaInfo(*files_, path, info);
    return info;
  }

  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
};

TEST_F(GetMediaInfoTest, DressesTheFactsOfAnMp3) {
  drives_.Write("music/a.mp3", TextOf(Joined({Frames(100), Id3v1TagOf()})));
  const MediaInfo info = Info("c:\\music\\a.mp3");
  EXPECT_TRUE(info.Valid);
  EXPECT_EQ(info.FileName, "a.mp3");
  EXPECT_EQ(info.Path, "c:\\music\\");
  EXPECT_EQ(info.Size, 41'828);
  EXPECT_EQ(info.Length, 3) << "2.606 seconds";
  EXPECT_EQ(info.ID, "MPEG 1.0");
  EXPECT_EQ(info.Layer, "Layer III");
  EXPECT_EQ(info.Bitrate, "128 Kbit");
  EXPECT_EQ(info.Samplerate, "44100 Hz");
  EXPECT_EQ(info.Mode, "Joint Stereo");
}

TEST_F(GetMediaInfoTest, KeepsTheTextOfAVaryingRateAndTheLengthOfTheStream) {
  drives_.Write("a.mp3", TextOf(VaryingRate()));
  const MediaInfo info = Info("c:\\a.mp3");
  EXPECT_TRUE(info.Valid);
  EXPECT_EQ(info.Bitrate, "102 Kbit (VBR)");
  EXPECT_EQ(info.Length, 26);
}

TEST_F(GetMediaInfoTest, RoundsTheLengthHalfToEven) {
  const Bytes head{0xFF, 0xFF, 0x48, 0x04};
  drives_.Write("even.mp3", TextOf(Frames(208, head, 192) /* 2.496 s */));
  drives_.Write("half.mp3", TextOf(Joined({Frames(208, head, 192), Bytes(64)}) /* 2.5 s */));
  drives_.Write("odd.mp3", TextOf(Joined({Frames(291, head, 192), Bytes(128)}) /* 3.5 s */));
  EXPECT_EQ(Info("c:\\even.mp3").Length, 2);
  EXPECT_EQ(Info("c:\\half.mp3").Length, 2);
  EXPECT_EQ(Info("c:\\odd.mp3").Length, 4);
}

TEST_F(GetMediaInfoTest, GoesByTheExtensionInAnyCase) {
  drives_.Write("A.MP3", TextOf(Frames(10)));
  drives_.Write("B.WAV", Wav(1, 1, 8000, 8));
  drives_.Write("C.Ogg", "x");
  EXPECT_EQ(Info("c:\\A.MP3").ID, "MPEG 1.0");
  EXPECT_EQ(Info("c:\\B.WAV").ID, "PCM");
  EXPECT_EQ(Info("c:\\C.Ogg").ID, "OGG Vorbis");
}

TEST_F(GetMediaInfoTest, NeverLooksIntoAFileForItsKind) {
  drives_.Write("song.mp3", Wav(1, 2, 44100, 16));
  drives_.Write("song.wma", TextOf(Frames(10)));
  EXPECT_FALSE(Info("c:\\song.mp3").Valid);
  EXPECT_EQ(Info("c:\\song.wma").ID, "");
}

TEST_F(GetMediaInfoTest, LabelsOggAndVqfOnly) {
  drives_.Write("a.ogg", std::string(500'000, 'x'));
  drives_.Write("a.vqf", "x");
  const MediaInfo ogg = Info("c:\\a.ogg");
  EXPECT_TRUE(ogg.Valid);
  EXPECT_EQ(ogg.ID, "OGG Vorbis");
  EXPECT_EQ(ogg.Size, 500'000);
  EXPECT_EQ(ogg.Length, 0);
  EXPECT_EQ(ogg.Layer + ogg.Bitrate + ogg.Samplerate + ogg.Mode, "");
  const MediaInfo vqf = Info("c:\\a.vqf");
  EXPECT_TRUE(vqf.Valid);
  EXPECT_EQ(vqf.ID, "VQF File");
  EXPECT_EQ(vqf.Length, 0);
}

TEST_F(GetMediaInfoTest, GivesNameFolderAndSizeOfAnyOtherFile) {
  drives_.Write("README", "hello");
  drives_.Write("a.wma", "hello!");
  const MediaInfo plain = Info("c:\\README");
  EXPECT_TRUE(plain.Valid);
  EXPECT_EQ(plain.Size, 5);
  EXPECT_EQ(plain.ID + plain.Layer + plain.Bitrate + plain.Samplerate + plain.Mode, "");
  const MediaInfo wma = Info("c:\\a.wma");
  EXPECT_TRUE(wma.Valid);
  EXPECT_EQ(wma.Size, 6);
  EXPECT_EQ(wma.ID + wma.Layer + wma.Bitrate + wma.Samplerate + wma.Mode, "");
}

TEST_F(GetMediaInfoTest, ReadsTheHeadOfAWav) {
  drives_.WriteSparse("a.wav", Wav(1, 2, 44100, 16), 1'764'044);
  const MediaInfo info = Info("c:\\a.wav");
  EXPECT_TRUE(info.Valid);
  EXPECT_EQ(info.ID, "PCM");
  EXPECT_EQ(info.Layer, "16 bits/sample");
  EXPECT_EQ(info.Bitrate, "1411 Kbit");
  EXPECT_EQ(info.Samplerate, "44100 Hz");
  EXPECT_EQ(info.Mode, "Stereo Interleaved");
  EXPECT_EQ(info.Length, 10);
}

TEST_F(GetMediaInfoTest, ReadsAMonoWavOf8Bits) {
  drives_.WriteSparse("a.wav", Wav(1, 1, 8000, 8), 80'000);
  const MediaInfo info = Info("c:\\a.wav");
  EXPECT_EQ(info.Bitrate, "64 Kbit");
  EXPECT_EQ(info.Layer, "8 bits/sample");
  EXPECT_EQ(info.Mode, "Mono");
  EXPECT_EQ(info.Length, 10);
}

TEST_F(GetMediaInfoTest, LeavesTheModeOfSixChannelsEmpty) {
  drives_.WriteSparse("a.wav", Wav(1, 6, 48000, 16), 2'880'000);
  const MediaInfo info = Info("c:\\a.wav");
  EXPECT_TRUE(info.Valid);
  EXPECT_EQ(info.Mode, "");
  EXPECT_EQ(info.Length, 5);
}

TEST_F(GetMediaInfoTest, MarksAWavThatIsNotPcm) {
  drives_.WriteSparse("a.wav", Wav(0xFFFE, 2, 44100, 16), 1000);
  EXPECT_EQ(Info("c:\\a.wav").ID, "-");
}

TEST_F(GetMediaInfoTest, TakesTheBytesOfAnyFileNamedWavForItsHead) {
  drives_.Write("a.wav", "This text is long enough to be taken for a head of thirty-six bytes.");
  const MediaInfo info = Info("c:\\a.wav");
  EXPECT_EQ(info.ID, "-");
  EXPECT_EQ(info.Samplerate, "544175136 Hz") << "the letters \" to \"";
  EXPECT_FALSE(info.Valid) << "the bit rate doesn't fit";
}

TEST_F(GetMediaInfoTest, FailsForAWavOf256MebibytesAfterItsTexts) {
  drives_.WriteSparse("less.wav", Wav(1, 2, 44100, 16), 268'435'455);
  EXPECT_TRUE(Info("c:\\less.wav").Valid);
  EXPECT_EQ(Info("c:\\less.wav").Length, 1522);
  drives_.WriteSparse("a.wav", Wav(1, 2, 44100, 16), 268'435'456);
  const MediaInfo info = Info("c:\\a.wav");
  EXPECT_FALSE(info.Valid);
  EXPECT_EQ(info.Size, 268'435'456);
  EXPECT_EQ(info.ID, "PCM");
  EXPECT_EQ(info.Samplerate, "44100 Hz");
  EXPECT_EQ(info.Bitrate, "1411 Kbit");
  EXPECT_EQ(info.Mode, "Stereo Interleaved");
  EXPECT_EQ(info.Length, 0);
  EXPECT_EQ(info.Layer, "");
}

TEST_F(GetMediaInfoTest, FailsForAWavOfZerosAfterItsTexts) {
  drives_.Write("a.wav", std::string(100, '\0'));
  const MediaInfo info = Info("c:\\a.wav");
  EXPECT_FALSE(info.Valid);
  EXPECT_EQ(info.ID, "-");
  EXPECT_EQ(info.Samplerate, "0 Hz");
  EXPECT_EQ(info.Bitrate, " Kbit");
  EXPECT_EQ(info.Mode, "");
  EXPECT_EQ(info.Layer, "");
  EXPECT_EQ(info.Length, 0);
}

TEST_F(GetMediaInfoTest, KeepsTheSizeOfAnMp3WithoutAFrame) {
  drives_.Write("a.mp3", "no song");
  const MediaInfo info = Info("c:\\a.mp3");
  EXPECT_FALSE(info.Valid);
  EXPECT_EQ(info.Size, 7);
  EXPECT_EQ(info.FileName, "a.mp3");
  EXPECT_EQ(info.Path, "c:\\");
  EXPECT_EQ(info.ID + info.Layer + info.Bitrate + info.Samplerate + info.Mode, "");
}

TEST_F(GetMediaInfoTest, FailsForAnEmptyMp3WithSizeZero) {
  drives_.Write("a.mp3", "");
  EXPECT_FALSE(Info("c:\\a.mp3").Valid);
  EXPECT_EQ(Info("c:\\a.mp3").Size, 0);
}

TEST_F(GetMediaInfoTest, FailsForWhatIsNotThereAndForAFolder) {
  std::filesystem::create_directories(drives_.C() / "folder.mp3");
  for (const std::string path :
       {"c:\\missing.mp3", "c:\\missing.wav", "c:\\missing.txt", "x:\\a.mp3", "c:\\folder.mp3", "c:\\", ""}) {
    const MediaInfo info = Info(path);
    EXPECT_FALSE(info.Valid) << path;
    EXPECT_EQ(info.Size, 0) << path;
  }
  EXPECT_EQ(Info("c:\\no\\missing.mp3").FileName, "missing.mp3");
  EXPECT_EQ(Info("c:\\no\\missing.mp3").Path, "c:\\no\\");
}

TEST_F(GetMediaInfoTest, FailsForAFileOfTwoGibibytes) {
  drives_.WriteSparse("less.ogg", "", 2'147'483'647);
  drives_.WriteSparse("a.ogg", "", 2'147'483'648);
  drives_.WriteSparse("a.mp3", TextOf(Frames(10)), 2'147'483'648);
  EXPECT_EQ(Info("c:\\less.ogg").Size, 2'147'483'647);
  EXPECT_TRUE(Info("c:\\less.ogg").Valid);
  EXPECT_FALSE(Info("c:\\a.ogg").Valid);
  EXPECT_EQ(Info("c:\\a.ogg").Size, 0);
  EXPECT_FALSE(Info("c:\\a.mp3").Valid);
  EXPECT_EQ(Info("c:\\a.mp3").Size, 0);
  EXPECT_EQ(Info("c:\\a.mp3").ID, "");
}

TEST_F(GetMediaInfoTest, LowersTheDriveLetterOfTheFolderAlone) {
  drives_.Write("Music/Song.ogg", "x");
  const MediaInfo info = Info("C:\\Music\\Song.ogg");
  EXPECT_TRUE(info.Valid);
  EXPECT_EQ(info.Path, "c:\\Music\\");
  EXPECT_EQ(info.FileName, "Song.ogg");
}

TEST_F(GetMediaInfoTest, TakesTheNameOutOfAFolderThatBearsIt) {
  drives_.Write("a.ogg/b/a.ogg", "x");
  const MediaInfo info = Info("c:\\a.ogg\\b\\a.ogg");
  EXPECT_TRUE(info.Valid);
  EXPECT_EQ(info.Path, "c:\\\\b\\");
}

TEST_F(GetMediaInfoTest, CompletesABareNameFromTheCurrentFolder) {
  drives_.Write("music/a.ogg", "x");
  files_->SetCurrentFolder("c:\\music");
  const MediaInfo info = Info("a.ogg");
  EXPECT_TRUE(info.Valid);
  EXPECT_EQ(info.Path, "c:\\music\\");
  EXPECT_EQ(info.FileName, "a.ogg");
}

TEST_F(GetMediaInfoTest, CompletesARelativeFolderFromTheCurrentFolder) {
  drives_.Write("music/rock/a.ogg", "x");
  files_->SetCurrentFolder("c:\\music");
  EXPECT_EQ(Info("rock\\a.ogg").Path, "c:\\music\\rock\\");
}

TEST_F(GetMediaInfoTest, CompletesFromTheRootOfADrive) {
  drives_.Write("a.ogg", "x");
  files_->SetCurrentFolder("c:\\");
  EXPECT_EQ(Info("a.ogg").Path, "c:\\");
}

TEST_F(GetMediaInfoTest, DoesNotCompleteTheFolderOfAFileThatFailed) {
  EXPECT_EQ(Info("missing.ogg").Path, "\\");
  EXPECT_EQ(Info("rock\\missing.ogg").Path, "rock\\");
}

TEST_F(GetMediaInfoTest, LeavesTheFieldsOfOtherKindsInARecordUsedAgain) {
  drives_.Write("a.ogg", "x");
  MediaInfo info;
  info.Valid = true;
  info.Mode = "Mono";
  info.Length = 7;
  GetMediaInfo(*files_, "c:\\missing.ogg", info);
  EXPECT_FALSE(info.Valid);
  GetMediaInfo(*files_, "c:\\a.ogg", info);
  EXPECT_TRUE(info.Valid);
  EXPECT_EQ(info.Mode, "Mono");
  EXPECT_EQ(info.Length, 7);
}

TEST_F(GetMediaInfoTest, MayBeCalledBySeveralThreadsAtOnce) {
  drives_.Write("a.mp3", TextOf(VaryingRate()));
  drives_.Write("b.mp3", TextOf(Frames(100)));
  std::vector<int> right(4);
  std::vector<std::thread> workers;
  workers.reserve(right.size());
  for (int& count : right) {
    workers.emplace_back([&] {
      for (int i = 0; i < 250; ++i) {
        count += Info("a.mp3").Bitrate == "102 Kbit (VBR)";
        count += Info("c:\\b.mp3").Bitrate == "128 Kbit";
      }
    });
  }
  for (std::thread& worker : workers) worker.join();
  EXPECT_EQ(right, std::vector<int>(4, 500));
}

TEST(IsVbr, IgnoresCase) {
  EXPECT_TRUE(IsVbr("102 Kbit (VBR)"));
  EXPECT_TRUE(IsVbr("102 vbr"));
  EXPECT_FALSE(IsVbr("128 Kbit"));
  EXPECT_FALSE(IsVbr(""));
}

TEST(VbrLength, TakesAKilobitFor1024Bits) {
  EXPECT_EQ(VbrLength(1'024'000, "100 Kbit (VBR)"), 80);
  EXPECT_EQ(VbrLength(4'000'000, "192 Kbit (VBR)"), 163) << "162.76 seconds";
}

TEST(VbrLength, RoundsHalfToEven) {
  EXPECT_EQ(VbrLength(2560, "8 Kbit (VBR)"), 2) << "2.5 seconds";
  EXPECT_EQ(VbrLength(3584, "8 Kbit (VBR)"), 4) << "3.5 seconds";
}

TEST(VbrLength, FailsBeyond32BitsAndWithoutARate) {
  EXPECT_EQ(VbrLength(268'435'455, "128 Kbit (VBR)"), 16384);
  EXPECT_THROW(VbrLength(268'435'456, "128 Kbit (VBR)"), Failure);
  EXPECT_THROW(VbrLength(1000, "2097152 Kbit (VBR)"), Failure);
  EXPECT_THROW(VbrLength(1000, "0 Kbit (VBR)"), Failure);
  EXPECT_THROW(VbrLength(1000, " Kbit (VBR)"), Failure);
  EXPECT_THROW(VbrLength(1000, "fast VBR"), Failure);
}

}  // namespace
}  // namespace qublet
