#include "platform/language_code_page.h"

#include "platform/code_page.h"
#include "platform/windows/windows_api.h"

namespace qublet {

LanguageCodePage::LanguageCodePage() : number_(static_cast<int>(GetACP())) {}

std::string LanguageCodePage::Decode(std::string_view bytes) const {
  return FromCodePage(bytes);
}

}  // namespace qublet
