// How the command line is understood.

#include "app/command_line.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "model/version.h"
#include "support/test_paths.h"

namespace orvex {
namespace {

std::string Joined(const std::vector<std::filesystem::path>& files) {
  std::string text;
  for (const auto& file : files) text += " " + file.string();
  return text;
}

struct Describe {
  std::string operator()(const OpenWindow& r) const {
    return (r.picture ? "picture " : "window ") + r.file.string();
  }
  std::string operator()(const ShowText& r) const { return "text " + r.text.substr(0, 6); }
  std::string operator()(const Mistake& r) const {
    const bool hint = r.text.find("\nTry 'orvex") != std::string::npos;
    return hint ? "mistake" : "mistake without a hint";
  }
  std::string operator()(const CheckCommand& r) const { return "check" + Joined(r.sources); }
  std::string operator()(const ReportCommand& r) const {
    return (r.json ? "json" : "report") + Joined(r.sources);
  }
  std::string operator()(const ReportPdfCommand& r) const {
    return "report pdf" + Joined(r.sources) + " to " + r.output.string();
  }
  std::string operator()(const PictureCommand& r) const {
    const std::string what = r.study ? "study by " + std::string(SchemeOf(r.order).id) : "classes";
    return std::string(SchemeOf(r.format).id) + " of " + what + Joined(r.sources) + " to " +
           r.output.string();
  }
  std::string operator()(const AgreeCommand& r) const {
    std::string text = (r.json ? "agree json" : "agree") + Joined(r.sources);
    text += " within " + std::to_string(r.options.tolerance);
    if (r.options.offset) text += " offset " + std::to_string(*r.options.offset);
    return text + " " + r.pairs.string() + ">" + r.savePairs.string() + " " + r.csv.string();
  }
  std::string operator()(const ExportCommand& r) const {
    return std::string(r.kind == ExportKind::epsData ? "epsdata" : "surdata") + Joined(r.sources) +
           " to " + r.output.string() + (r.keepGoing ? " keep going" : "");
  }
  std::string operator()(const TableCommand& r) const {
    std::string text;
    for (const TidyTable table : r.tables) text += std::string(NameOf(table)) + " ";
    for (const auto& source : r.sources) text += source.string() + " ";
    text += "to " + r.output.string() + (r.sqlite ? " in sqlite" : "");
    for (const CodebookKind kind : r.codebooks)
      text += " with " + CodebookFileName(r.tables[0], kind);
    return text;
  }
};

Request RequestOf(const std::string& line) {
  std::vector<std::string> arguments;
  std::istringstream rest("orvex " + line);
  for (std::string word; rest >> word;) arguments.push_back(word);
  std::vector<const char*> argv;
  for (const std::string& argument : arguments) argv.push_back(argument.c_str());
  return ReadCommandLine(ArgumentsOf(static_cast<int>(argv.size()), argv.data()));
}

TEST(CommandLine, IsReadAsWhatItAsksFor) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "window "},
      {"a/5-12-3.EPS", "window a/5-12-3.EPS"},
      {"5-12-3.nte", "window 5-12-3.nte"},
      {"5-12-3.txt", "mistake"},
      {"5-12-3.eps 6-1-1.eps", "mistake"},
      {"--bogus", "mistake"},
      {"exprot x", "mistake"},
      {"-- frob", "mistake"},
      {"--\x1B[2J", "mistake"},
      {"table \x1B[2J LIST.TXT", "mistake"},
      {"-platform offscreen -style=fusion 5-12-3.eps", "window 5-12-3.eps"},
      {"5-\xE9-3.eps", "window 5-\xE9-3.eps"},
      {"--version", "text orvex "},
      {"agree a.eps b.eps", "agree a.eps b.eps within 5 > "},
      {"agree a.eps b.eps --offset -12 --tolerance 0 --pairs p.csv --save-pairs q.csv --json",
       "agree json a.eps b.eps within 0 offset -12 p.csv>q.csv "},
      {"agree DATA --csv out", "agree DATA within 5 > out"},
      {"agree a.eps b.eps c.eps --csv=out", "agree a.eps b.eps c.eps within 5 > out"},
      {"agree", "mistake"},
      {"picture a.eps b.eps", "svg of classes a.eps b.eps to "},
      {"picture DATA --format png --output out", "png of classes DATA to out"},
      {"picture --study DATA", "svg of study by name DATA to "},
      {"picture --study A B --sort off-task --format pdf", "pdf of study by off-task A B to "},
      {"picture a.eps --window", "picture a.eps"},
      {"picture a.eps b.eps --window", "mistake"},
      {"picture a.sur --window", "mistake"},
      {"picture a.eps --window --format svg", "mistake"},
      {"picture", "mistake"},
      {"picture DATA --sort name", "mistake"},
      {"picture DATA --study --sort size", "mistake"},
      {"picture DATA --format jpg", "mistake"},
      {"picture DATA --output=", "mistake"},
      {"report DATA --pdf --output out", "report pdf DATA to out"},
      {"report DATA --pdf --json", "mistake"},
      {"report DATA --output out", "mistake"},
      {"agree DATA --offset 3", "mistake"},
      {"agree DATA --pairs p.csv", "mistake"},
      {"agree a.eps b.eps --csv out", "mistake"},
      {"agree DATA --csv=", "mistake"},
      {"agree DATA --csv a --csv b", "mistake"},
      {"agree a.eps b.sur", "mistake"},
      {"agree DATA --tolerance 601", "mistake"},
      {"agree DATA --tolerance 2.5", "mistake"},
      {"agree a.eps b.eps --offset 43201", "mistake"},
      {"--help", "text Usage:"},
      {"export epsdata LIST.TXT", "epsdata LIST.TXT to "},
      {"export surdata --keep-going --output out LIST.TXT", "surdata LIST.TXT to out keep going"},
      {"--keep-going export epsdata LIST.TXT", "epsdata LIST.TXT to  keep going"},
      {"--output out export epsdata LIST.TXT", "mistake"},
      {"export --version", "text orvex "},
      {"export LIST.TXT", "mistake"},
      {"export nodata LIST.TXT", "mistake"},
      {"export epsdata", "mistake"},
      {"export epsdata A.TXT DATA - b.eps", "epsdata A.TXT DATA - b.eps to "},
      {"export epsdata LIST.TXT --codebook", "mistake"},
      {"export --help", "text Usage:"},
      {"table questions LIST.TXT", "questions LIST.TXT to "},
      {"table segments L.TXT --codebook --output=out",
       "segments L.TXT to out with segments-codebook.csv"},
      {"--codebook table segments r", "segments r to  with segments-codebook.csv"},
      {"table survey --codebook r DATA", "survey DATA to  with survey.R"},
      {"table survey DATA --codebook=spss", "survey DATA to  with survey.sps"},
      {"table survey DATA --codebook=sas", "mistake"},
      {"table survey --codebook sas DATA", "mistake"},
      {"table survey --codebook /", "survey / to  with survey-codebook.csv"},
      {"table survey DATA --codebook spss --codebook --codebook r",
       "survey DATA to  with survey-codebook.csv with survey.R with survey.sps"},
      {"table survey DATA --output=", "mistake"},
      {"export epsdata DATA --output=", "mistake"},
      {"export epsdata DATA --output a --output b", "mistake"},
      {"table all A B --format csv", "observations survey episodes segments questions A B to "},
      {"table all A --format sqlite",
       "observations survey episodes segments questions A to  in sqlite"},
      {"table all A --format xml", "mistake"},
      {"table questions A --format sqlite", "mistake"},
      {"table all A --format sqlite --codebook r", "mistake"},
      {"table all", "mistake"},
      {"table episodes DATA --output -", "episodes DATA to -"},
      {"table episodes DATA --output - --codebook", "mistake"},
      {"table all DATA --output -", "mistake"},
      {"table --help", "text Usage:"},
      {"check a.eps b.sur", "check a.eps b.sur"},
      {"check -", "check -"},
      {"check", "mistake"},
      {"check --help", "text Usage:"},
      {"report a.eps", "report a.eps"},
      {"report --json a.eps b.eps", "json a.eps b.eps"},
      {"report --help", "text Usage:"},
  };
  for (const auto& [line, expected] : cases) {
    const Request request = RequestOf(line);
    EXPECT_EQ(std::visit(Describe{}, request), expected) << line;
    const auto* mistake = std::get_if<Mistake>(&request);
    EXPECT_TRUE(!mistake || mistake->text.find('\x1B') == std::string::npos) << line;
  }
}

std::string TextOf(const std::filesystem::path& file) {
  std::ifstream in(file);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// The texts of all chapters of the manual.
std::string WholeManual() {
  std::string manual;
  for (const auto& file :
       std::filesystem::directory_iterator(test::SourceFolder() / "docs/manual")) {
    manual += TextOf(file.path());
  }
  return manual;
}

TEST(Manual, NamesEveryCommandAndOption) {
  const std::string manual = WholeManual();
  const std::string commands = std::get<ShowText>(RequestOf("--help")).text;
  int found = 0;
  std::istringstream lines(commands.substr(commands.find("Commands:")));
  for (std::string line; std::getline(lines, line) && !line.starts_with("A source");) {
    if (!line.starts_with("  ")) continue;
    const std::string command = line.substr(2, line.find(' ', 2) - 2);
    EXPECT_NE(manual.find("`orvex " + command), std::string::npos) << command;
    const std::string help = std::get<ShowText>(RequestOf(command + " --help")).text;
    for (auto at = help.find(" --"); at != std::string::npos; at = help.find(" --", at + 1)) {
      const std::string option = help.substr(at + 1, help.find_first_of(" \n,.=", at + 1) - at - 1);
      EXPECT_NE(manual.find(option), std::string::npos) << command << " " << option;
    }
    ++found;
  }
  EXPECT_GE(found, 6);
}

TEST(Version, IsTheSameInTheProgramTheReadmeAndTheChanges) {
  EXPECT_TRUE(std::get<ShowText>(RequestOf("--version")).text.starts_with("orvex "));
  const std::string readme = TextOf(test::SourceFolder() / "README.md");
  EXPECT_NE(readme.find("/orvex_" + FullVersionText() + "_amd64.deb"), std::string::npos);
  const std::string changes = TextOf(test::SourceFolder() / "CHANGELOG.md");
  EXPECT_EQ(changes.find("\n## "), changes.find("\n## " + FullVersionText()));
}

}  // namespace
}  // namespace orvex
