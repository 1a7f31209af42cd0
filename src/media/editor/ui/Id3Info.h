#pragma once

#include <QAction>
#include <QDialog>
#include <array>
#include <functional>

#include "media/editor/tag_editor.h"
#include "media/editor/ui/PageIndicator.h"
#include "media/editor/ui/editor_commands.h"
#include "platform/qt/picture_codec.h"
#include "ui_Id3Info.h"

namespace qublet {

// The tag editor's window. It shows what TagEditor says and brings back what the user writes.
class Id3Info : public QDialog, private Ui::Id3Info {
  Q_OBJECT

 public:
  // Both outlive it.
  Id3Info(Engine& engine, Background& background, QWidget* parent);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void MakeIndicators();
  void AlignCaptions();
  void MakeCommands();
  void MakeKeys();
  void BindPages();
  void AddKey(const char* keys, const std::function<void()>& handler);

  // Runs what a command does, on what the boxes hold, and shows what comes of it.
  void Run(const std::function<void()>& command);
  void Collect();
  void Render();
  void RenderTabs();

  void Command_Click(const EditorCommand& command);
  void CmdUpdate_Click();
  void Id3MainTab_Click(int page);

  Engine& engine_;
  QtPictureCodec codec_;
  TagEditor editor_;
  PageIndicator* FileInfoIndicator;
  PageIndicator* Id31Indicator;
  PageIndicator* Id32Indicator;
  std::array<QAction*, kEditorCommands.size()> actions_{};  // null for a separator
};

}  // namespace qublet
