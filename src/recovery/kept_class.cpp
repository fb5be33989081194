#include "recovery/kept_class.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "desk/prompter.h"
#include "model/clock.h"
#include "model/limits.h"
#include "model/survey_scheme.h"
#include "model/texts.h"
#include "recovery/kept_content.h"
#include "recovery/recovery_file.h"
#include "running/header_box.h"
#include "store/file_error.h"
#include "store/format_error.h"
#include "store/paths.h"
#include "store/record.h"
#include "store/session_log.h"
#include "store/text_encoding.h"

namespace orvex {
namespace {

// Each type is described once, for both writing and reading. A field that is missing here is
// missing in both, and its test fails.

void Visit(auto& archive, auto& moment) requires requires {
  moment.unixSeconds;
}
{
  archive.Text("date", moment.dateText);
  archive.Text("time", moment.timeText);
  archive.Numbers("clock", moment.secondsSinceMidnight, moment.unixSeconds);
}

void Visit(auto& archive, auto& segment) requires requires {
  segment.activityNum;
}
{
  archive.Numbers("segment", segment.activityNum, segment.duration, segment.fSubCat,
                  segment.grpSolo, segment.prep, segment.org, segment.src, segment.coglvl);
  archive.Text("about", segment.aboutdata);
}

void Visit(auto& archive, auto& question) requires requires {
  question.respondName;
}
{
  archive.Text("question", question.question);
  archive.Text("respondName", question.respondName);
  const auto visitCodes = [&](auto... dimensions) {
    archive.Numbers("codes", question.codes[dimensions]..., question.iEpQ, question.iSgQ,
                    question.bSkip);
  };
  std::apply(visitCodes, kLetteredDimensions);
}

void Visit(auto& archive, auto& episode) requires requires {
  episode.Descript;
}
{
  archive.Text("Descript", episode.Descript);
  archive.Text("bReview", episode.bReview);
  archive.Numbers("offtask", episode.offtask);
  archive.List("segments", episode.segments, [&](auto& segment) { Visit(archive, segment); });
  archive.List("questions", episode.questions, [&](auto& question) { Visit(archive, question); });
}

void Visit(auto& archive, auto& identity) requires requires {
  identity.SchoolNum;
}
{
  archive.Text("SchoolNum", identity.SchoolNum);
  archive.Text("ClassNum", identity.ClassNum);
  archive.Text("ObservNum", identity.ObservNum);
  archive.Text("Initials", identity.Initials);
  archive.Text("NumStudents", identity.NumStudents);
}

void VisitEstimates(auto& archive, std::string_view name, auto& estimates) {
  archive.List(name, estimates, [&](auto& estimate) { archive.Numbers("estimate", estimate); });
}

void Visit(auto& archive, auto& program) requires requires {
  program.OfftaskByCat;
}
{
  Visit(archive, program.identity);
  archive.Text("StartTimeText", program.StartTimeText);
  archive.Numbers("QuitRequested", program.ClassStored);
  for (auto& estimates : program.OfftaskByCat) VisitEstimates(archive, "category", estimates);
  archive.List("Episodes", program.Episodes, [&](auto& episode) { Visit(archive, episode); });
}

/// The panels follow from the activity. They are written, but ignored when read.
void VisitCoding(auto& archive, auto& coding, int activity) {
  bool about = ActivityOf(activity).carriesAbout;
  bool presentation = Carries(activity, SubCode::groupSolo);
  bool seatwork = Carries(activity, SubCode::writing);
  bool groupWork = Carries(activity, SubCode::groupWork);
  archive.Numbers("panels", coding.choicesVisible, about, presentation, seatwork, groupWork);
  archive.Numbers("coding", coding.Chosen(SubCode::groupSolo), coding.Chosen(SubCode::preparation),
                  coding.Chosen(SubCode::organization), coding.Chosen(SubCode::writing),
                  coding.Chosen(SubCode::groupWork));
  archive.Text("about", coding.about);
  archive.Text("source", coding.Typed(SubCode::seatworkSource));
  archive.Text("cognitiveLevel", coding.Typed(SubCode::seatworkLevel));
  archive.Text("seatworkOrg", coding.Typed(SubCode::seatworkOrganization));
  static_assert(kSubCodeCount == 8, "a new code is visited with the later fields");
}

/// An activity is kept as decimal text, and as an empty text when there is none.
void VisitActivity(auto& archive, std::string_view name, auto& activity) {
  std::string digits = ActivityDigits(activity);
  archive.Text(name, digits);
  if constexpr (!std::is_const_v<std::remove_reference_t<decltype(activity)>>) {
    activity = kNoActivity;
    while (digits != ActivityDigits(activity)) {
      if (++activity > kActivityCount) archive.Fail(name);
    }
  }
}

constexpr int kAbandoned = -1;
constexpr int kAwaited = 0;
constexpr int kLastEstimateKind =
    std::ranges::max(kActivities, {}, &Activity::estimateKind).estimateKind;

/// The choice of the activity as the number that is kept: once it is made, the kind of the
/// activity's estimates.
int StateOf(const RunningClass& running) {
  if (running.choice == ActivityChoice::abandoned) return kAbandoned;
  if (running.choice == ActivityChoice::awaited) return kAwaited;
  return ActivityOf(running.curActivity).estimateKind;
}

ActivityChoice ChoiceOf(int state) {
  if (state == kAbandoned) return ActivityChoice::abandoned;
  return state == kAwaited ? ActivityChoice::awaited : ActivityChoice::made;
}

void Visit(auto& archive, auto& survey) requires requires {
  survey.ratings;
}
{
  for (auto& checks : survey.checks) archive.Bits("checks", checks);
  archive.Text("other", survey.other);
  for (auto& rating : survey.ratings) archive.Numbers("rating", rating);
}

void Visit(auto& archive, auto& dialog) requires requires {
  dialog.studentsBefore;
}
{
  archive.Text("offtask", dialog.prompt.offtask);
  archive.Text("students", dialog.prompt.students);
  archive.Text("studentsBefore", dialog.studentsBefore);
}

void Visit(auto& archive, auto& draft) requires requires {
  draft.fields;
}
{
  archive.Text("draftQuestion", draft.question);
  EntryFields::Visit(archive, draft.fields);
}

/// A step of the question history: what a question was like before or after a change.
void Visit(auto& archive, auto& step) requires requires {
  step.present;
}
{
  archive.Numbers("step", step.place.episode, step.place.question, step.present);
  archive.Optional("question", step.question, [&](auto& question) { Visit(archive, question); });
  archive.Optional("draft", step.draft, [&](auto& draft) { Visit(archive, draft); });
}

void VisitPath(auto& archive, const char* name, auto& path) {
  std::string text = path.string();
  archive.Text(name, text);
  if constexpr (!std::is_const_v<std::remove_reference_t<decltype(path)>>) path = text;
}

void Visit(auto& archive, auto& running) requires requires {
  running.curEpisode;
}
{
  archive.Numbers("running", running.curEpisode, running.curSegment, running.episodeStart,
                  running.segmentStart, running.prevEpisodeStart);
  VisitEstimates(archive, "offtaskEstimates", running.offtaskEstimates);
  VisitEstimates(archive, "prevOfftaskEstimates", running.prevOfftaskEstimates);
  VisitActivity(archive, "curActivity", running.curActivity);
  VisitActivity(archive, "prevActivity", running.prevActivity);
  VisitActivity(archive, "episodeActivity", running.episodeActivity);
  int state = StateOf(running);
  archive.Numbers("state", state, running.freshSegment, running.skipEstimate, running.awaitsSurvey,
                  running.nothingEntered);
  if constexpr (!std::is_const_v<std::remove_reference_t<decltype(running)>>) {
    if (state < kAbandoned || state > kLastEstimateKind) archive.Fail("state");
    running.choice = ChoiceOf(state);
  }
  OfftaskSchedule::Visit(archive, running.schedule);
  archive.Optional("estimateDialog", running.estimateDialog,
                   [&](auto& dialog) { Visit(archive, dialog); });
  VisitCoding(archive, running.coding, running.ChosenActivity());
  archive.Text("fieldNotes", running.fieldNotes);
  Visit(archive, running.survey);
  VisitPath(archive, "storedElsewhere", running.storedElsewhere);
  Visit(archive, running.draft);
  archive.Numbers("questionsBefore", running.questionsBefore);
}

/// The fields that earlier versions did not keep.
void VisitLaterFields(auto& archive, auto& running) {
  archive.Text("token", running.token);
  for (auto& typed : running.typedNumbers) {
    archive.Optional("typed", typed, [&](auto& text) { archive.Text("number", text); });
  }
  archive.Numbers("stored", running.stored.episodes, running.stored.notes, running.stored.survey);
  QuestionHistory::Visit(archive, running.history, [&](auto& step) { Visit(archive, step); });
  archive.Optional("notesOpen", running.draftNotes,
                   [&](auto& text) { archive.Text("draftNotes", text); });
}

// What was read is checked for everything that the program takes for granted. Texts that other
// files hold on one line are put on one line.

bool AreGood(const Survey& survey) {
  for (std::size_t i = 0; i < survey.ratings.size(); ++i) {
    const std::int16_t rating = survey.ratings[i];
    if (rating < kUncoded || rating >= SurveyStatements()[i].Buttons()) return false;
  }
  for (std::size_t group = 0; group < survey.checks.size(); ++group) {
    const auto items = SurveyGroups()[group].items.size();
    if ((survey.checks[group] >> items).any()) return false;
  }
  return true;
}

bool IsTimeOfDay(float seconds) {
  constexpr float kFarthest = 1e9F;  // a start can lie years back
  return seconds > -kFarthest && seconds < kFarthest;
}

bool IsGood(const KeptClass& kept) {
  const RunningClass& running = kept.running;
  const EpisodeList& episodes = kept.program.Episodes;
  if (episodes.empty() || static_cast<std::size_t>(running.curEpisode) != episodes.size()) {
    return false;
  }
  if (episodes.size() > kMostNumber) return false;
  for (const Episode& episode : episodes) {
    if (episode.segments.size() > kMostNumber || episode.questions.size() > kMostNumber)
      return false;
  }
  const auto segments = static_cast<int>(episodes.back().segments.size());
  const bool follows = running.curSegment == segments + 1 || kept.SegmentEnded();
  const bool hasActivity =
      running.curActivity != kNoActivity || running.choice != ActivityChoice::made;
  return follows && running.curSegment >= 1 && hasActivity && IsTimeOfDay(running.episodeStart) &&
         IsTimeOfDay(running.segmentStart) && IsTimeOfDay(running.prevEpisodeStart) &&
         AreGood(running.survey);
}

void MakeOneLine(std::string& text) {
  text = OneLine(text);
}

void MakeTextsOneLine(KeptClass& kept) {
  for (Episode& episode : kept.program.Episodes) {
    MakeOneLine(episode.Descript);
    MakeOneLine(episode.bReview);
    for (SegmentData& segment : episode.segments) MakeOneLine(segment.aboutdata);
    for (questionInfo& question : episode.questions) {
      MakeOneLine(question.question);
      MakeOneLine(question.respondName);
    }
  }
  Identity& identity = kept.program.identity;
  for (std::string* text : {&identity.Initials, &identity.NumStudents, &kept.program.StartTimeText,
                            &kept.running.coding.about, &kept.running.survey.other}) {
    MakeOneLine(*text);
  }
  for (auto& typed : kept.running.typedNumbers) {
    if (typed) MakeOneLine(*typed);
  }
}

}  // namespace

bool KeptClass::SegmentEnded() const {
  return !program.Episodes.empty() &&
         static_cast<std::size_t>(running.curSegment) == program.Episodes.back().segments.size();
}

std::size_t KeptClass::Questions() const {
  std::size_t questions = 0;
  for (const Episode& episode : program.Episodes) questions += episode.questions.size();
  return questions;
}

std::string FormatRunning(const Program& program, const RunningClass& running) {
  std::string text;
  RecordWriter writer(text);
  Visit(writer, program);
  Visit(writer, running);
  VisitLaterFields(writer, running);
  return text;
}

std::string FormatMoment(const KeptMoment& moment) {
  std::string text;
  RecordWriter writer(text);
  writer.Text("Orvex recovery", "1");
  Visit(writer, moment);
  return text;
}

KeptClass ParseKept(const std::string& content) {
  KeptClass kept;
  RecordReader reader(content);
  std::string version;
  reader.Text("Orvex recovery", version);
  if (version != "1") reader.Fail("Orvex recovery");
  Visit(reader, kept.moment);
  Visit(reader, kept.program);
  Visit(reader, kept.running);
  // A class that an earlier version kept ends here.
  if (!reader.AtEnd()) VisitLaterFields(reader, kept.running);
  reader.End();
  if (!IsGood(kept)) reader.Fail("a class that could have run so");
  MakeTextsOneLine(kept);
  return kept;
}

namespace {

/// Gives the class the numbers of its log, which were accepted last. Without a log, those in the
/// name of its recovery file count.
void SettleIdentity(KeptClass& kept, const std::filesystem::path& path) {
  Identity& identity = kept.program.identity;
  Identity named = identity;
  NameAfter(path, named);
  for (const Identity& accepted : {named, identity, AsTyped(identity, kept.running.typedNumbers)}) {
    std::error_code unknown;
    if (!std::filesystem::exists(BakPath(DataFolderOf(path), accepted), unknown)) continue;
    identity = accepted;
    return;
  }
  identity = named;
}

}  // namespace

KeptClass ReadKeptClass(const std::filesystem::path& path) {
  const KeptContent content = ReadKept(path);
  KeptClass kept = ParseKept(content.content);
  kept.number = content.number;
  SettleIdentity(kept, path);
  return kept;
}

void ClassKeeper::Keep(const Services& services, const RunningClass& running) {
  AppendLog& log = services.log.File();
  if (services.recovery.IsOn()) {
    log.HoldEntries();
    HandOver(services, running);
  }
  services.recovery.WhenWritten([&log, end = log.End()] { log.LetThrough(end); });
}

void ClassKeeper::HandOver(const Services& services, const RunningClass& running) {
  const Clock& clock = services.clock;
  const std::int64_t now = clock.UnixSeconds();
  constexpr std::int64_t kLongest = 10;
  std::string text = FormatRunning(services.program, running);
  if (text == kept_ && std::abs(now - keptAt_) < kLongest) return;
  kept_ = std::move(text);
  keptAt_ = now;
  services.recovery.Keep(FormatMoment({.dateText = clock.DateText(),
                                       .timeText = clock.TimeText(),
                                       .secondsSinceMidnight = clock.SecondsSinceMidnight(),
                                       .unixSeconds = now}) +
                         kept_);
}

void ForgetKept(const Services& services) {
  try {
    services.recovery.Remove();
  } catch (const FileError& error) {
    services.prompter.Tell(Say(Text::keptClassNotRemoved), error.what());
  }
}

}  // namespace orvex
