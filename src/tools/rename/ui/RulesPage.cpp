#include "tools/rename/ui/RulesPage.h"

#include "platform/qt/shown_text.h"

namespace qublet {
namespace {

constexpr int kShortest = 8;
constexpr int kLongest = 255;

}  // namespace

RulesPage::RulesPage(QWidget* parent) : QWidget(parent) {
  setupUi(this);
  boxes_ = {{Capitalise, &RenameConfig::Capitalise}, {LowFilename, &RenameConfig::LowFilename},
            {Extension, &RenameConfig::Extension},   {RemNumbers, &RenameConfig::RemNumbers},
            {Truncat, &RenameConfig::Truncat},       {Increment, &RenameConfig::Increment},
            {RenID3, &RenameConfig::RenID3}};
  for (int length = kShortest; length <= kLongest; ++length) Truncval->addItem(QString::number(length));
  IncPosC->addItems({QStringLiteral("At Start"), QStringLiteral("At End")});
}

void RulesPage::Attach(const PageRunner& runner) {
  Renamer& renamer = runner.renamer;
  const auto run = runner.run;
  for (const auto& [box, field] : boxes_) {
    connect(box, &QCheckBox::clicked, this,
            [&renamer, run, field](bool ticked) { run([&] { renamer.Option_Click(field, ticked); }); });
  }
  connect(IncPosC, &QComboBox::activated, this,
          [&renamer, run](int row) { run([&] { renamer.Option_Click(&RenameConfig::IncPos, row == 0); }); });
  connect(Truncval, &QComboBox::activated, this,
          [&renamer, run](int row) { run([&] { renamer.Truncval_Click(kShortest + row); }); });
  const auto test = [this, &renamer, run] { run([&] { renamer.RenTest_Click(Test1->text().toStdString()); }); };
  connect(RenTest, &QPushButton::clicked, this, test);
  connect(Test1, &QLineEdit::returnPressed, this, test);
  connect(Test1, &QLineEdit::textEdited, this,
          [&renamer](const QString& text) { renamer.view.Test1 = text.toStdString(); });
  connect(RenReset, &QPushButton::clicked, this, [&renamer, run] { run([&] { renamer.RenReset_Click(); }); });
}

// A length outside the list is shown all the same; no row stands for it.
void RulesPage::Show(const RenameView& view) {
  for (const auto& [box, field] : boxes_) box->setChecked(view.options.*field);
  IncPosC->setCurrentIndex(view.options.IncPos ? 0 : 1);
  IncPosC->setEnabled(view.options.Increment);
  const int length = view.options.Truncval;
  const bool listed = length >= kShortest && length <= kLongest;
  Truncval->setPlaceholderText(QString::number(length));
  Truncval->setCurrentIndex(listed ? length - kShortest : -1);
  Truncval->setEnabled(view.options.Truncat);
  const QString test = QString::fromStdString(view.Test1);
  if (Test1->text() != test) Test1->setText(test);
  Test2->setText(ShownText(view.Test2));
}

}  // namespace qublet
