#include "app/run_command.h"

#include <unistd.h>

#include <csignal>
#include <iostream>

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
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
    if (std::signal(signal, Interrupt) == SIG_IGN) std::signal(signal, SIG_IGN);
  }
  std::signal(SIGPIPE, SIG_IGN);
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
  ExitCode operator()(const CheckCommand& command) { return RunCheck(command.sources, console); }
  ExitCode operator()(const ReportCommand& command) { return RunReport(command, console); }
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
  const Console console{.out = std::cout,
                        .err = std::cerr,
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
