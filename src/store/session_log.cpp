#include "store/session_log.h"

#include "model/activities.h"
#include "model/clock.h"
#include "model/time_of_day.h"
#include "model/version.h"
#include "store/numbers.h"

namespace orvex {
namespace {

std::string EpisodeAndSegment(int ep, int sg) {
  return "Ep. " + std::to_string(ep) + " Sg. " + std::to_string(sg);
}

}  // namespace

SessionLog::SessionLog(Storage& storage, const Clock& clock) : file_(storage), clock_(clock) {}

void SessionLog::Line(std::string_view text) {
  file_.Append(std::string(text) + "\r\n");
}

void SessionLog::LogOn(std::string_view fileName, std::string_view initials,
                       std::string_view students) {
  const std::string gap(5, ' ');
  Line("********* Orvex " + VersionText() + " BAK file *********\r\n" +  //
       std::string(fileName) + gap + std::string(initials) + gap + clock_.ShortDateText() +
       "\r\nLOG ON: " + clock_.TimeText() + gap + std::string(students) + " Students");
}

void SessionLog::LogEpisodeStart(int ep, int sg) {
  if (sg != 1) return;
  Line("\r\n***************************** Episode " + std::to_string(ep) +
       " ******************************\r\n" + EpisodeAndSegment(ep, sg) + " started at " +
       clock_.TimeText());
}

void SessionLog::LogSegmentEnd(int ep, int sg, int activity, std::int32_t seconds,
                               std::string_view about) {
  std::string text =
      EpisodeAndSegment(ep, sg) + " " + ActivityCaption(activity) + " " + std::to_string(seconds);
  if (!about.empty()) text += "\r\n\"" + std::string(about) + "\"\r\n";
  Line(text);
}

void SessionLog::LogEpisode(int ep, std::string_view text, double seconds) {
  Line("Episode " + std::to_string(ep) + " : " + std::string(text) + ", " +
       FormatPattern(RoundHalfEven(seconds), "0") + ", " + clock_.TimeText());
}

void SessionLog::LogRevisedActivity(int ep, int sg, int activity) {
  Line("REVISED ACTIVITY # for " + EpisodeAndSegment(ep, sg) + " :  " + ActivityDigits(activity) +
       " " + clock_.TimeText());
}

void SessionLog::LogRevisedN(std::string_view text) {
  Line("REVISED N= " + std::string(text) + " " + clock_.TimeText());
}

void SessionLog::LogRevisedQuestion(int ep, int q, const questionInfo& question) {
  std::string text = "REVISE ? " + std::to_string(ep) + " : " + std::to_string(q) + " = ";
  text += question.question;
  std::string_view separator = "\n ";
  for (const Dimension dimension : kDimensions) {
    text.append(separator).append(SchemeOf(dimension).logName);
    text.append(": ").append(question.Text(dimension));
    separator = "; ";
  }
  text += separator;
  text += clock_.TimeText();
  Line(text);
}

void SessionLog::LogRevisedDescription(std::string_view text) {
  Line("REVISED EP.Description: " + std::string(text) + " " + clock_.TimeText());
}

void SessionLog::LogAdjustTime(int ep, int sg, float seconds) {
  Line("ADJUST TIME OF EP. " + std::to_string(ep) + " SG. " + std::to_string(sg) + " : " +
       FormatPattern(RoundHalfEven(static_cast<double>(-seconds)), "0"));
}

void SessionLog::LogFieldNote(int ep, int sg, std::string_view note) {
  Line("REVISED FIELDNOTE" + std::to_string(ep) + " SG. " + std::to_string(sg) + " :  " +
       clock_.TimeText() + "\r\n************* FIELDNOTE BEGINS ***********\r\n" +
       std::string(note) + "\r\n************* FIELDNOTE ENDS ***********\r\n");
}

void SessionLog::LogBlankLine() {
  Line("");
}

void SessionLog::LogOfftask(float proportion, std::string_view offtask, std::string_view students,
                            int activity) {
  std::string text = "OFFTASK: " + FormatPattern(proportion, "0.#######");
  text.append(" [ ").append(offtask).append(" / ").append(students).append(" ] Act # ");
  Line(text + ActivityDigits(activity) + " " + ActivityCaption(activity) + " " + clock_.TimeText());
}

void SessionLog::LogEpisodeOfftask(int ep, float offtask, int estimates) {
  Line("Prop. students offtask in episode " + std::to_string(ep) + " = " +
       FormatPattern(offtask, "0.#######E-###") +
       " [number of estimates = " + std::to_string(estimates) + " ]");
}

void SessionLog::LogActiveEstimates(int ep) {
  Line(std::string(20, ' ') + "ACTIVE ESTIMATES FOR EPISODE " + std::to_string(ep) + " :");
}

void SessionLog::LogRestoredQuestion(std::string_view question) {
  Line("***** RESTORED QUESTION " + std::string(question) + " ***** " + clock_.TimeText());
}

void SessionLog::LogDroppedQuestion(std::string_view question) {
  Line("***** DROPPED QUESTION " + std::string(question) + " ***** " + clock_.TimeText());
}

void SessionLog::LogSegmentToEpisode() {
  Line("***** CHANGE A NEW SEGMENT TO NEW EPISODE ***** " + clock_.TimeText());
}

void SessionLog::LogEpisodeToSegment() {
  Line("***** CHANGE A NEW EPISODE TO NEW SEGMENT ***** " + clock_.TimeText());
}

void SessionLog::LogClassGoesOn() {
  Line("***** CLASS NOT ENDED, IT GOES ON ***** " + clock_.TimeText());
}

void SessionLog::LogTakenUp() {
  Line("\r\n***** CLASS TAKEN UP AGAIN ***** " + clock_.TimeText());
}

void SessionLog::LogOff() {
  Line("LOG OFF: " + clock_.TimeText());
}

}  // namespace orvex
