#pragma once

#include <streambuf>
#include <string>

#include "platform/windows/windows_api.h"

namespace qublet {

// UTF-8 of a stream, shown on a console as the text it is whatever code page the console has.
class ConsoleBuffer : public std::streambuf {
 public:
  explicit ConsoleBuffer(HANDLE console) : console_(console) {}
  ~ConsoleBuffer() override { ConsoleBuffer::sync(); }

 protected:
  int_type overflow(int_type byte) override;
  std::streamsize xsputn(const char* bytes, std::streamsize count) override;
  int sync() override;

 private:
  bool Show(std::size_t count);

  HANDLE console_;
  std::string waiting_;
};

// How many bytes at the front of a text are whole UTF-8 characters, or none that could become one.
std::size_t WholeCharacters(std::string_view text);

}  // namespace qublet
