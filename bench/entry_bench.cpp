// How long the question entry form takes over one key, with an episode as full as a long class.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTemporaryDir>
#include <optional>
#include <stdexcept>
#include <string>

#include "model/clock.h"
#include "model/program.h"
#include "model/prompter.h"
#include "model/screens.h"
#include "store/recovery_file.h"
#include "store/session_log.h"
#include "store/storage.h"
#include "ui/frmClassAct.h"
#include "ui/frmEnterQA.h"

namespace orvex {
namespace {

class StillClock : public Clock {
 public:
  float SecondsSinceMidnight() const override { return 36000; }
  Date Today() const override { return {2001, 3, 14}; }
  std::int64_t UnixSeconds() const override { return 0; }
};

class NobodyThere : public Prompter {
 public:
  Answer Ask(const Message& message) override { return message.defaultAnswer; }
  std::optional<std::string> AskText(const TextPrompt&) override { return std::nullopt; }
  ChosenFile AskFile(const FilePrompt&) override { return {}; }
};

class NoScreens : public Screens {
 public:
  void Show(Screen) override {}
  void Hide(Screen) override {}
  void Close(Screen) override {}
  void EndProgram() override {}
};

void Press(QWidget* box, int key, const QString& text = {}) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
  QCoreApplication::sendEvent(box, &press);
  QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
  QCoreApplication::sendEvent(box, &release);
  QCoreApplication::processEvents();  // what the key has changed is painted
}

struct Entry {
  explicit Entry(int questions) {
    // As in a class, every entry of the log is written before the form goes on.
    log.File().Open(folder.filePath(QStringLiteral("7-12-3.bak")).toStdString());
    live.Live().KeyInDescription();
    live.Live().TypeDescription("A long class");
    live.Live().ChooseActivity(kQuestionAnswer);
    questionInfo question;
    question.SetValue("What happened then?", "T", "Y", "N", "N", "R", "Ana", "N", "", "U", 1, 1);
    live.Live().CurQuestions().assign(static_cast<std::size_t>(questions), question);
    form.show();
    QCoreApplication::processEvents();
  }

  QLineEdit* Box(const char* name) {
    auto* box = form.findChild<QLineEdit*>(QLatin1String(name));
    if (box == nullptr) throw std::logic_error(std::string("there is no box ") + name);
    return box;
  }

  QTemporaryDir folder;
  Program program;
  Storage storage;
  StillClock clock;
  NobodyThere prompter;
  NoScreens screens;
  SessionLog log{storage, clock};
  RecoveryFile recovery{storage};
  Services services{program, log, recovery, storage, clock, prompter, screens};
  frmClassAct live{services};
  frmEnterQA form{services, live.Live(), live.Clocks()};
};

void TypingALetter(benchmark::State& state) {
  Entry entry(static_cast<int>(state.range(0)));
  auto* text = entry.Box("txtQuestion");
  for (auto _ : state) {
    Press(text, Qt::Key_A, QStringLiteral("a"));
    state.PauseTiming();
    if (text->text().size() > 60) {
      text->clear();
      entry.form.Entry().TypeQuestion("");
    }
    state.ResumeTiming();
  }
}
BENCHMARK(TypingALetter)->Arg(0)->Arg(2000)->Unit(benchmark::kMillisecond);

/// Five keys: a text, Enter, Enter for the default Source, and a Response that stores the question
/// and writes it to the log.
void EnteringAQuestion(benchmark::State& state) {
  Entry entry(static_cast<int>(state.range(0)));
  auto* text = entry.Box("txtQuestion");
  auto* source = entry.Box("Text1");
  auto* response = entry.Box("Text2");
  auto& questions = entry.live.Live().CurQuestions();
  const std::size_t before = questions.size();
  for (auto _ : state) {
    Press(text, Qt::Key_A, QStringLiteral("a"));
    Press(text, Qt::Key_Return);
    Press(source, Qt::Key_Return);
    Press(response, Qt::Key_N, QStringLiteral("n"));
    Press(response, Qt::Key_Return);
    state.PauseTiming();
    if (questions.size() != before + 1 || !entry.log.File().Trouble().empty()) {
      state.SkipWithError("the question was not stored");
      break;
    }
    questions.pop_back();
    state.ResumeTiming();
  }
}
BENCHMARK(EnteringAQuestion)->Arg(1)->Arg(2000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace orvex

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
