#include <gtest/gtest.h>

#include "media/tag_object.h"
#include "support/cli_test_base.h"
#include "support/tag_bytes.h"

namespace qublet {
namespace {

// Comments, pictures and places in time by `qublet tag`.
class TagAdditionsTest : public CliTestBase {
 protected:
  TagAdditionsTest() {
    drives_.Write("a.mp3", TagBytes(3, CommentBytes(3, "eng", "about", "text")) + AudioBytes(20));
    drives_.Write("cover.jpg", kJpeg);
    drives_.Write("cover.png", kPng);
    std::filesystem::create_directory(drives_.C() / "out");
    std::filesystem::create_directory(drives_.C() / "program");
  }

  int Run(const std::vector<std::string>& arguments) { return CliTestBase::Run("tag", arguments); }
  TagObject Loaded(const std::string& name) const {
    TagObject tag(*files_);
    tag.ReadTags("c:\\" + name, false);
    return tag;
  }
  std::vector<TagComment> Comments() const { return Loaded("a.mp3").Comments().All(); }

  const std::string kJpeg = "\xFF\xD8\xFF\xE0 jpeg";
  const std::string kPng = "\x89PNG\r\n\x1A\n png";
};

TEST_F(TagAdditionsTest, AddsCommentsAtTheEnd) {
  EXPECT_EQ(Run({"--comment", "about=again", "--comment", "b=x=y", "c:\\a.mp3"}), 0);
  EXPECT_EQ(Comments(), (std::vector<TagComment>{{"about", "text"}, {"about", "again"}, {"b", "x=y"}}));
}

TEST_F(TagAdditionsTest, MakesATagForWhatItAdds) {
  drives_.Write("bare.mp3", AudioBytes());
  EXPECT_EQ(Run({"--comment", "b=", "--add-picture", "c:\\cover.png", "", "--add-position", "0:0:1", "c:\\bare.mp3"}),
            0);
  const TagObject tag = Loaded("bare.mp3");
  EXPECT_EQ(tag.Comments().All(), (std::vector<TagComment>{{"b", ""}, {"QUBLET_tpsidata", "000001000"}}));
  EXPECT_EQ(tag.Images().Count(), 1u);
}

TEST_F(TagAdditionsTest, RefusesCommentsWithoutADescriptionOrWithTheReservedOne) {
  const std::string before = drives_.Read("a.mp3");
  for (const char* comment : {"=text", "QUBLET_tpsidata=000001000", "nothing"}) {
    EXPECT_EQ(Run({"--comment", comment, "c:\\a.mp3"}), 2) << comment;
  }
  EXPECT_EQ(Run({"--comment"}), 2);
  EXPECT_EQ(drives_.Read("a.mp3"), before);
}

TEST_F(TagAdditionsTest, AddsPicturesByTheirOwnBytes) {
  drives_.Write("named wrong.bmp", kJpeg);
  EXPECT_EQ(
      Run({"--add-picture", "c:\\named wrong.bmp", "--json", "--add-picture", "c:\\cover.png", "", "c:\\a.mp3"}), 0);
  EXPECT_EQ(Loaded("a.mp3").Images().All(),
            (std::vector<TagPicture>{{"--json", "image/jpeg", Bytes(kJpeg.begin(), kJpeg.end())},
                                     {"", "image/png", Bytes(kPng.begin(), kPng.end())}}));
}

TEST_F(TagAdditionsTest, AddsNothingWhenAPictureIsOfAnotherKindOrMissing) {
  drives_.Write("x.webp", "RIFF____WEBPVP8 ");
  const std::string before = drives_.Read("a.mp3");
  EXPECT_EQ(Run({"--comment", "b=c", "--add-picture", "c:\\x.webp", "", "c:\\a.mp3"}), 1);
  EXPECT_EQ(err_.str(), "qublet: c:\\x.webp: no BMP, JPEG, GIF or PNG\n");
  EXPECT_EQ(Run({"--add-picture", "c:\\gone.jpg", "", "c:\\a.mp3"}), 1);
  EXPECT_EQ(Run({"--add-picture", "c:\\cover.jpg", "c:\\a.mp3"}), 2) << "then no file is left";
  EXPECT_EQ(Run({"c:\\a.mp3", "--add-picture", "c:\\cover.jpg"}), 2);
  EXPECT_EQ(drives_.Read("a.mp3"), before);
}

TEST_F(TagAdditionsTest, ExtractsPicturesAsTheyAreStored) {
  const auto picture = [](const std::string& type, const std::string& data) {
    return FrameBytes(3, "APIC", std::string(1, '\0') + type + std::string("\0\3\0", 3) + data);
  };
  drives_.Write("b.x.mp3", TagBytes(3, picture("image/png", kJpeg) + picture("-->", "http://x/y.png") +
                                           picture("image/png", kPng) + picture("image/png", "what")) +
                               AudioBytes());
  EXPECT_EQ(Run({"--extract-pictures", "c:\\out", "c:\\b.x.mp3", "c:\\a.mp3"}), 0);
  EXPECT_EQ(out_.str(), "c:\\out\\b.x-1.jpg\nc:\\out\\b.x-3.png\nc:\\out\\b.x-4.bin\n");
  EXPECT_EQ(err_.str(), "qublet: c:\\b.x.mp3: picture 2 is only a link\n");
  EXPECT_EQ(drives_.Read("out/b.x-1.jpg"), kJpeg);
  EXPECT_EQ(drives_.Read("out/b.x-3.png"), kPng);
  EXPECT_EQ(drives_.Read("out/b.x-4.bin"), "what");
}

TEST_F(TagAdditionsTest, ReplacesNoFileWhenItExtracts) {
  EXPECT_EQ(Run({"--add-picture", "c:\\cover.jpg", "", "--add-picture", "c:\\cover.png", "", "c:\\a.mp3"}), 0);
  drives_.Write("out/a-1.jpg", "mine");
  EXPECT_EQ(Run({"--extract-pictures", "c:\\out", "c:\\a.mp3"}), 1);
  EXPECT_EQ(err_.str(), "qublet: c:\\a.mp3: c:\\out\\a-1.jpg is there already\n");
  EXPECT_EQ(drives_.Read("out/a-1.jpg"), "mine");
  EXPECT_EQ(out_.str(), "c:\\out\\a-2.png\n");
  EXPECT_EQ(Run({"--extract-pictures", "c:\\nowhere", "c:\\a.mp3"}), 1);
  EXPECT_EQ(Run({"--extract-pictures", "c:\\cover.jpg", "c:\\a.mp3"}), 1);
}

TEST_F(TagAdditionsTest, AddsPositionsOnceAndPrintsThem) {
  EXPECT_EQ(Run({"--add-position", "0:02:00", "--add-position", "59:59:59", "--add-position", "0:2:0", "c:\\a.mp3"}),
            0);
  EXPECT_EQ(Run({"--positions", "c:\\a.mp3"}), 0);
  EXPECT_EQ(out_.str(), "1\t000120000\t2:00\n2\t215999000\t59:59:59\n");
  EXPECT_EQ(Run({"--json", "--positions", "c:\\a.mp3"}), 0);
  EXPECT_EQ(
      out_.str(),
      "{\"File\": \"c:\\\\a.mp3\", \"Positions\": [{\"Number\": 1, \"Record\": \"000120000\", \"Time\": \"2:00\"}, "
      "{\"Number\": 2, \"Record\": \"215999000\", \"Time\": \"59:59:59\"}]}\n");
}

TEST_F(TagAdditionsTest, ChangesNothingForAPositionThatIsThere) {
  drives_.Write("p.mp3", TagBytes(3, CommentBytes(3, "eng", "QUBLET_tpsidata", "000001000") +
                                         CommentBytes(3, "eng", "b", "c")) +
                             AudioBytes());
  const std::string before = drives_.Read("p.mp3");
  EXPECT_EQ(Run({"--add-position", "0:00:01", "c:\\p.mp3"}), 0);
  EXPECT_EQ(drives_.Read("p.mp3"), before);
}

TEST_F(TagAdditionsTest, RefusesWhatIsNoPosition) {
  for (const char* time : {"0:00:00", "60:00:00", "0:60:00", "0:00:60", "1:00", "a:b:c", "", "0:-1:0", "0:001:00"})
    EXPECT_EQ(Run({"--add-position", time, "c:\\a.mp3"}), 2) << time;
}

TEST_F(TagAdditionsTest, PrintsAndChangesNotAtTheSameTime) {
  const std::vector<std::vector<std::string>> wrong = {{"--positions", "--comment", "a=b"},
                                                       {"--json", "--add-position", "0:0:1"},
                                                       {"--extract-pictures", "c:\\out", "--set", "TIT2=x"},
                                                       {"--goto", "1", "--add-picture", "c:\\cover.jpg", ""},
                                                       {"--goto", "1", "--positions"},
                                                       {"--extract-pictures", "c:\\out", "--json"},
                                                       {"--goto", "0"},
                                                       {"--goto", "one"},
                                                       {"--goto", "1", "--goto", "2"},
                                                       {"--goto", "1", "c:\\a.mp3"}};
  for (std::vector<std::string> arguments : wrong) {
    arguments.emplace_back("c:\\a.mp3");
    EXPECT_EQ(Run(arguments), 2) << arguments[0];
  }
}

TEST_F(TagAdditionsTest, CanBeUndone) {
  const std::string before = drives_.Read("a.mp3");
  EXPECT_EQ(Run({"--comment", "b=c", "--add-picture", "c:\\cover.jpg", "", "--add-position", "0:0:1", "c:\\a.mp3"}),
            0);
  EXPECT_NE(drives_.Read("a.mp3"), before);
  EXPECT_EQ(Run({"--undo", "last"}), 0);
  EXPECT_EQ(drives_.Read("a.mp3"), before);
}

TEST_F(TagAdditionsTest, GoesToAPositionInThePlayer) {
  Run({"--add-position", "0:02:00", "--add-position", "0:0:5", "c:\\a.mp3"});
  EXPECT_EQ(Run({"--goto", "1", "c:\\a.mp3"}), 1) << "no program opens playlists";
  fakes_.associations.program = {"c:\\mpv", "mpv", true};
  EXPECT_EQ(Run({"--goto", "1", "c:\\a.mp3"}), 1);
  EXPECT_EQ(err_.str(), "qublet: c:\\a.mp3: no player came up\n");
  fakes_.players.running = "p";
  fakes_.players.state = kPlaying;
  EXPECT_EQ(Run({"--goto", "2", "c:\\a.mp3"}), 0);
  EXPECT_EQ(fakes_.players.calls.back(), "jump p 5000");
  EXPECT_EQ(drives_.Read("program/tmp.m3u"), "c:\\a.mp3\r\n");
  EXPECT_EQ(Run({"--goto", "3", "c:\\a.mp3"}), 1);
  EXPECT_EQ(err_.str(), "qublet: c:\\a.mp3: has no position 3\n");
  EXPECT_EQ(Run({"--goto", "1", "c:\\gone.mp3"}), 1);
}

}  // namespace
}  // namespace qublet
