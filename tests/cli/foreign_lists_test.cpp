#include "cli/json_text.h"
#include "playlist/paths/text.h"
#include "support/cli_test_base.h"
#include "support/foreign_lines_table.h"

namespace qublet {
namespace {

using ForeignListsCommand = CliTestBase;

TEST_F(ForeignListsCommand, ListsTheFilesThatTheLinesMean) {
  for (const ForeignLine& line : kForeignLines) {
    const TemporaryDrives own_drives;
    const ScopedEnvironment page("QUBLET_CODEPAGE", line.page);
    files_ = OpenFileSystem();
    const std::string list = line.type == ListType::kM3u8 ? "list.m3u8" : "list.m3u";
    SCOPED_TRACE(std::string(line.habit) + ", " + list + ": " + line.line);
    const std::string own = own_drives.Root().string();
    const auto filled = [&](const char* text) {
      return ReplaceAll(ReplaceAll(text, "@", own), "$", files_->FromNative(own));
    };
    PutOnDisk(line, own_drives.Root());
    own_drives.Write("list/" + list, filled(line.line) + "\n");
    EXPECT_EQ(Run("list", {"c:\\list\\" + list}), 0);
    const Collection lines = Split(Out(), '\n');
    ASSERT_EQ(lines.size(), 3U);
    const Collection cells = Split(lines[1], '\t');
    EXPECT_EQ(cells.at(kSize), line.there ? "3 Bytes" : "0 Bytes");
    EXPECT_EQ(cells.at(kPath) + cells.at(kFileName), PlainValue(filled(line.path)));
  }
}

}  // namespace
}  // namespace qublet
