// Measures how long the question entry form takes to handle a key, with as many questions in the
// episode as a long class has and with a slow disk.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <string>
#include <thread>

#include "model/program.h"
#include "recovery/recovery_file.h"
#include "store/session_log.h"
#include "store/storage.h"
#include "support/agreeing_prompter.h"
#include "support/fake_clock.h"
#include "support/recording_screens.h"
#include "ui/forms/frmClassAct.h"
#include "ui/forms/frmEnterQA.h"

namespace orvex {
namespace {

/// A disk that takes a twentieth of a second for every sync.
class SlowStorage : public Storage {
 public:
  int Sync(int descriptor) override {
    std::this_thread::sleep_for(kDelay);
    return Storage::Sync(descriptor);
  }
  int SyncData(int descriptor) override {
    std::this_thread::sleep_for(kDelay);
    return Storage::SyncData(descriptor);
  }

 private:
  static constexpr std::chrono::milliseconds kDelay{50};
};

void Press(QWidget* box, int key, const QString& text = {}) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
  QCoreApplication::sendEvent(box, &press);
  QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
  QCoreApplication::sendEvent(box, &release);
  QCoreApplication::processEvents();  // paints what the key has changed
}

/// The longest time that a benchmark has measured.
class Longest {
 public:
  void Begin() { begin_ = std::chrono::steady_clock::now(); }
  void End() { longest_ = std::max(longest_, std::chrono::steady_clock::now() - begin_); }
  double Milliseconds() const {
    return std::chrono::duration<double, std::milli>(longest_).count();
  }

 private:
  std::chrono::steady_clock::time_point begin_;
  std::chrono::steady_clock::duration longest_{};
};

struct Entry {
  explicit Entry(int questions) {
    // As in a class, every entry of the log is written before the form goes on.
    log.File().Open(folder.filePath(QStringLiteral("7-12-3.bak")).toStdString());
    recovery.Begin(folder.filePath(QStringLiteral("7-12-3.recovery")).toStdString());
    live.Live().KeyInDescription();
    live.Live().TypeDescription("A long class");
    live.Live().ChooseActivity(kQuestionAnswer);
    questionInfo question;
    question.SetValue("What happened then?", {"T", "Y", "N", "N", "R", "Ana", "N", "", "U"}, 1, 1);
    program.Episodes.back().questions.assign(static_cast<std::size_t>(questions), question);
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
  SlowStorage storage;
  test::FakeClock clock;
  test::AgreeingPrompter prompter;
  test::RecordingScreens screens;
  SessionLog log{storage, clock};
  RecoveryFile recovery{storage};
  std::filesystem::path programFolder{folder.path().toStdString()};
  Services services{program, log, recovery, storage, clock, prompter, screens, programFolder};
  frmClassAct live{services};
  frmEnterQA form{services, live.Live(), live.Clocks()};
};

/// One key, including handing the changed class over to be kept.
void TypingALetter(benchmark::State& state) {
  Entry entry(static_cast<int>(state.range(0)));
  auto* text = entry.Box("txtQuestion");
  Longest key;
  for (auto _ : state) {
    key.Begin();
    Press(text, Qt::Key_A, QStringLiteral("a"));
    entry.live.Live().Keep();
    key.End();
    state.PauseTiming();
    if (text->text().size() > 60) {
      text->clear();
      entry.form.Entry().TypeQuestion("");
    }
    state.ResumeTiming();
  }
  state.counters["longest_ms"] = key.Milliseconds();
  entry.recovery.AwaitStored();
  state.counters["recovery_bytes"] = static_cast<double>(
      QFileInfo(entry.folder.filePath(QStringLiteral("7-12-3.recovery"))).size());
}
BENCHMARK(TypingALetter)->Arg(0)->Arg(2000)->Unit(benchmark::kMillisecond);

/// From handing the class over to the moment when only a failure of the system could lose it.
void KeepingAClass(benchmark::State& state) {
  Entry entry(static_cast<int>(state.range(0)));
  Longest keeping;
  for (auto _ : state) {
    entry.form.Entry().TypeQuestion(entry.form.Entry().Question() + 'a');
    keeping.Begin();
    entry.live.Live().Keep();
    entry.recovery.AwaitWritten();
    keeping.End();
  }
  state.counters["longest_ms"] = keeping.Milliseconds();
}
BENCHMARK(KeepingAClass)->Arg(0)->Arg(2000)->Unit(benchmark::kMillisecond)->Iterations(500);

/// Five keys: a text, Enter, Enter for the default Source, and a Response that stores the question
/// and writes it to the log.
void EnteringAQuestion(benchmark::State& state) {
  Entry entry(static_cast<int>(state.range(0)));
  auto* text = entry.Box("txtQuestion");
  auto* source = entry.Box("Text1");
  auto* response = entry.Box("Text2");
  auto& questions = entry.program.Episodes.back().questions;
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
