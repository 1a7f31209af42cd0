#pragma once

#include <functional>
#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>

namespace qublet {

// What a person is shown of a text on a terminal. A name or a tag holds whatever somebody put in: no control
// character (C0, DEL, C1), none that turns the order of others, no private-use letter and no byte that is no UTF-8 is
// let through; marks stand for them (see ShownCharacter). Line ends and tabulators part what the program prints, and
// stay.
std::string TerminalText(std::string_view text);

// How many bytes at the front of a text are whole UTF-8 characters, or none that could become one.
std::size_t WholeCharacters(std::string_view text);

// UTF-8 of a stream on its way to a terminal, shown as TerminalText.
class TerminalBuffer : public std::streambuf {
 public:
  // Shows a text of whole characters, some KiB at most; False when that fails.
  using Show = std::function<bool(const std::string& text)>;
  explicit TerminalBuffer(Show show) : show_(std::move(show)) {}
  ~TerminalBuffer() override;

 protected:
  int_type overflow(int_type byte) override;
  std::streamsize xsputn(const char* bytes, std::streamsize count) override;
  int sync() override;

 private:
  bool ShowFirst(std::size_t count);

  Show show_;
  std::string waiting_;
};

// For as long as it lives, what is printed to the stream goes through a TerminalBuffer.
class TerminalStream {
 public:
  TerminalStream(std::ostream& stream, TerminalBuffer::Show show)
      : stream_(stream), buffer_(std::move(show)), before_(stream.rdbuf(&buffer_)) {}
  ~TerminalStream() {
    stream_.flush();
    stream_.rdbuf(before_);
  }
  TerminalStream(const TerminalStream&) = delete;
  TerminalStream& operator=(const TerminalStream&) = delete;

 private:
  std::ostream& stream_;
  TerminalBuffer buffer_;
  std::streambuf* before_;
};

}  // namespace qublet
