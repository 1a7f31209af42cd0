#include "support/report_test_base.h"

namespace qublet {
namespace {

// Whole reports, held against what was written by hand.

class ReportPages : public ReportTestBase {};

const std::string kEnd = "\r\n";

// A row of the page in Verdana.
std::string Row(const std::string& colour, const std::vector<std::string>& cells, const std::string& link) {
  std::string row = "<tr>" + kEnd;
  for (const std::string& cell : cells)
    row += "<td" + colour + "><font face='Verdana' size='0'>" + cell + "</font></td>" + kEnd;
  return row + "<td" + colour + "><font face='Webdings' size='2'><a href=" + link + ">X</a></font></td>" + kEnd +
         "</tr>" + kEnd;
}

std::string HeaderCells(const std::vector<std::string>& keys, const std::string& font) {
  std::string cells;
  for (const std::string& key : keys) cells += "<td>" + font + "<b>" + key + "</b></font></td>" + kEnd;
  return cells;
}

TEST_F(ReportPages, OfTwoSongsWithTheDefaults) {
  const std::string wanted =
      "<head><html><title>" + std::string(200, ' ') + "</title></head><body>" + kEnd +
      "<center><table border=0 cellspacing=1 cellpadding=3>" +
      HeaderCells({"FileName",     "Time",        "Size",           "ID",          "Layer",        "BitRate",
                   "SampleRate",   "Mode",        "CRC Protection", "Emphasis",    "Copyrighted",  "Id3v1 Title",
                   "Id3v1 Artist", "Id3v1 Album", "Id3v1 Year",     "Id3v2 Title", "Id3v2 Artist", "Id3v2 Album",
                   "Id3v2 Year",   "Link"},
                  "<font face='Verdana' size='0'>") +
      kEnd +
      Row(" bgcolor=#DDDDDD",
          {"My.Song", "0:03", "41 Kb", "1.0", "III", "128", "44100 Hz", "Joint Stereo", "No", "None", "No", "T1",
           "A1", "B1", "1999", "T2", "A2", "B2", "2001"},
          "my.song.mp3") +
      kEnd +
      Row(" bgcolor=#EEEEEE",
          {"Ab Cd", "0:10", "156 Kb", "1.0", "III", "128", "44100 Hz", "Joint Stereo", "No", "None", "No", "-", "-",
           "-", "-", "-", "-", "-", "-"},
          "a%20b/AB%20CD.MP3") +
      kEnd +
      "<tr><td colspan=20><font face='Verdana' size='0'>2 Items, Total Playing Time 0:13, [197 Kb] page created "
      "07:05:01 [03-09-2004]</font></td></tr>" +
      kEnd + "</table></center></body></html>" + kEnd;
  EXPECT_EQ(Report({"c:\\music\\my.song.mp3", "c:\\music\\a b\\AB CD.MP3"}), wanted);
}

TEST_F(ReportPages, OfEveryKindOfFileWithEverything) {
  settings_.Title = "My\r\nSongs";
  settings_.Description = "  two\r\nlines ";
  settings_.TableWidth = "2000";
  settings_.TableBorder = "4";
  settings_.TableSpacing = "5";
  settings_.TablePadding = "6";
  settings_.FontName = "Courier New";
  settings_.FontSize = 2;
  settings_.ColorTable = false;
  Select({2, 1, 3, 4, 5, 6, 7, 9, 13, 21});
  const std::string font = "<font face='Courier New' size='2'>";
  const auto row = [&](const std::vector<std::string>& cells, const std::string& link) {
    std::string text = "<tr>" + kEnd;
    for (const std::string& cell : cells) text += "<td>" + font + cell + "</font></td>" + kEnd;
    return text + "<td><font face='Webdings' size='4'><a href=" + link + ">X</a></font></td>" + kEnd + "</tr>" +
           kEnd + kEnd;
  };
  const std::string wanted =
      "<head><html><title>My\r\nSongs" + std::string(191, ' ') +
      "</title></head><body><p align=center><font face='Courier New' size='3'><b>My<br>Songs</b></font></p>" + kEnd +
      "<p align=center><font face='Courier New' size='2'>two<br>lines</font></p>" + kEnd + kEnd +
      "<center><table border=4 width=2000 cellspacing=5 cellpadding=6>" +
      HeaderCells({"Folder", "FileName", "Time", "Size", "ID", "Layer", "BitRate", "Mode", "Id3v1 Title", "Link"},
                  font) +
      kEnd + row({".", "My.Song", "0:03", "41 Kb", "1.0", "III", "128", "Joint Stereo", "T1"}, "my.song.mp3") +
      row({".", "Gone", "-", "Not found!", "-", "-", "-", "-", "-"}, "") +
      row({".", "X", "-", "5,000 Bytes", "OGG Vorbis", "-", "-", "-", "OT"}, "x.ogg") +
      row({".", "Y", "-", "20 Kb", "-", "-", "-", "-", "-"}, "y.wma") +
      row({".", "Z", "0:01", "172 Kb", "PCM", "16 bps", "1411", "Stereo", "-"}, "z.wav") +
      row({"a b", "Ab Cd", "0:10", "156 Kb", "1.0", "III", "128", "Joint Stereo", "-"}, "a%20b/AB%20CD.MP3") +
      // Four times three seconds: those of the first song count again for what has no length of its own.
      "<tr><td colspan=10>" + font +
      "6 Items, Total Playing Time >0:23, [>394 Kb] page created 07:05:01 [03-09-2004]</font></td></tr>" + kEnd +
      "</table></center></body></html>" + kEnd;
  EXPECT_EQ(Report({"c:\\music\\my.song.mp3", "c:\\music\\gone.mp3", "c:\\music\\x.ogg", "c:\\music\\y.wma",
                    "c:\\music\\z.wav", "c:\\music\\a b\\AB CD.MP3"}),
            wanted);
}

TEST_F(ReportPages, InSpacedText) {
  settings_.RepType = kTextReport;
  settings_.Title = "Songs";
  settings_.Description = "two\r\nlines";
  Select({1, 3, 4, 13, 21});
  drives_.Write("music/" + std::string(50, 'n') + ".mp3", TextOf(Frames(100)));
  const std::string rule(40 + 9 + 10 + 30, '-');
  const auto row = [](const std::string& name, const char* time, const char* size, const char* title) {
    const auto cell = [](std::string text, std::size_t width) {
      text.resize(width - 1, ' ');
      return text + " ";
    };
    return cell(name, 40) + cell(time, 9) + cell(size, 10) + cell(title, 30) + kEnd;
  };
  const std::string wanted =
      "Songs" + kEnd + "two" + kEnd + "lines" + kEnd + rule + kEnd + row("FileName", "Time", "Size", "Id3v1 Title") +
      rule + kEnd + row("My.Song", "0:03", "41 Kb", "T1") + row("N" + std::string(38, 'n'), "0:03", "41 Kb", "") +
      row("Gone", "", "Not found", "") + row("X", "", "5,000 Byt", "OT") + row("Y", "", "20 Kb", "") +
      row("Z", "0:01", "172 Kb", "-") + rule + kEnd +
      "6 Items, Total Playing Time >0:16, [>278 Kb] page created 07:05:01 [03-09-2004]" + kEnd + rule + kEnd;
  EXPECT_EQ(Report({"c:\\music\\my.song.mp3", "c:\\music\\" + std::string(50, 'n') + ".mp3", "c:\\music\\gone.mp3",
                    "c:\\music\\x.ogg", "c:\\music\\y.wma", "c:\\music\\z.wav"}),
            wanted);
}

TEST_F(ReportPages, InDelimitedText) {
  settings_.RepType = kTextReport;
  settings_.SpaceAligned = false;
  settings_.CommaDelimited = settings_.CustomDelimited = true;
  settings_.Delimiter = ";;";
  settings_.SaveRel = false;
  Select({4, 21, 2, 1, 7});
  EXPECT_EQ(Report({"c:\\music\\my.song.mp3", "c:\\music\\gone.mp3", "c:\\music\\z.wav"}),
            "\r\n"
            "Size;;Link;;Folder;;FileName;;BitRate;;\r\n\r\n"
            "41 Kb;;c:\\music;;My.Song;;128;;\r\n"
            "Not found!;;c:\\music;;Gone;;;;\r\n"
            "172 Kb;;c:\\music;;Z;;1411;;\r\n"
            "\r\n3 Items, [>213 Kb] page created 07:05:01 [03-09-2004]\r\n\r\n");
}

}  // namespace
}  // namespace qublet
