#include "platform/qt/key_names.h"

#include <string_view>

namespace qublet {

QString WindowsKeyNames::translate(const char* context, const char* source, const char* /*disambiguation*/,
                                   int /*n*/) const {
  using namespace std::string_view_literals;
  return context == "QShortcut"sv && source == "Return"sv ? QStringLiteral("Enter") : QString();
}

}  // namespace qublet
