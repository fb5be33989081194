// What the command line is read as.

#include "app/command_line.h"

#include <gtest/gtest.h>

namespace orvex {
namespace {

std::string Joined(const std::vector<std::filesystem::path>& files) {
  std::string text;
  for (const auto& file : files) text += " " + file.string();
  return text;
}

struct Describe {
  std::string operator()(const OpenWindow& r) const { return "window " + r.file.string(); }
  std::string operator()(const ShowText& r) const { return "text " + r.text.substr(0, 6); }
  std::string operator()(const Mistake&) const { return "mistake"; }
  std::string operator()(const CheckCommand& r) const { return "check" + Joined(r.files); }
  std::string operator()(const ReportCommand& r) const {
    return (r.json ? "json" : "report") + Joined(r.files);
  }
  std::string operator()(const ExportCommand& r) const {
    return std::string(r.kind == ExportKind::epsData ? "epsdata " : "surdata ") + r.list.string() +
           " to " + r.output.string() + (r.keepGoing ? " keep going" : "");
  }
  std::string operator()(const TableCommand& r) const {
    return std::string(NameOf(r.table)) + " " + r.list.string() + " to " + r.output.string() +
           (r.codebook ? " codebook" : "");
  }
};

TEST(CommandLine, IsReadAsWhatItAsksFor) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "window "},
      {"a/5-12-3.EPS", "window a/5-12-3.EPS"},
      {"5-12-3.nte", "window 5-12-3.nte"},
      {"5-12-3.txt", "mistake"},
      {"5-12-3.eps 6-1-1.eps", "mistake"},
      {"--bogus", "mistake"},
      {"--version", "text orvex "},
      {"--help", "text Usage:"},
      {"export epsdata LIST.TXT", "epsdata LIST.TXT to "},
      {"export surdata --keep-going --output out LIST.TXT", "surdata LIST.TXT to out keep going"},
      {"export LIST.TXT", "mistake"},
      {"export nodata LIST.TXT", "mistake"},
      {"export epsdata A.TXT B.TXT", "mistake"},
      {"export epsdata LIST.TXT --codebook", "mistake"},
      {"export --help", "text Usage:"},
      {"table questions LIST.TXT", "questions LIST.TXT to "},
      {"table segments L.TXT --codebook --output=out", "segments L.TXT to out codebook"},
      {"table --help", "text Usage:"},
      {"check a.eps b.sur", "check a.eps b.sur"},
      {"check", "mistake"},
      {"check --help", "text Usage:"},
      {"report a.eps", "report a.eps"},
      {"report --json a.eps b.eps", "json a.eps b.eps"},
      {"report --help", "text Usage:"},
  };
  for (const auto& [line, expected] : cases) {
    QStringList arguments = {QStringLiteral("orvex")};
    arguments += QString::fromUtf8(line).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    EXPECT_EQ(std::visit(Describe{}, ReadCommandLine(arguments)), expected) << line;
  }
}

}  // namespace
}  // namespace orvex
