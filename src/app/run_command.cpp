#include "app/run_command.h"

#include <unistd.h>

#include <csignal>
#include <iostream>

#include "export/check_command.h"
#include "store/storage.h"

namespace orvex {
namespace {

volatile std::sig_atomic_t interrupted = 0;

void Interrupt(int) {
  interrupted = 1;
}

/// A table that is interrupted is put in its place with the rows so far.
void HoldInterrupts() {
  std::signal(SIGINT, Interrupt);
  std::signal(SIGTERM, Interrupt);
}

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
  ExitCode operator()(const CheckCommand& command) { return RunCheck(command.files, console); }
  ExitCode operator()(const ReportCommand& command) { return RunReport(command, console); }
  ExitCode operator()(const ExportCommand& command) {
    HoldInterrupts();
    return RunExport(command, storage, console);
  }
  ExitCode operator()(const TableCommand& command) {
    HoldInterrupts();
    return RunTable(command, storage, console);
  }
};

}  // namespace

int RunCommand(const Request& request) {
  std::ios::sync_with_stdio(false);
  const Console console{.out = std::cout,
                        .err = std::cerr,
                        .showsProgress = ::isatty(STDERR_FILENO) != 0,
                        .interrupted = [] { return interrupted != 0; }};
  const ExitCode code = std::visit(Runner{console}, request);
  if (!std::cout.flush()) {
    std::cerr << "The output could not be written.\n";
    return kFailed;
  }
  return code;
}

}  // namespace orvex
