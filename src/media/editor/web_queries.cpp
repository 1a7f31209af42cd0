#include "media/editor/web_queries.h"

#include "platform/file_address.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

constexpr std::string_view kSearch = "https://" QUBLET_SEARCH_HOST "/search?hl=en&q=";
constexpr std::string_view kScheme = "http://";
// What stands for several files, its lone "." gone like an extension.
constexpr std::string_view kNoFile = "Multiple MP3 Files Selected";

}  // namespace

std::string AddressOf(const std::string& text) {
  return Contains(text, kScheme) ? text : std::string(kScheme) + text;
}

std::string SearchAddress(std::string_view text) {
  return std::string(kSearch) + PercentEncoded(text, "+");
}

std::string QueryFor(MusicNames names, const std::string& file_label) {
  const bool title = !names.title.empty();
  const bool album = !names.album.empty();
  if (!names.artist.empty() && (title || album)) names.artist += " + ";
  if (title && album) names.title += " + ";
  std::string query = names.artist + names.title + names.album;
  if (query.empty()) query = ReplaceAll(file_label, GetExtension(file_label), "");
  // Its "..." lose all dots, since each is the extension.
  if (query == kNoFile) return "";
  for (const char* mark : {"_", "-", "."}) query = ReplaceAll(query, mark, " ");
  return query;
}

}  // namespace qublet
