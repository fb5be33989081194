#pragma once

#include <concepts>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace orvex {

/// The texts that the core shows to the user.
enum class Text {
  // The program itself, and texts used in several places.
  boxTitle,
  productName,
  companyProduct,
  copyright,
  notAvailable,
  askNewSegment,
  askNewEpisode,
  askAnotherFile,
  everythingCoded,
  functionOverflow,
  errorInTimer,
  invalidFormat,
  surveyNotWritten,
  notesNotSaved,
  whoAsks,
  teacherResponse,

  // Counts, in the singular and the plural.
  oneEpisode,
  episodes,
  oneQuestion,
  questions,
  oneFile,
  files,
  onePlace,
  places,
  oneRow,
  rows,

  // Durations, and the activity of an episode.
  oneMinute,
  minutes,
  oneSecond,
  seconds,
  activityLabel,
  reviewLabel,

  // The data folder, and saving.
  dataFolderMissing,
  tryAgain,
  chooseFolder,
  useProgramFolder,
  dataFolder,
  unusualDataFolder,
  saveElsewhere,
  replaceIt,
  askReplace,
  fileChanged,
  writeProtected,

  // A running class.
  teacherEvaluation,
  codingOfNewSegment,
  codingOfNewActivity,
  olderKept,

  // Changes and classes that were not stored.
  changesUnreadable,
  changesNotKept,
  fileGone,
  fileChangedSince,
  fileUnreadableNow,
  changesNotSaved,
  hasChanges,
  changedAt,
  takeUpChanges,
  discardChanges,
  leaveChanges,
  changesNotDiscarded,
  classUnreadable,
  classNotEnded,
  surveyNotStored,
  classTimes,
  classAmount,
  classObserved,
  classFolder,
  goOnObserving,
  fillInSurvey,
  closeClass,
  closeWithoutSurvey,
  leaveClass,
  classNotTakenUp,
  classNotClosed,
  draftStored,
  dataNotWritten,
  keptClassNotRemoved,
  keepsClass,
  changedMeanwhile,

  // The survey.
  surveyClassId,
  askSaveChanges,
  savedAs,
  savedAsWithOlder,

  // The main menu.
  notesUnreadable,
  askMakeFolder,
  makeFolder,
  useFolderAnyway,
  folderNotMade,
  askDataPath,
  dataPathTitle,
  dataPathNotStored,

  // The live observation.
  episodeFileExists,
  logNotOpened,
  logNotRenamed,
  logNotCompleted,
  askOverwriteLog,
  logKeptAs,
  liveClassId,
  liveCaption,
  episodeTime,
  segmentTime,
  logTrouble,
  recoveryTrouble,
  offtaskCountdown,
  watchSeconds,
  watchElapsed,
  watchTotal,
  watchPrevious,
  askReviseActivity,
  askMatrices,
  askEndOfClass,
  numbersNeeded,
  dataStillInMemory,

  // The questions, and what undo and redo do to them.
  questionNumber,
  questionAfterEmpty,
  questionOfSeveral,
  episodeIsFull,
  editorTitle,
  liveEditorTitle,
  teacherEvalShort,
  askDuplicateCoding,
  ditto,
  codeQuestion,
  typeQuestion,
  typeName,
  typeSegmentNumber,
  typeDescription,
  insertQuestion,
  dropQuestion,
  normalQuestion,
  bringsRowNumbersBack,
  numbersRowsAgain,
  bringsTypingBack,
  takesTypingAway,
  bringsQuestionBack,
  takesQuestionAway,
  changesQuestionBack,
  changesQuestionAgain,
  ofEpisode,

  // The episode editor, and the names of its steps.
  fileUnreadable,
  fileNotSaved,
  noLongerReadable,
  invalidEpisodeFile,
  askEarlierVersion,
  askSaveData,
  saveDrops,
  placeDropped,
  morePlaces,
  formDropped,
  saveRewrites,
  tooManySegments,
  tooManyQuestions,
  tooManyEpisodes,
  numbersTooLarge,
  totalEpisode,
  totalEpisodes,
  segmentCount,
  segmentsCount,
  spells,
  durationOfSegment,
  splitsSegment,
  undoes,
  redoes,
  editDescription,
  editAbout,
  editQuestions,
  changeDuration,
  changeActivity,
  changeSubcategory,
  changeGroupSolo,
  changePreparation,
  changeOrganization,
  changeSource,
  changeLevel,
  splitSegment,
  mergeSegments,
  splitEpisode,
  mergeEpisodes,
  moveSegments,
  reorderSegments,
  pasteSegments,

  // The reports.
  dateOfObservation,
  observer,
  episodeTitle,
  timeSummaryTitle,
  plotTotal,
  pace,
  cleanUpFirst,

  // The export of tables.
  txtFiles,
  listUnreadable,
  repeatInList,
  fileWarning,
  moreWarnings,
  filesDone,
  tableNotWritten,
  tableCreated,
  exportStopped,
  stoppedAt,
  fileNotExported,
  problemAt,
  problemAtLine,
  rowsWritten,
  tableWithoutFiles,
  tableProgress,
  tableMade,
  filesLeftOut,
  filesDoubtful,

  // The study.
  problemInFile,
  problemInLine,
  numbersDisagree,
  sameNumbers,
  putAside,
  putAsideOf,
  classIsRunning,
  classIsLost,
  episodesMissing,
  surveyMissing,
  logMissing,
  secondFile,
  surveyNone,
  surveyComplete,
  surveyOpen,
  surveyBroken,
  yes,
  oneObservation,
  observationsShown,
  observationsOf,
  studyTotals,
  andPutAside,
  questionsShown,
  readingProgress,
  readingStopped,
  questionsNotRead,
  questionGone,
  noSuchCode,
  noSuchActivity,

  // The agreement of two observers.
  otherClasses,
  otherDays,
  logsOfOtherDays,
  timeMissing,
  timeNotCredible,
  noTimeInCommon,
  noSecondObservation,
  sameObservation,
  noInitials,
  comparingProgress,
  comparingStopped,
  pairsCompared,
  activitiesPooled,
  pairsNotAllRead,
  noPairAmong,
  pairsNotSaved,
  pairsNotRead,
  pairsGone,
  askSavePairs,

  count  // the number of texts
};

/// A value to fill into a text: a name, or a number in digits.
struct Filling {
  Filling(std::string name) : text(std::move(name)) {}
  Filling(std::string_view name) : text(name) {}
  Filling(const char* name) : text(name) {}
  Filling(std::integral auto number) : text(std::to_string(number)) {}

  std::string text;
};

/// The text itself, with nothing filled in.
const char* Say(Text id);
/// The text with `values` in place of its "%1", "%2" and so on.
std::string Say(Text id, std::initializer_list<Filling> values);

/// A count and what it counts: the text `one` for 1, `several` for any other count.
std::string Counted(std::size_t count, Text one, Text several);

}  // namespace orvex
