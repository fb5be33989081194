#include "model/texts.h"

#include <array>

namespace orvex {
namespace {

struct Row {
  Text id;
  const char* text;
};

constexpr std::size_t kCount = static_cast<std::size_t>(Text::count);

/// A translation replaces the right column. "%1", "%2" and so on mark where values are filled in.
///
/// Some texts are misspelt, oddly spaced or spelt in two ways ("An error ocurred in", "already
/// exits!", "Class ID  ", "Offtask in     :", "Orvex 4.10", "Function overflow.", "no coding" and
/// "No coding", "Invalid file format" with a full stop and without). Do not correct them: results
/// are compared with these exact texts. This also goes for the captions in reports/time_summary.
constexpr std::array<Row, kCount> kTexts = {{
    // The program itself, and texts used in several places.
    {Text::boxTitle, "Orvex"},
    {Text::productName, "Orvex %1"},
    {Text::companyProduct, "In-class analysis of classroom discourse"},
    {Text::copyright, "Copyright \u00A9 2026 The Orvex developers"},
    {Text::licenceState,
     "The owner has not chosen a licence yet. Until then all rights are reserved."},
    {Text::manualNotFound, "not found beside the program"},
    {Text::notAvailable, "N/A"},
    {Text::askNewSegment, "Start New Segment?"},
    {Text::askNewEpisode, "Start New Episode?"},
    {Text::askAnotherFile, "Edit Another File?"},
    {Text::everythingCoded, "Everything coded; no invalid codes found"},
    {Text::functionOverflow, "Function overflow. Contact Dovrin."},
    {Text::errorInTimer, "An error ocurred in %1. Please contact the developer."},
    {Text::invalidFormat, "Invalid file format"},
    {Text::surveyNotWritten, "The survey could not be written."},
    {Text::notesNotSaved, "The field notes could not be saved."},
    {Text::whoAsks, "Who asks question?"},
    {Text::teacherResponse, "TEACHER RESPONSE"},

    // Counts, in the singular and the plural.
    {Text::oneEpisode, "%1 episode"},
    {Text::episodes, "%1 episodes"},
    {Text::oneQuestion, "%1 question"},
    {Text::questions, "%1 questions"},
    {Text::oneFile, "%1 file"},
    {Text::files, "%1 files"},
    {Text::onePlace, "%1 place"},
    {Text::places, "%1 places"},
    {Text::oneRow, "%1 row"},
    {Text::rows, "%1 rows"},

    // Durations, and the activity of an episode.
    {Text::oneMinute, "%1 minute, %2"},
    {Text::minutes, "%1 minutes, %2"},
    {Text::oneSecond, "%1 second"},
    {Text::seconds, "%1 seconds"},
    {Text::activityLabel, "%1: %2 Question(s)"},
    {Text::reviewLabel, "%1: %2 Question(s) (Review Session)"},

    // The data folder, and saving.
    {Text::dataFolderMissing, "The data folder is not there:\n\n%1"},
    {Text::tryAgain, "Try again"},
    {Text::chooseFolder, "Choose..."},
    {Text::useProgramFolder, "Use the program's folder"},
    {Text::dataFolder, "Data folder: %1"},
    {Text::unusualDataFolder, "Data folder: %1  (not the usual one, %2)"},
    {Text::saveElsewhere, "Save elsewhere..."},
    {Text::replaceIt, "Replace it"},
    {Text::askReplace, "%1 already exists. Replace it?"},
    {Text::fileChanged, "The file was changed by another program."},
    {Text::writeProtected, "This file is write-protected. Changes can only be saved elsewhere."},

    // A running class.
    {Text::teacherEvaluation, "TEACHER EVALUATION/FOLLOWUP"},
    {Text::codingOfNewSegment, "no coding"},
    {Text::codingOfNewActivity, "No coding"},
    {Text::olderKept, "There was another class of these numbers. What was there is kept as\n%1"},

    // Changes and classes that were not stored.
    {Text::changesUnreadable,
     "Changes that were not saved cannot be read. Their file is left as it is."},
    {Text::changesNotKept, "What is changed is not kept before it is saved: %1"},
    {Text::fileGone, "The file itself is gone since then."},
    {Text::fileChangedSince, "The file itself has been changed by another program since then."},
    {Text::fileUnreadableNow, "The file itself cannot be read now."},
    {Text::changesNotSaved, "%1 was changed on %2 at %3, and the changes were not saved."},
    {Text::hasChanges, "%1 has changes that were not saved"},
    {Text::changedAt, "changed on %1 at %2"},
    {Text::takeUpChanges, "Take them up"},
    {Text::discardChanges, "Discard them"},
    {Text::leaveChanges, "Leave them for later"},
    {Text::changesNotDiscarded, "The changes could not be discarded."},
    {Text::classUnreadable,
     "A class that was not ended cannot be read. Its file is left as it is."},
    {Text::classNotEnded, "Class %1 of %2 was not ended"},
    {Text::surveyNotStored, "Class %1 of %2 is stored, but its survey is not"},
    {Text::classTimes, "%1 to %2"},
    {Text::classAmount, "%1, %2"},
    {Text::classObserved, "It was observed from %1: %2."},
    {Text::classFolder, "It lies in the data folder %1."},
    {Text::goOnObserving, "Go on observing"},
    {Text::fillInSurvey, "Fill in the survey"},
    {Text::closeClass, "Close it as it stands"},
    {Text::closeWithoutSurvey, "Close it without"},
    {Text::leaveClass, "Leave it for later"},
    {Text::classNotTakenUp, "The class could not be taken up again."},
    {Text::classNotClosed, "The class could not be closed."},
    {Text::draftStored,
     "The question that was being entered is stored as question %1 of episode %2, with the codes "
     "that it had."},
    {Text::dataNotWritten, "The data files could not be written."},
    {Text::keptClassNotRemoved,
     "The class is stored, but its recovery file could not be removed. The class will be offered "
     "again."},
    {Text::keepsClass, "keeps a class that was not ended"},
    {Text::changedMeanwhile, "changed by another Orvex in the meantime"},

    // The survey.
    {Text::surveyClassId, "Class ID %1"},
    {Text::askSaveChanges, "Save changes?"},
    {Text::savedAs, "Saved as %1"},
    {Text::savedAsWithOlder, "Saved as %1; what was there is kept as %2"},

    // The main menu.
    {Text::notesUnreadable, "The field notes could not be read."},
    {Text::askMakeFolder, "There is no folder %1."},
    {Text::makeFolder, "Make it"},
    {Text::useFolderAnyway, "Use it all the same"},
    {Text::folderNotMade, "The folder could not be made."},
    {Text::askDataPath, "Enter a new path"},
    {Text::dataPathTitle, "Default path"},
    {Text::dataPathNotStored, "The data folder could not be stored."},

    // The live observation.
    {Text::episodeFileExists,
     "WARNING: %1.eps already exits!\nIt is kept under the time of its last change."},
    {Text::logNotOpened, "The session log could not be opened."},
    {Text::logNotRenamed, "The session log could not be renamed."},
    {Text::logNotCompleted, "The class is stored, but the session log could not be completed."},
    {Text::askOverwriteLog, "%1 already exists. Overwrite it?"},
    {Text::logKeptAs, "It is kept as \"%1\"."},
    {Text::liveClassId, "Class ID  %1"},
    {Text::liveCaption, "Class Activity Menu - File opened at %1"},
    {Text::episodeTime, "Episode %1 Time: "},
    {Text::segmentTime, "Segment %1 Time: "},
    {Text::logTrouble, "Trouble with the session log (%1). What it lacks is kept and tried again."},
    {Text::recoveryTrouble,
     "Trouble with the recovery file (%1). What it lacks is kept and tried again."},
    {Text::offtaskCountdown, "Offtask in     :            00 : %1"},
    {Text::watchSeconds, "%1 sec."},
    {Text::watchElapsed, "Time elapsed: %1"},
    {Text::watchTotal, "Total time: %1"},
    {Text::watchPrevious, "PREVIOUS TIME SEGMENT = %1"},
    {Text::askReviseActivity, "Revise activity # ?"},
    {Text::askMatrices, "Have you finished Matrices?"},
    {Text::askEndOfClass, "Verify END OF CLASS"},
    {Text::numbersNeeded, "School, class and observation must be numbers from 0 to 32767."},
    {Text::dataStillInMemory, "The data files could not be written. The class is still in memory."},

    // The questions, and what undo and redo do to them.
    {Text::questionNumber, "Question #%1:"},
    {Text::questionAfterEmpty, "Question #%1: (%2 is empty)"},
    {Text::questionOfSeveral, "Question #%1 of %2:"},
    {Text::episodeIsFull, "An episode holds at most %1 questions. Start a new episode."},
    {Text::editorTitle, "Question Editor"},
    {Text::liveEditorTitle, "Question Editor -- %1"},
    {Text::teacherEvalShort, "TEACHER EVAL./FOLLOWUP"},
    {Text::askDuplicateCoding, "Duplicate coding only?"},
    {Text::ditto, "Ditto"},
    {Text::codeQuestion, "Code question"},
    {Text::typeQuestion, "Type question"},
    {Text::typeName, "Type name"},
    {Text::typeSegmentNumber, "Type segment number"},
    {Text::typeDescription, "Type description"},
    {Text::insertQuestion, "Insert question"},
    {Text::dropQuestion, "Drop question"},
    {Text::normalQuestion, "Normal question"},
    {Text::bringsRowNumbersBack, "brings the old row numbers back"},
    {Text::numbersRowsAgain, "numbers the rows again"},
    {Text::bringsTypingBack, "brings what you were typing back"},
    {Text::takesTypingAway, "takes what you are typing away"},
    {Text::bringsQuestionBack, "brings question %1 back"},
    {Text::takesQuestionAway, "takes question %1 away"},
    {Text::changesQuestionBack, "changes question %1 back"},
    {Text::changesQuestionAgain, "changes question %1 again"},
    {Text::ofEpisode, " of episode "},

    // The episode editor, and the names of its steps.
    {Text::fileUnreadable, "The file could not be read."},
    {Text::fileNotSaved, "The file could not be saved."},
    {Text::noLongerReadable, "it can no longer be read: %1"},
    {Text::invalidEpisodeFile, "Invalid file format."},
    {Text::askEarlierVersion, "%1 Continue anyway?"},
    {Text::askSaveData, "Save Data?"},
    {Text::saveDrops, "A save would drop or change what this file holds in %1."},
    {Text::placeDropped, "\nLine %1: %2"},
    {Text::morePlaces, "\nAnd %1 more"},
    {Text::formDropped, "\nAlso: %1"},
    {Text::saveRewrites,
     "A save writes this file in the form of Orvex %1 (%2). What it holds stays as it is."},
    {Text::tooManySegments,
     "No more than %1 segments fit into one episode. Nothing has been changed."},
    {Text::tooManyQuestions,
     "No more than %1 questions fit into one episode. Nothing has been changed."},
    {Text::tooManyEpisodes,
     "No more than %1 episodes fit into one observation. Nothing has been changed."},
    {Text::numbersTooLarge, "The numbers are too large to be added up. Nothing has been changed."},
    {Text::totalEpisode, "Total: %1 Episode"},
    {Text::totalEpisodes, "Total: %1 Episodes"},
    {Text::segmentCount, "%1 Segment"},
    {Text::segmentsCount, "%1 Segments"},
    {Text::spells, "%1 dialogic spell(s)"},
    {Text::durationOfSegment, "Duration of segment %1:"},
    {Text::splitsSegment, "Splits segment %1"},
    {Text::undoes, "undoes \"%1\""},
    {Text::redoes, "redoes \"%1\""},
    {Text::editDescription, "Edit description"},
    {Text::editAbout, "Edit about text"},
    {Text::editQuestions, "Edit questions"},
    {Text::changeDuration, "Change duration"},
    {Text::changeActivity, "Change activity"},
    {Text::changeSubcategory, "Change subcategory"},
    {Text::changeGroupSolo, "Change group or solo"},
    {Text::changePreparation, "Change preparation"},
    {Text::changeOrganization, "Change organization"},
    {Text::changeSource, "Change source"},
    {Text::changeLevel, "Change cognitive level"},
    {Text::splitSegment, "Split segment"},
    {Text::mergeSegments, "Merge segments"},
    {Text::splitEpisode, "Split episode"},
    {Text::mergeEpisodes, "Merge episodes"},
    {Text::moveSegments, "Move segments"},
    {Text::reorderSegments, "Reorder segments"},
    {Text::pasteSegments, "Paste segments"},

    // The reports.
    {Text::dateOfObservation, "Date of Observation: %1"},
    {Text::observer, "Observer: %1"},
    {Text::episodeTitle, "%1 Episode %2"},
    {Text::classes, "%1 classes"},
    {Text::timeSummaryTitle, "Time Summary for School %1, Class %2, Observation %3"},
    {Text::plotTotal, "Total Number of Questions: %1"},
    {Text::pace, "(questions per minute) %1"},
    {Text::cleanUpFirst, "Questions need to be cleaned up first."},

    // The picture of a class.
    {Text::schoolCaption, "School"},
    {Text::classCaption, "Class"},
    {Text::observationCaption, "Observation"},
    {Text::dateCaption, "Date"},
    {Text::beginCaption, "Begin"},
    {Text::observerCaption, "Observer"},
    {Text::studentsCaption, "Students"},
    {Text::minutesMark, "%1 min"},
    {Text::partOf, "%1 (%2 %)"},
    {Text::timeFigures, "Time"},
    {Text::otherActivities, "Other activities"},
    {Text::wholeTime, "Whole class"},
    {Text::questionFigures, "Questions"},
    {Text::allQuestions, "All questions"},
    {Text::teacherQuestions, "Asked by the teacher"},
    {Text::studentQuestions, "Asked by students"},
    {Text::authenticQuestions, "Authentic"},
    {Text::uptakeQuestions, "With uptake, of those answered"},
    {Text::higherLevelQuestions, "Higher level, of the teacher's"},
    {Text::unansweredQuestions, "Without response, of the teacher's"},
    {Text::questionsPerMinute, "Questions per minute"},
    {Text::offtaskFigures, "Students off task"},
    {Text::percent, "%1 %"},

    // The export of tables.
    {Text::txtFiles, "TXT files (*.TXT)|*.TXT"},
    {Text::listUnreadable, "The list of files could not be read."},
    {Text::repeatInList, "Line %1 of the list: %2."},
    {Text::fileWarning, "%1: %2."},
    {Text::moreWarnings, "and %1 more"},
    {Text::filesDone, "%1 of %2"},
    {Text::tableNotWritten, "%1 could not be written."},
    {Text::tableCreated, "%1 file has been created."},
    {Text::exportStopped, "The export was stopped."},
    {Text::stoppedAt, "It had come to line %1 of %2: %3.\n%4"},
    {Text::fileNotExported, "A file of the list could not be exported."},
    {Text::problemAt, "Line %1 of %2: %3: %4.\n%5"},
    {Text::problemAtLine, "Line %1 of %2: %3, line %4: %5.\n%6"},
    {Text::rowsWritten, "%1 holds the %2 written so far."},
    {Text::tableWithoutFiles, "%1 was not made: there is no %2."},
    {Text::tableProgress, "%1: %2 of %3"},
    {Text::tableMade, "%1: %2 from %3"},
    {Text::filesLeftOut, "Files that could not be read are left out:"},
    {Text::filesDoubtful, "Files whose rows are worth a look:"},

    // The study.
    {Text::problemInFile, "%1: %2"},
    {Text::problemInLine, "%1, line %2: %3"},
    {Text::numbersDisagree, "%1: %2."},
    {Text::sameNumbers, "%1 has the same numbers."},
    {Text::putAside, "An earlier class of the same numbers is put aside as %1."},
    {Text::putAsideOf, "This is an earlier class of the numbers of %1, put aside."},
    {Text::classIsRunning, "The class is running."},
    {Text::classIsLost, "There is a log but no episode file: the class was lost, or is running."},
    {Text::episodesMissing, "The episode file is missing."},
    {Text::surveyMissing, "The survey is missing."},
    {Text::logMissing, "The log is missing."},
    {Text::secondFile, "%1 is of the same observation, too."},
    {Text::surveyNone, "none"},
    {Text::surveyComplete, "complete"},
    {Text::surveyOpen, "%1 open"},
    {Text::surveyBroken, "broken"},
    {Text::yes, "yes"},
    {Text::oneObservation, "%1 observation"},
    {Text::observationsShown, "%1 observations"},
    {Text::observationsOf, "%1 of %2 observations"},
    {Text::studyTotals,
     "%1: %2 h %3 min, %4 episodes, %5 questions (%6 not fully coded), %7 dialogic spells, %8 "
     "without a survey, %9 with problems"},
    {Text::andPutAside, ", %1 put aside"},
    {Text::questionsShown, "%1 of %2 questions"},
    {Text::readingProgress, "%1 of %2 observations read"},
    {Text::readingStopped, "Reading stopped"},
    {Text::questionsNotRead, "The reading was stopped. Reload (F5) reads the questions."},
    {Text::questionGone,
     "The question is not in its place any more. It may have been changed or deleted meanwhile."},
    {Text::noSuchCode, "%1 has no code %2. It takes %3, and - where it is not coded."},
    {Text::noSuchActivity, "There is no activity %1."},

    {Text::otherClasses, "The two observations are of different classes: %1 and %2."},
    {Text::otherDays, "The two observations are of different days: %1 and %2."},
    {Text::logsOfOtherDays,
     "The session logs are of different days, so both observers are taken to have begun together."},
    {Text::timeMissing, "%1: there are no activities, so nothing is compared second by second."},
    {Text::timeNotCredible,
     "%1: the lengths of its activities cannot be right (below 0, or more than a day in all), so "
     "nothing is compared second by second."},
    {Text::noTimeInCommon, "The two observations have no time in common."},
    {Text::noSecondObservation, "%1: there is no other observation of this class on this day."},
    {Text::sameObservation, "%1 has the same numbers and observer as %2, and is not compared."},
    {Text::noInitials, "(no initials)"},
    {Text::comparingProgress, "%1 of %2 pairs compared"},
    {Text::comparingStopped, "Stopped after %1 of %2 pairs"},
    {Text::pairsCompared, "%1 of %2, %3 of both observers, %4 left out"},
    {Text::activitiesPooled,
     "Activities, second by second: %1 seconds, %2 % equal, kappa %3; with a tolerance of %4 "
     "seconds, kappa %5 and %6 (with either observer first)."},
    {Text::pairsNotAllRead, "%1 could not be read and had to be left out."},
    {Text::noPairAmong,
     "There is no pair of observations to compare. Two observations are a pair when they are of "
     "the same school, class and date, and both have an episode file."},
    {Text::pairsNotSaved, "The pairs could not be saved."},
    {Text::pairsNotRead, "The pairs could not be read."},
    {Text::pairsGone,
     "The questions have changed. Pairs that were lost, because a question of theirs is gone: %1."},
    {Text::askSavePairs, "Save the pairs that were changed by hand?"},
}};

constexpr bool IsInOrder() {
  for (std::size_t i = 0; i < kCount; ++i) {
    if (kTexts[i].id != static_cast<Text>(i) || kTexts[i].text == nullptr) return false;
  }
  return true;
}
static_assert(IsInOrder(), "the table has a row for each text, in the order of Text");

}  // namespace

const char* Say(Text id) {
  return kTexts[static_cast<std::size_t>(id)].text;
}

std::string Say(Text id, std::initializer_list<Filling> values) {
  // Values are not searched for places in turn: a name may contain "%2".
  std::string said;
  for (std::string_view rest = Say(id); !rest.empty(); rest.remove_prefix(1)) {
    const bool isPlace = rest[0] == '%' && rest.size() > 1 && rest[1] >= '1' && rest[1] <= '9';
    const std::size_t place = isPlace ? static_cast<std::size_t>(rest[1] - '1') : values.size();
    if (place < values.size()) {
      said += values.begin()[place].text;
      rest.remove_prefix(1);
    } else {
      said += rest[0];
    }
  }
  return said;
}

std::string Counted(std::size_t count, Text one, Text several) {
  return Say(count == 1 ? one : several, {count});
}

}  // namespace orvex
