#include "settings/update/update_check.h"

#include "playlist/paths/numbers.h"

namespace qublet {
namespace {

constexpr std::size_t kVersionLength = 12;
constexpr std::int16_t kWidest = 9999;

}  // namespace

std::string VersionText(const ProgramVersion& version) {
  std::string text;
  for (const int number : {version.major_number, version.minor_number, version.revision})
    text += PadNumberToWidth(ToInteger16(number), kWidest);
  return text;
}

std::string VersionFileAddress() {
  return Site() + "/downloads/qubcurversion.txt";
}

UpdateAnswer AnswerOf(const std::string& response, const ProgramVersion& version) {
  UpdateAnswer answer = UpdateAnswer::kFailed;
  ResumeNext([&] {
    const std::string local = VersionText(version);
    if (response.size() == kVersionLength) answer = response > local ? UpdateAnswer::kNewer : UpdateAnswer::kCurrent;
  });
  return answer;
}

std::string UpdateMessage(UpdateAnswer answer) {
  switch (answer) {
    case UpdateAnswer::kNewer:
      return "An updated version of this software is available.\r\n"
             "You can visit the Website for more information\r\n"
             "or go direct to the download page to update.\r\n"
             "\r\n"
             "If you wish to not be informed of updates as\r\n"
             "they become available please check the settings\r\n"
             "in the preferences dialogue. Thank you.";
    case UpdateAnswer::kCurrent:
      return "You currently have the most up to date version installed.";
    case UpdateAnswer::kFailed:
      break;
  }
  return "Could not download the update information. Try again later or check your internet connection.";
}

bool CheckForUpdate(const std::string& response, bool Prompt, Dialogs& dialogs) {
  const UpdateAnswer answer = AnswerOf(response);
  const bool read = answer != UpdateAnswer::kFailed;
  const MessageIcon icon = read ? MessageIcon::kInformation : MessageIcon::kStop;
  if (Prompt || answer == UpdateAnswer::kNewer) dialogs.ShowMessage(UpdateMessage(answer), icon, MessageButtons::kOk);
  return read;
}

}  // namespace qublet
