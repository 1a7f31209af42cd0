#include "generators/report/report_file.h"

#include <utility>

#include "platform/code_page.h"
#include "settings/record_file.h"

namespace qublet {
namespace {

constexpr std::size_t kPiece = 64 * 1024;  // bytes written at a time

}  // namespace

ReportFile::ReportFile(const FileSystem& files, const std::string& path, Encoding encoding) : encoding_(encoding) {
  so_far_ = Attempt([&] { file_ = files.BeginReplacement(path); });
}

std::string ReportFile::Bytes(std::string text) const {
  if (encoding_ == Encoding::kUtf8 || IsAscii(text)) return text;
  const std::optional<std::string> bytes = ToCodePage(text);
  return bytes ? *bytes : FirstBytes(text, std::string::npos);
}

void ReportFile::Write(std::string_view bytes) {
  if (!so_far_) return;
  waiting_ += bytes;
  if (waiting_.size() >= kPiece) WriteOut();
}

void ReportFile::WriteLine(std::string text) {
  Write(Bytes(std::move(text)) + "\r\n");
}

void ReportFile::WriteOut() {
  so_far_ = Attempt([&] { file_->Write({reinterpret_cast<const std::uint8_t*>(waiting_.data()), waiting_.size()}); });
  waiting_.clear();
}

Outcome ReportFile::Close() {
  if (so_far_) WriteOut();
  if (so_far_) so_far_ = Attempt([&] { file_->Commit(); });
  file_.reset();
  return so_far_;
}

}  // namespace qublet
