#include "window_measures.h"

#include <QAction>
#include <QApplication>
#include <array>
#include <stdexcept>

#include "app/program.h"
#include "engine/system.h"
#include "full_list.h"
#include "settings/kept_values.h"

namespace qublet::measures {
namespace {

class PaintCounter : public QObject {
 public:
  int count = 0;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count;
    return false;
  }
};

// Nobody is there to answer.
class NoDialogs : public Dialogs {
 public:
  MessageAnswer ShowMessage(const std::string&, MessageIcon, MessageButtons) override { return MessageAnswer::kYes; }
  std::optional<std::string> ShowOpen(const FileRequest&) override { return {}; }
  std::optional<std::string> ShowSave(const FileRequest&) override { return {}; }
  std::optional<std::string> AskText(const std::string&, const std::string&) override { return {}; }
  std::optional<std::string> BrowseForFolder(const std::string&, const std::string&, bool) override { return {}; }
};

// The main window on the screen, with nothing of this user's.
class Window {
 public:
  Window() {
    // Of one who has been here before, wants no tips, and asks for no newer version.
    Session& session = program_.engine.session;
    session.Keep(kProgramPath, "QUBLET20");
    session.Keep(kShowTips, "0");
    session.Keep({"SSE", "AUDate"}, "False");
    main_.Load("", nullptr);
    list_ = main_.findChild<RowList*>(QStringLiteral("ListView1"));
    list_->viewport()->installEventFilter(&painted_);
    main_.show();
    Paint();
    settings_.PROMPTSORT = false;
  }

  // Lays the rows anew and waits until they are painted.
  void Lay(const ListJob& job) {
    document_.ListView1.Clear();
    document_.ListView1.Insert(1, FullListRows());
    document_.ListView1.SelectWhere([&](int row, const Row&) { return job.selected(row); });
    emit list_->rowsSelected();
    list_->scrollToTop();
    Paint();
  }

  double Command(const ListJob& job) {
    QAction& action = ActionOf(job);
    return SecondsOf([&] {
      action.trigger();
      Paint();
    });
  }

  double RepaintAfter(const ListJob& job) {
    auto bulk = std::make_unique<RowStore::Bulk>(document_.ListView1);
    ActionOf(job).trigger();
    // The allocator sorts what a removal has freed when it is next asked for a large piece: that is no repainting.
    const auto large = std::make_unique<std::array<char, 65536>>();
    return SecondsOf([&] {
      bulk.reset();
      Paint();
    });
  }

  // Every widget of the window once more.
  double PlainRepaint() {
    return SecondsOf([&] {
      for (QWidget* widget : main_.findChildren<QWidget*>()) widget->update();
      Paint();
    });
  }

 private:
  QAction& ActionOf(const ListJob& job) {
    auto* action = main_.findChild<QAction*>(QString::fromStdString(job.action));
    if (action == nullptr || !action->isEnabled()) throw std::runtime_error("the menu doesn't offer " + job.action);
    return *action;
  }

  // Until there is nothing more to lay out and to paint.
  void Paint() {
    for (int quiet = 0; quiet < 3; ++quiet) {
      const int before = painted_.count;
      QCoreApplication::sendPostedEvents();
      QCoreApplication::processEvents();
      if (painted_.count != before) quiet = 0;
    }
  }

  System system_{System::Traces::kLeavesNothing};
  NoDialogs dialogs_;
  WindowFeedback feedback_;
  Program program_{system_.With(dialogs_, feedback_), feedback_, Session::Places{"QUBLET-measures", "", ""}};
  Main& main_ = program_.main;
  Document& document_ = program_.engine.document;
  AppSettings& settings_ = program_.engine.settings;
  RowList* list_ = nullptr;
  PaintCounter painted_;
};

double OfTheRules(const ListJob& job, FullList& list) {
  list.Lay(job.selected);
  return SecondsOf([&] {
    job.command(list);
    if (job.refreshes) list.Refresh();
  });
}

Measure Whole(const ListJob& job) {
  return {"window_" + job.name, 2, [&job](Workplace&) {
            const auto window = std::make_shared<Window>();
            const auto list = std::make_shared<FullList>();
            return Contest{[&job, window] {
                             window->Lay(job);
                             return window->Command(job);
                           },
                           [&job, window, list] {
                             window->Lay(job);
                             return OfTheRules(job, *list) + window->PlainRepaint();
                           }};
          }};
}

Measure Repaint(const ListJob& job) {
  return {"repaint_after_" + job.name, 2, [&job](Workplace&) {
            const auto window = std::make_shared<Window>();
            return Contest{[&job, window] {
                             window->Lay(job);
                             return window->RepaintAfter(job);
                           },
                           [&job, window] {
                             window->Lay(job);
                             return window->PlainRepaint();
                           }};
          }};
}

}  // namespace

std::vector<Measure> WindowMeasures() {
  std::vector<Measure> measures;
  const auto add = [&](Measure (*measure)(const ListJob& job)) {
    for (const ListJob& job : ListJobs()) {
      if (!job.action.empty()) measures.push_back(measure(job));
    }
  };
  add(Whole);
  add(Repaint);
  return measures;
}

}  // namespace qublet::measures
