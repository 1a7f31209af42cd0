#include "platform/windows/console_buffer.h"

#include <gtest/gtest.h>

#include <ostream>

namespace qublet {
namespace {

TEST(WholeCharacters, EndBeforeOneThatIsCut) {
  EXPECT_EQ(WholeCharacters(""), 0u);
  EXPECT_EQ(WholeCharacters("abc"), 3u);
  EXPECT_EQ(WholeCharacters("ab\u00E9"), 4u);
  EXPECT_EQ(WholeCharacters("ab\xC3"), 2u);
  EXPECT_EQ(WholeCharacters("ab\xE2\x82"), 2u);
  EXPECT_EQ(WholeCharacters("ab\xF0\x9F\x8E"), 2u);
  EXPECT_EQ(WholeCharacters("ab\x80\x80\x80\x80"), 6u) << "no character at all";
}

// A console in memory with the code page of an old machine.
class ConsoleBufferTest : public testing::Test {
 protected:
  void SetUp() override {
    console_ = CreateConsoleScreenBuffer(GENERIC_READ | GENERIC_WRITE, 0, nullptr, CONSOLE_TEXTMODE_BUFFER, nullptr);
    if (console_ == INVALID_HANDLE_VALUE) GTEST_SKIP() << "no console here";
  }
  ~ConsoleBufferTest() override { CloseHandle(console_); }

  std::wstring Shown(DWORD count) const {
    std::wstring text(count, L'\0');
    DWORD read = 0;
    ReadConsoleOutputCharacterW(console_, text.data(), count, {0, 0}, &read);
    text.resize(read);
    return text;
  }

  HANDLE console_ = INVALID_HANDLE_VALUE;
};

TEST_F(ConsoleBufferTest, ShowsTextsAsTheyAreAndLeavesTheCodePage) {
  const UINT page = GetConsoleOutputCP();
  {
    ConsoleBuffer buffer(console_);
    std::ostream out(&buffer);
    out << "\u0414\u0430 \xC3";
    out.flush();
    out << "\xA9";
  }
  EXPECT_EQ(Shown(4), L"\u0414\u0430 \u00E9");
  EXPECT_EQ(GetConsoleOutputCP(), page);
}

}  // namespace
}  // namespace qublet
