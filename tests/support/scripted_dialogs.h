#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "platform/dialogs.h"

namespace qublet {

// Dialogs that answer by themselves: what the test has queued, or Cancel when nothing is. Everything asked is noted.
class ScriptedDialogs : public Dialogs {
 public:
  struct Message {
    std::string text;
    MessageIcon icon;
    MessageButtons buttons;
    bool operator==(const Message&) const = default;
  };

  std::deque<MessageAnswer> answers;
  std::deque<std::optional<std::string>> open_names, save_names, folders, texts;
  Dialogs* real_save = nullptr;  // asked instead of the queue when there is one

  std::vector<Message> messages;
  std::vector<FileRequest> open_requests, save_requests;
  std::vector<std::string> browse_titles, browse_starts, text_prompts;

  MessageAnswer ShowMessage(const std::string& text, MessageIcon icon, MessageButtons buttons) override {
    messages.push_back({text, icon, buttons});
    return Next(answers, buttons == MessageButtons::kOk ? MessageAnswer::kOk : MessageAnswer::kCancel);
  }

  std::optional<std::string> ShowOpen(const FileRequest& request) override {
    open_requests.push_back(request);
    return Next(open_names, {});
  }

  std::optional<std::string> ShowSave(const FileRequest& request) override {
    save_requests.push_back(request);
    if (real_save != nullptr) return real_save->ShowSave(request);
    return Next(save_names, {});
  }

  std::optional<std::string> AskText(const std::string& prompt, const std::string& title) override {
    text_prompts.push_back(title + ": " + prompt);
    return Next(texts, {});
  }

  std::optional<std::string> BrowseForFolder(const std::string& title, const std::string& start_folder,
                                             bool /*files_too*/) override {
    browse_titles.push_back(title);
    browse_starts.push_back(start_folder);
    return Next(folders, {});
  }

 private:
  template <typename Answer>
  static Answer Next(std::deque<Answer>& queue, Answer otherwise) {
    if (queue.empty()) return otherwise;
    Answer answer = queue.front();
    queue.pop_front();
    return answer;
  }
};

}  // namespace qublet
