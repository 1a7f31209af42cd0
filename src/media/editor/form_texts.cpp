#include "media/editor/form_texts.h"

#include "playlist/paths/numbers.h"
#include "playlist/paths/text.h"

namespace qublet {

std::optional<double> NumericValue(std::string_view text) {
  const std::string number = Trim(text);
  if (number.find_first_of("eE") != number.npos) return std::nullopt;
  std::optional<double> value;
  ResumeNext([&] { value = TextToNumber(number); });
  return value;
}

std::string TitleFromFileName(std::string_view name) {
  constexpr std::string_view kExtension = ".mp3";
  std::string title;
  while (!name.empty()) {
    if (LowerCase(name.substr(0, kExtension.size())) == kExtension) {
      name.remove_prefix(kExtension.size());
    } else {
      title += name.front();
      name.remove_prefix(1);
    }
  }
  return ProperCase(title);
}

std::string ParentFolderName(std::string_view path) {
  const std::size_t end = path.rfind('\\');
  if (end == path.npos || end == 0) return "";
  const std::size_t start = path.rfind('\\', end - 1);
  return start == path.npos ? "" : std::string(path.substr(start + 1, end - start - 1));
}

}  // namespace qublet
