#include <gtest/gtest.h>

#include "support/cli_test_base.h"
#include "support/tag_bytes.h"
#include "support/vorbis_bytes.h"

namespace qublet {
namespace {

class TagCommandTest : public CliTestBase {
 protected:
  int Run(const std::vector<std::string>& arguments) { return CliTestBase::Run("tag", arguments); }
};

const std::string kSong =
    TagBytes(3, TextFrameBytes(3, "TIT2", "Title") + CommentBytes(3, "eng", "about", "a\tb")) + AudioBytes(20);

TEST_F(TagCommandTest, PrintsTagsAndStreamFacts) {
  drives_.Write("a.mp3", kSong + Id3v1Bytes("Old"));
  EXPECT_EQ(Run({"c:\\a.mp3"}), 0);
  EXPECT_EQ(out_.str(),
            "File\tc:\\a.mp3\nV1Title\tOld\nV1Track\t0\nV1Genre\t255\nTIT2\tTitle\nComments\tabout\ta b\n"
            "StreamLength\t0.52125\nStreamVersion\t1.0\nStreamLayer\tIII\nStreamBitrate\t128\n"
            "StreamSamplerate\t44100\nStreamMode\tJoint Stereo\nStreamEmphasis\tNone\nStreamCrc\tfalse\n"
            "StreamCopyrighted\tfalse\nStreamOriginal\ttrue\n");
}

TEST_F(TagCommandTest, PrintsOneJsonObjectAFile) {
  drives_.Write("a.mp3", kSong);
  drives_.Write("b.mp3", "no music");
  EXPECT_EQ(Run({"--json", "c:\\a.mp3", "c:\\b.mp3"}), 0);
  EXPECT_NE(out_.str().find("\"ID3v1\": null, \"ID3v2\": {\"TIT2\": \"Title\""), std::string::npos);
  EXPECT_NE(out_.str().find("\"Comments\": [{\"Description\": \"about\", \"Text\": \"a\\u0009b\"}], \"Images\": []"),
            std::string::npos);
  EXPECT_TRUE(
      out_.str().ends_with("{\"File\": \"c:\\\\b.mp3\", \"ID3v1\": null, \"ID3v2\": null, \"Comments\": [], "
                           "\"Images\": [], \"Stream\": null, \"FileInfo\": [\"b.mp3\", \"File Size: 8 bytes\"], "
                           "\"MPEGInfo\": [\"Length: 0 Seconds\", \"Version: MPEG \", \"Encoding:  Kbit \", "
                           "\"Samplerate: 0 Hz\", \"CRCProtection: No\", \"Copyrighted: No\", \"Original: No\", "
                           "\"Emphasis: \", \"Mode: \", \"Layer: \"]}\n"));
}

TEST_F(TagCommandTest, SetsFieldsAndMakesTheTagThatTheyBelongTo) {
  drives_.Write("a.mp3", AudioBytes());
  EXPECT_EQ(Run({"--set", "TIT2=One = two", "--set", "Mood=Wild", "c:\\a.mp3"}), 0);
  EXPECT_EQ(Run({"c:\\a.mp3"}), 0);
  EXPECT_NE(out_.str().find("TIT2\tOne = two\nMood\tWild\n"), std::string::npos);
  EXPECT_EQ(out_.str().find("V1"), std::string::npos);
  EXPECT_EQ(Run({"--set", "V1Title=Old", "--set", "V1Genre=17", "c:\\a.mp3"}), 0);
  EXPECT_TRUE(drives_.Read("a.mp3").ends_with(AudioBytes() + Id3v1Bytes("Old", "", "", "", "", 17)));
}

TEST_F(TagCommandTest, RemovesTags) {
  drives_.Write("a.mp3", kSong + Id3v1Bytes("Old"));
  EXPECT_EQ(Run({"--remove", "v2", "c:\\a.mp3"}), 0);
  EXPECT_EQ(drives_.Read("a.mp3"), AudioBytes(20) + Id3v1Bytes("Old"));
  EXPECT_EQ(Run({"--remove", "v1", "--set", "TIT2=New", "c:\\a.mp3"}), 0);
  EXPECT_TRUE(drives_.Read("a.mp3").starts_with("ID3"));
  EXPECT_TRUE(drives_.Read("a.mp3").ends_with(AudioBytes(20)));
}

TEST_F(TagCommandTest, PrintsTitles) {
  drives_.Write("a.mp3", kSong);
  drives_.Write("b.OGG", VorbisFile({"TITLE=Title", "ARTIST=Artist"}));
  EXPECT_EQ(Run({"--title", "c:\\a.mp3", "c:\\b.OGG"}), 0);
  EXPECT_EQ(out_.str(), "Unknown Artist - Title\nArtist - Title\n");
}

TEST_F(TagCommandTest, PrintsVorbisComments) {
  drives_.Write("b.ogg", VorbisFile({"TITLE=Title"}));
  EXPECT_EQ(Run({"c:\\b.ogg"}), 0);
  EXPECT_EQ(out_.str(), "File\tc:\\b.ogg\nTitle\tTitle\nTrack\t0\n");
}

TEST_F(TagCommandTest, ChangesNothingButMp3Files) {
  for (const char* name : {"a.wav", "a.m3u", "a.flac", "a.ogg", "a", "mp3", "a.mp3.bak", "a.mp4"}) {
    const std::string path = std::string("c:\\") + name;
    drives_.Write(name, kSong);
    for (const std::vector<std::string>& words : {std::vector<std::string>{"--set", "TIT2=New"},
                                                  {"--set", "V1Title=New"},
                                                  {"--remove", "v1"},
                                                  {"--remove", "v2"}}) {
      EXPECT_EQ(Run({words[0], words[1], path}), 1) << name;
      EXPECT_EQ(err_.str(), "qublet: " + path + ": only .mp3 files have tags to change\n");
      EXPECT_EQ(drives_.Read(name), kSong);
    }
  }
  drives_.Write("A.MP3", kSong);
  EXPECT_EQ(Run({"--remove", "v2", "c:\\A.MP3"}), 0);
  EXPECT_EQ(drives_.Read("A.MP3"), AudioBytes(20));
}

TEST_F(TagCommandTest, SaysWhyATagIsNotWritten) {
  drives_.Write("a.mp3", "ID3\x03" + std::string(2, '\0') + std::string(4, '\x7F') + AudioBytes());
  EXPECT_EQ(Run({"--set", "TIT2=New", "c:\\a.mp3"}), 1);
  EXPECT_EQ(err_.str(), "qublet: c:\\a.mp3: the tag claims more than the file holds\n");
  EXPECT_EQ(Run({"--set", "V1Title=New", "c:\\a.mp3"}), 1);
  EXPECT_EQ(err_.str(), "qublet: c:\\a.mp3: the tag claims more than the file holds\n");
  drives_.Write("b.mp3", TagBytes(5, "new") + AudioBytes());
  EXPECT_EQ(Run({"--set", "TIT2=New", "c:\\b.mp3"}), 1);
  EXPECT_EQ(err_.str(), "qublet: c:\\b.mp3: its tag is of an unknown kind\n");
  drives_.Write("c.mp3", kSong);
  std::filesystem::permissions(drives_.C() / "c.mp3", std::filesystem::perms(0444));
  EXPECT_EQ(Run({"--set", "TIT2=New", "c:\\c.mp3"}), 1);
  EXPECT_EQ(err_.str(), "qublet: c:\\c.mp3: read-only\n");
}

TEST_F(TagCommandTest, LeavesAFileAsItWasWhenAChangeOfBothTagsIsRefused) {
  const std::string strange = TagBytes(5, "new") + AudioBytes();
  drives_.Write("a.mp3", strange);
  EXPECT_EQ(Run({"--set", "V1Title=New", "--set", "TIT2=New", "c:\\a.mp3"}), 1);
  EXPECT_EQ(drives_.Read("a.mp3"), strange);
  EXPECT_EQ(Run({"--set", "V1Title=New", "c:\\a.mp3"}), 0) << "the other tag isn't asked for";
  EXPECT_EQ(drives_.Read("a.mp3"), strange + Id3v1Bytes("New"));
}

TEST_F(TagCommandTest, GoesOnBehindAFileThatFails) {
  drives_.Write("a.mp3", kSong);
  EXPECT_EQ(Run({"--title", "c:\\missing.mp3", "c:\\a.mp3"}), 1);
  EXPECT_EQ(out_.str(), "Unknown Artist - Title\n");
  EXPECT_EQ(err_.str(), "qublet: c:\\missing.mp3: no such file or folder\n");
  EXPECT_EQ(Run({"--set", "V1Genre=256", "c:\\a.mp3"}), 1);
  EXPECT_EQ(drives_.Read("a.mp3"), kSong);
}

TEST_F(TagCommandTest, SaysWhyAFileDidNotChange) {
  const std::string too_short = TagBytes(3, std::string(1000, 'x')).substr(0, 20);
  drives_.Write("a.mp3", kSong);
  drives_.Write("short.mp3", too_short);
  std::filesystem::permissions(drives_.C() / "a.mp3", std::filesystem::perms(0444));
  EXPECT_EQ(Run({"--set", "TIT2=x", "c:\\a.mp3", "c:\\short.mp3", "c:\\", "q:\\a.mp3"}), 1);
  EXPECT_EQ(err_.str(),
            "qublet: c:\\a.mp3: read-only\n"
            "qublet: c:\\short.mp3: the tag claims more than the file holds\n"
            "qublet: c:\\: is a folder\n"
            "qublet: q:\\a.mp3: no such file or folder\n");
  EXPECT_EQ(drives_.Read("a.mp3"), kSong);
  EXPECT_EQ(drives_.Read("short.mp3"), too_short);
}

TEST_F(TagCommandTest, PrintsTheTextsOfTheInformationPages) {
  drives_.Write("a.ogg", VorbisFile({"TITLE=Tune"}));
  drives_.Write("a.wav", "abc");
  drives_.Write("a.wma", "abc");
  EXPECT_EQ(Run({"--json", "c:\\a.ogg"}), 0);
  EXPECT_NE(
      out_.str().find("\"OGGInfo\": [\"Title: Tune\", \"Artist: \", \"Album: \", \"Encoded with: \", \"Track: 0\"]"),
      std::string::npos);
  EXPECT_NE(out_.str().find("\"FileInfo\": [\"a.ogg\", \"File Size: "), std::string::npos);
  EXPECT_EQ(Run({"--json", "c:\\a.wav"}), 0);
  EXPECT_NE(out_.str().find("\"MPEGInfo\": [\"\", \"\""), std::string::npos);
  EXPECT_EQ(Run({"--json", "c:\\a.wma"}), 0);
  EXPECT_TRUE(out_.str().ends_with("\"FileInfo\": [\"\", \"\"]}\n"));
}

// --- what the tag editor can ---

TEST_F(TagCommandTest, CopiesTheWholeOfAFilesTags) {
  const std::string picture = FrameBytes(3, "APIC",
                                         std::string(1, '\0') + "image/png" + std::string(1, '\0') + "\x03p" +
                                             std::string(1, '\0') + "\x89PNG raw bytes");
  drives_.Write("a.mp3",
                TagBytes(3, TextFrameBytes(3, "TIT2", "Title") + CommentBytes(3, "eng", "about", "text") + picture) +
                    AudioBytes());
  drives_.Write("b.mp3", AudioBytes(20) + Id3v1Bytes("Old"));
  drives_.Write("c.mp3", AudioBytes(30));
  EXPECT_EQ(Run({"--copy-from", "c:\\a.mp3", "c:\\b.mp3", "c:\\c.mp3"}), 0);
  for (const char* name : {"b.mp3", "c.mp3"}) {
    EXPECT_EQ(Run({std::string("c:\\") + name}), 0);
    EXPECT_EQ(out_.str().find("V1"), std::string::npos) << "SOURCE lacks it";
    EXPECT_NE(out_.str().find("TIT2\tTitle\nComments\tabout\ttext\nImages\tp\t14\timage/png\n"), std::string::npos);
    EXPECT_NE(drives_.Read(name).find("\x89PNG raw bytes"), std::string::npos);
  }
}

TEST_F(TagCommandTest, CopiesNothingFromAFileWithoutTags) {
  drives_.Write("a.mp3", AudioBytes());
  drives_.Write("b.mp3", kSong);
  EXPECT_EQ(Run({"--copy-from", "c:\\a.mp3", "c:\\b.mp3"}), 1);
  EXPECT_EQ(err_.str(), "qublet: c:\\a.mp3: has no tag to copy\n");
  EXPECT_EQ(Run({"--copy-from", "c:\\gone.mp3", "c:\\b.mp3"}), 1);
  EXPECT_EQ(drives_.Read("b.mp3"), kSong);
  drives_.Write("b.wav", "abc");
  EXPECT_EQ(Run({"--copy-from", "c:\\b.mp3", "c:\\b.wav", "c:\\a.mp3"}), 1);
  EXPECT_EQ(drives_.Read("b.wav"), "abc");
  EXPECT_NE(drives_.Read("a.mp3"), AudioBytes()) << "the others are done";
}

TEST_F(TagCommandTest, ChangesAttributes) {
  drives_.Write("a.mp3", kSong);
  EXPECT_EQ(Run({"--attributes", "readonly=SET,readonly=CLR", "c:\\a.mp3"}), 2);
  EXPECT_EQ(Run({"--attributes", "readonly=SET", "c:\\a.mp3"}), 0);
  EXPECT_TRUE(files_->IsReadOnly("c:\\a.mp3"));
  EXPECT_EQ(Run({"--attributes", "readonly=CLR,archive=SET", "c:\\a.mp3", "c:\\gone.mp3"}), 1);
  EXPECT_FALSE(files_->IsReadOnly("c:\\a.mp3"));
  EXPECT_EQ(err_.str(), "qublet: c:\\gone.mp3: no such file or folder\n");
}

TEST_F(TagCommandTest, RemembersItsRunsAndUndoesThem) {
  drives_.Write("a.mp3", kSong);
  drives_.Write("b.mp3", kSong);
  EXPECT_EQ(Run({"--set", "TIT2=One", "c:\\a.mp3", "c:\\b.mp3"}), 0);
  EXPECT_EQ(Run({"--remove", "v2", "c:\\a.mp3"}), 0);
  EXPECT_EQ(Run({"--history"}), 0);
  const LocalTime now = fakes_.clock.Now();
  EXPECT_TRUE(out_.str().starts_with("2\t" + std::to_string(now.year) + "-"));
  EXPECT_NE(out_.str().find("\t1\tqublet\t\n1\t"), std::string::npos);
  EXPECT_EQ(Run({"--undo", "last"}), 0);
  EXPECT_EQ(Run({"--undo", "1"}), 0);
  EXPECT_EQ(drives_.Read("a.mp3"), kSong);
  EXPECT_EQ(drives_.Read("b.mp3"), kSong);
  EXPECT_EQ(Run({"--history"}), 0);
  EXPECT_NE(out_.str().find("\t2\tqublet\tundone\n"), std::string::npos);
  EXPECT_EQ(Run({"--history", "--json"}), 0);
  EXPECT_TRUE(out_.str().starts_with("{\"Run\": 2, \"Time\": \""));
  EXPECT_TRUE(out_.str().ends_with("\"Files\": 2, \"Origin\": \"qublet\", \"Undone\": true}\n"));
  EXPECT_EQ(Run({"--undo", "last"}), 1);
}

TEST_F(TagCommandTest, NamesTheFilesThatAnUndoLeavesAlone) {
  drives_.Write("a.mp3", kSong);
  EXPECT_EQ(Run({"--set", "TIT2=One", "c:\\a.mp3"}), 0);
  drives_.Write("a.mp3", AudioBytes());
  EXPECT_EQ(Run({"--undo", "1"}), 1);
  EXPECT_EQ(err_.str(), "qublet: c:\\a.mp3: its tags have changed since\n");
  EXPECT_EQ(drives_.Read("a.mp3"), AudioBytes());
  for (const char* run : {"7", "0", "-1", "x", "", "1x"}) EXPECT_EQ(Run({"--undo", run}), 1) << run;
}

TEST_F(TagCommandTest, RefusesOptionsThatDoNotGoTogether) {
  drives_.Write("a.mp3", kSong);
  const std::string file = "c:\\a.mp3";
  for (const Arguments& words : {Arguments{"--copy-from", file, "--json", file},
                                 {"--copy-from", file, "--title", file},
                                 {"--copy-from", file, "--set", "TIT2=x", file},
                                 {"--copy-from", file, "--remove", "v1", file},
                                 {"--copy-from", file, "--attributes", "archive=SET", file},
                                 {"--attributes", "archive=SET", "--json", file},
                                 {"--attributes", "archive=SET", "--remove", "v1", file},
                                 {"--attributes", "archive", file},
                                 {"--attributes", "archive=on", file},
                                 {"--attributes", "size=SET", file},
                                 {"--attributes", "", file},
                                 {"--copy-from", file},
                                 {"--attributes", "archive=SET"},
                                 {"--undo"},
                                 {"--undo", "1", file},
                                 {"--history", file},
                                 {"--history", "--undo", "1"},
                                 {"--undo", "1", "--json"},
                                 {"--history", "--title"}}) {
    EXPECT_EQ(Run(words), 2) << words[0] << " " << err_.str();
  }
  EXPECT_EQ(drives_.Read("a.mp3"), kSong);
}

TEST_F(TagCommandTest, RefusesWrongUse) {
  EXPECT_EQ(Run({}), 2);
  EXPECT_EQ(Run({"--set", "TIT9=x", "c:\\a.mp3"}), 2);
  EXPECT_EQ(Run({"--set", "TIT2", "c:\\a.mp3"}), 2);
  EXPECT_EQ(err_.str(), "qublet: tag: --set wants FIELD=TEXT, not TIT2\n");
  EXPECT_EQ(Run({"--set"}), 2);
  EXPECT_EQ(Run({"--remove", "v3", "c:\\a.mp3"}), 2);
  EXPECT_EQ(Run({"--unknown", "c:\\a.mp3"}), 2);
  EXPECT_TRUE(err_.str().starts_with("qublet: tag: unknown option"));
}

}  // namespace
}  // namespace qublet
