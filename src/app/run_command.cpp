#include "app/run_command.h"

#include <unistd.h>

#include <QApplication>
#include <array>
#include <cerrno>
#include <csignal>
#include <iostream>
#include <streambuf>
#include <string>
#include <system_error>

#include "app/picture_command.h"
#include "app/report_pdf_command.h"
#include "commands/check_command.h"
#include "store/storage.h"

namespace orvex {
namespace {

volatile std::sig_atomic_t interrupted = 0;

void Interrupt(int) {
  interrupted = 1;
}

/// Lets the user interrupt a table: it is then abandoned cleanly. Signals that are already
/// ignored, as under nohup, stay ignored. A closed output pipe does not stop the table.
void HoldSignals() {
  struct sigaction hold = {};
  hold.sa_handler = Interrupt;  // without SA_RESTART: it ends the wait for input
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
    struct sigaction before = {};
    if (::sigaction(signal, nullptr, &before) == 0 && before.sa_handler != SIG_IGN) {
      ::sigaction(signal, &hold, nullptr);
    }
  }
  std::signal(SIGPIPE, SIG_IGN);
}

/// The standard input. Unlike std::cin, it ends when the user interrupts the program.
class StandardInput final : public std::streambuf {
 protected:
  int_type underflow() override {
    ssize_t count = 0;
    do {
      if (interrupted != 0) return traits_type::eof();
      count = ::read(STDIN_FILENO, bytes_.data(), bytes_.size());
    } while (count < 0 && errno == EINTR);
    if (count < 0) throw std::system_error(errno, std::generic_category());  // the stream is bad
    if (count == 0) return traits_type::eof();
    setg(bytes_.data(), bytes_.data(), bytes_.data() + count);
    return traits_type::to_int_type(*gptr());
  }

 private:
  std::array<char, 65536> bytes_ = {};
};

/// Lets Qt paint where there is no display.
class OffscreenPainting {
 public:
  OffscreenPainting() { qInstallMessageHandler(usual_); }

 private:
  /// Qt remarks on what a desktop would have; of no concern to a command.
  static void Withhold(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) std::cerr << text.toStdString() << "\n";
  }

  QtMessageHandler usual_ = qInstallMessageHandler(Withhold);
  std::array<std::string, 3> words_ = {"orvex", "-platform", "offscreen"};
  std::array<char*, 4> arguments_ = {words_[0].data(), words_[1].data(), words_[2].data()};
  int count_ = static_cast<int>(words_.size());
  QApplication application_{count_, arguments_.data()};
};

struct Runner {
  const Console& console;
  Storage storage = {};

  ExitCode operator()(const OpenWindow&) { return kDone; }
  ExitCode operator()(const ShowText& request) {
    console.out << request.text;
    return kDone;
  }
  ExitCode operator()(const Mistake& request) {
    console.err << request.text << "\n";
    return kFailed;
  }
  ExitCode operator()(const CheckCommand& command) { return RunCheck(command.sources, console); }
  ExitCode operator()(const ReportCommand& command) { return RunReport(command, console); }
  ExitCode operator()(const ReportPdfCommand& command) {
    HoldSignals();
    const OffscreenPainting painting;
    return RunReportPdf(command, storage, console);
  }
  ExitCode operator()(const AgreeCommand& command) {
    HoldSignals();
    return RunAgree(command, storage, console);
  }
  ExitCode operator()(const PictureCommand& command) {
    HoldSignals();
    const OffscreenPainting painting;
    return RunPicture(command, storage, console);
  }
  ExitCode operator()(const ExportCommand& command) {
    HoldSignals();
    return RunExport(command, storage, console);
  }
  ExitCode operator()(const TableCommand& command) {
    HoldSignals();
    return RunTable(command, storage, console);
  }
};

/// For these commands the file is the result; what they print is only progress, and losing it
/// is not a failure.
bool MakesATable(const Request& request) {
  return std::holds_alternative<ExportCommand>(request) ||
         std::holds_alternative<TableCommand>(request);
}

}  // namespace

int RunCommand(const Request& request) {
  std::ios::sync_with_stdio(false);
  StandardInput bytes;
  std::istream input(&bytes);
  const Console console{.out = std::cout,
                        .err = std::cerr,
                        .in = input,
                        .showsProgress = ::isatty(STDERR_FILENO) != 0,
                        .interrupted = [] { return interrupted != 0; }};
  const ExitCode code = std::visit(Runner{console}, request);
  if (!std::cout.flush() && !MakesATable(request)) {
    std::cerr << "The output could not be written.\n";
    return kFailed;
  }
  return code;
}

}  // namespace orvex
