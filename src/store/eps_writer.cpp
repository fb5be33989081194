#include "store/eps_writer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "model/version.h"
#include "model/wording.h"
#include "store/durable_file.h"
#include "store/numbers.h"

namespace orvex {
namespace {

constexpr std::string_view kStars = "*********";

/// Builds the text of an episode file, piece by piece.
class EpsText {
 public:
  explicit EpsText(std::size_t expectedBytes) { text_.reserve(expectedBytes); }

  EpsText& operator<<(std::string_view piece) {
    text_ += piece;
    return *this;
  }
  /// A text that somebody typed. It is put on one line, as a line break would break the file.
  EpsText& Typed(std::string_view text) {
    const bool broken = text.find_first_of("\r\n") != std::string_view::npos;
    return broken ? *this << OneLine(text) : *this << text;
  }
  /// A text between double quotes. Double quotes within it become single ones.
  EpsText& Quoted(std::string text) {
    std::replace(text.begin(), text.end(), '"', '\'');
    return (*this << "\"").Typed(text) << "\"";
  }
  /// A text that is read back as one field.
  EpsText& Field(std::string_view text) {
    const std::string line = OneLine(text);
    const bool blanks = line.starts_with(' ') || line.ends_with(' ');
    return blanks || line.find(',') != std::string::npos ? Quoted(line) : *this << line;
  }
  /// A text that is read back as one field. Blanks around it are written, although reading drops
  /// them.
  EpsText& Given(std::string_view text) {
    return text.find(',') == std::string_view::npos ? Typed(text) : Field(text);
  }
  /// A number with nothing around it.
  EpsText& Joined(std::int64_t number) { return *this << Digits(number); }
  /// Seconds, rounded to a whole number, with nothing around them.
  EpsText& Joined(double seconds) { return *this << WholeSecondsText(seconds); }
  /// A number with a blank before it, unless it is negative, and a blank after it.
  EpsText& Item(std::int64_t number) { return AsItem(number < 0, Digits(number)); }
  EpsText& Item(double seconds) {
    const std::string digits = WholeSecondsText(seconds);
    return AsItem(digits.front() == '-', digits);
  }
  EpsText& Item(float number) { return *this << PrintItem(number); }
  void EndLine() { text_ += "\r\n"; }

  std::string Take() { return std::move(text_); }

 private:
  EpsText& AsItem(bool negative, std::string_view digits) {
    if (!negative) text_ += ' ';
    return *this << digits << " ";
  }
  std::string_view Digits(std::int64_t number) {
    const auto end = std::to_chars(digits_.data(), digits_.data() + digits_.size(), number);
    return {digits_.data(), end.ptr};
  }

  std::string text_;
  std::array<char, 20> digits_{};
};

void WriteHeader(EpsText& out, const EpsHeader& header, std::size_t episodes) {
  out << kStars << " Orvex " << VersionText() << " EPS file " << kStars;
  out.EndLine();
  const Identity& identity = header.identity;
  out.Field(identity.SchoolNum) << ",";
  out.Field(identity.ClassNum) << ",";
  out.Field(identity.ObservNum) << ", ";
  out.Given(identity.NumStudents) << ", ";
  out.Quoted(identity.Initials) << ", ";
  out.Field(header.ObservDate) << ", ";
  out.Field(header.StartTime) << ", ";
  out.Item(static_cast<std::int64_t>(episodes)).EndLine();
  for (std::size_t i = 0; i < header.ActivityOfftask.size(); ++i) {
    if (i > 0) out << ",";
    out.Item(header.ActivityOfftask[i]);
  }
  out.EndLine();
}

void WriteSegment(EpsText& out, const SegmentData& segment) {
  const Activity& activity = ActivityOf(segment.activityNum);
  out.Item(std::int64_t{segment.activityNum}) << ",";
  out.Item(static_cast<double>(segment.duration));
  for (const SubCode code : activity.subCodes) {
    out << ",";
    out.Item(std::int64_t{segment.*SchemeOf(code).stored});
  }
  out.EndLine();
  if (activity.carriesAbout) out.Typed(segment.aboutdata).EndLine();
}

void WriteEpisode(EpsText& out, const Episode& episode, std::int64_t number,
                  std::int64_t earlierQuestions) {
  const auto spells = FindDialogicSpells(episode.questions);
  const auto& segments = episode.segments;
  out << kStars << " EPISODE ";
  out.Joined(number) << " " << kStars;
  out.EndLine();
  out.Typed(episode.Descript).EndLine();
  out.Item(std::int64_t{segments.empty() ? std::int16_t{0} : segments.front().activityNum}) << ",";
  out.Item(episode.duration()) << ",";
  out.Item(std::int64_t{episode.nQAs()}) << ",";
  out.Field(episode.bReview) << ",";
  out.Item(earlierQuestions) << ",";
  out.Item(static_cast<std::int64_t>(segments.size())) << ",";
  out.Item(static_cast<std::int64_t>(spells.size())).EndLine();
  for (std::size_t i = 0; i < spells.size(); ++i) {
    out << (i > 0 ? ", " : "");
    out.Joined(std::int64_t{spells[i].Length()});
  }
  if (!spells.empty()) out.EndLine();
  for (const SegmentData& segment : segments) WriteSegment(out, segment);
}

void WriteSummary(EpsText& out, const Episode& episode) {
  if (!episode.questions.empty()) {
    const QuestionCounts counts = EpisodeQuestionCounts(episode);
    std::string_view separator = " ";
    for (const auto count : kQuestionCounts) {
      out << separator;
      out.Joined(std::int64_t{counts.*count});
      separator = " , ";
    }
    out << ",";
    out.Item(episode.offtask).EndLine();
  }
  ActivityTimes times{};
  AddTimes(episode.segments, times);
  std::string_view separator = " ";
  for (const double time : times) {
    out << separator;
    out.Joined(time);
    separator = " , ";
  }
  out.EndLine();
}

void WriteQuestion(EpsText& out, const questionInfo& question, std::int64_t episode) {
  out.Typed(question.question) << "(<-----";
  out.Item(episode) << ";";
  out.Item(std::int64_t{question.iSgQ}) << "----->)";
  out.EndLine();
  out.Typed(question.strRspnName()).EndLine();
  std::string_view separator;
  for (const Dimension dimension : kLetteredDimensions) {
    out << separator << question.Text(dimension);
    separator = ",";
  }
  out.EndLine();
}

/// True when the codes that this count is about are all 0.
bool AllDefault(const questionInfo& question) {
  using enum Dimension;
  return std::ranges::all_of(
      std::array{source, response, authenticity, uptake, cognitive},
      [&question](Dimension dimension) { return question.codes[dimension] == 0; });
}

}  // namespace

QuestionCounts EpisodeQuestionCounts(const Episode& episode) {
  QuestionCounts counts;
  for (const questionInfo& question : episode.questions) {
    const bool authentic = question.codes[Dimension::authenticity] == 1;
    if (question.codes[Dimension::source] == 0) {
      ++counts.teacher;
      if (authentic) ++counts.authenticTeacher;
    } else if (question.codes[Dimension::source] == 1) {
      ++counts.student;
      if (authentic) ++counts.authenticStudent;
    }
    if (question.codes[Dimension::response] == 1) ++counts.unanswered;
    if (question.codes[Dimension::uptake] == 1) ++counts.uptakeTest;
    if (AllDefault(question)) ++counts.allDefault;
  }
  return counts;
}

std::string FormatEps(const EpsHeader& header, const EpisodeList& episodes) {
  std::size_t expectedBytes = 0;
  for (const Episode& episode : episodes) expectedBytes += 512 + 128 * episode.questions.size();
  EpsText out(expectedBytes);
  WriteHeader(out, header, episodes.size());
  std::int64_t number = 0;
  std::int64_t earlierQuestions = 0;
  for (const Episode& episode : episodes) {
    WriteEpisode(out, episode, ++number, earlierQuestions);
    earlierQuestions += episode.nQAs();
  }
  for (const Episode& episode : episodes) WriteSummary(out, episode);
  number = 0;
  for (const Episode& episode : episodes) {
    ++number;
    for (const questionInfo& question : episode.questions) WriteQuestion(out, question, number);
  }
  return Encode(out.Take(), header.encoding);
}

void WriteEpsFile(Storage& storage, const std::filesystem::path& path, const EpsHeader& header,
                  const EpisodeList& episodes) {
  ReplaceFile(storage, path, FormatEps(header, episodes));
}

}  // namespace orvex
