#include "media/editor/tag_editor.h"
#include "platform/windows/wide_text.h"
#include "platform/windows/windows_api.h"
#include "support/editor_test_base.h"

namespace qublet {
namespace {

// A file that another program has open and shares with nobody.
class LockedFileTest : public EditorTestBase {
 protected:
  LockedFileTest() {
    for (const char* name : {"1.mp3", "2.mp3", "3.mp3"}) drives_.Write(name, TaggedSong(name));
    AddRows({"1.mp3", "2.mp3", "3.mp3"});
    Select("xxx");
  }

  EditorSurroundings around_;
  TagEditor editor_{engine_, around_.codec, around_.background};
};

TEST_F(LockedFileTest, CostsAnUpdateOnlyItself) {
  editor_.LoadSelection();
  const std::wstring place = WideText(files_->ToNative("c:\\2.mp3"));
  const HANDLE held = CreateFileW(place.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  editor_.CmdUpdate_Click({});
  CloseHandle(held);
  ASSERT_EQ(fakes_.dialogs.messages.size(), 1u);
  EXPECT_EQ(fakes_.dialogs.messages[0].text,
            "Some files could not be updated!, check that they are not in use or set as Read-Only.");
  EXPECT_EQ(drives_.Read("1.mp3"), AudioBytes(20));
  EXPECT_EQ(drives_.Read("2.mp3"), TaggedSong("2.mp3"));
  EXPECT_EQ(drives_.Read("3.mp3"), AudioBytes(20));
}

}  // namespace
}  // namespace qublet
