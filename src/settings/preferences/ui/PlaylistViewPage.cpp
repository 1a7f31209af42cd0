#include "settings/preferences/ui/PlaylistViewPage.h"

#include <QColorDialog>
#include <QFontDialog>
#include <QFontInfo>

#include "platform/qt/colours.h"
#include "platform/qt/shown_text.h"
#include "playlist/paths/numbers.h"
#include "playlist/ui/list_look.h"
#include "settings/preferences/ui/swatch.h"

namespace qublet {
namespace {

QString Named(std::string_view name) {
  return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

// Only what the user has changed: the dialog shows another font for one that isn't there, and whole sizes.
void TakeChanges(const QFont& shown, const QFont& chosen, Look& look) {
  if (chosen.family() != shown.family()) look.font = chosen.family().toStdString();
  if (chosen.pointSizeF() != shown.pointSizeF()) look.size = chosen.pointSizeF();
  look.bold = chosen.bold();
  look.italic = chosen.italic();
  look.strikethrough = chosen.strikeOut();
  look.underline = chosen.underline();
}

}  // namespace

PlaylistViewPage::PlaylistViewPage(QWidget* parent) : OptionsPage(SettingPage::kPlaylistView, parent) {
  setupUi(this);
  // Whatever the colour and the font, nothing beside and below the buttons moves.
  BackColorChange->setIcon(Swatch(*this, 0));
  BackColorChange->setText(QStringLiteral("#DDDDDD"));
  const QSize room = BackColorChange->sizeHint();
  for (QPushButton* button : {BackColorChange, ForeColorChange, FontChange}) button->setMinimumWidth(room.width());
  FontChange->setFixedHeight(room.height());
  connect(BackColorChange, &QPushButton::clicked, this,
          [this] { ChooseColour(look_.background, CaptionBackColor->text()); });
  connect(ForeColorChange, &QPushButton::clicked, this,
          [this] { ChooseColour(look_.text, CaptionForeColor->text()); });
  connect(FontChange, &QPushButton::clicked, this, &PlaylistViewPage::FontChange_Click);
  connect(chkShowGrid, &QCheckBox::toggled, this, [this](bool ticked) {
    look_.grid = ticked;
    lblTestArea->SetGridLines(ticked);
  });
  connect(chkHotTracking, &QCheckBox::toggled, lblTestArea, &SampleList::SetHotTracking);
  for (const Scheme& scheme : Schemes()) {
    connect(findChild<QPushButton*>(Named(scheme.name)), &QPushButton::clicked, this, [this, &scheme] {
      look_ = LookOf(scheme);
      Show();
    });
  }
  ShowFaces();
}

void PlaylistViewPage::Attach(Preferences& preferences) {
  connect(schLoad, &QPushButton::clicked, this, [this, &preferences] {
    preferences.schLoad_Click(look_);
    Show();
  });
  connect(schSave, &QPushButton::clicked, this, [this, &preferences] { preferences.schSave_Click(look_); });
}

void PlaylistViewPage::Load(const AppSettings& settings) {
  OptionsPage::Load(settings);
  look_ = LookOf(settings);
  Show();
}

void PlaylistViewPage::Store(AppSettings& settings) const {
  OptionsPage::Store(settings);
  StoreLook(look_, settings);
}

void PlaylistViewPage::Show() {
  ApplyLook(look_, *lblTestArea);
  lblTestArea->FitColumns();
  chkShowGrid->setChecked(look_.grid);
  ShowFaces();
}

void PlaylistViewPage::ShowFaces() {
  BackColorChange->setIcon(Swatch(*this, look_.background));
  BackColorChange->setText(ColourName(look_.background));
  ForeColorChange->setIcon(Swatch(*this, look_.text));
  ForeColorChange->setText(ColourName(look_.text));
  QFont face = FontOf(look_);
  face.setPointSizeF(font().pointSizeF());
  FontChange->setFont(face);
  const QString size = QString::fromStdString(NumberText(look_.size));
  FontText->Report(ShownText(look_.font) + u' ' + size);
  FontChange->setAccessibleDescription(FontText->Reported());
  for (const Scheme& scheme : Schemes()) {
    auto* const button = findChild<QPushButton*>(Named(scheme.name));
    button->setIcon(Swatch(*this, scheme.background, scheme.text));
  }
}

// The desktop's colours change with it.
void PlaylistViewPage::changeEvent(QEvent* event) {
  OptionsPage::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) Show();
}

void PlaylistViewPage::ChooseColour(std::int32_t& colour, const QString& title) {
  const QColor present = ColourFromSetting(colour);
  const QColor chosen = QColorDialog::getColor(present, this, title);
  if (!chosen.isValid() || chosen == present) return;
  colour = SettingFromColour(chosen);
  Show();
}

void PlaylistViewPage::FontChange_Click() {
  QFontDialog dialog(FontOf(look_), this);
  dialog.setWindowTitle(CaptionFont->text());
  const QFont shown = dialog.currentFont();
  if (dialog.exec() != QDialog::Accepted) return;
  TakeChanges(shown, dialog.selectedFont(), look_);
  Show();
}

}  // namespace qublet
