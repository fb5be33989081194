#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <iostream>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "support/desk.h"
#include "support/faulty_storage.h"

namespace orvex::test {

/// How the user reacts to a failed save.
enum class Reaction { tryAgain, saveElsewhere, giveUp };

/// Every file in `folder` with its content, by its path in the folder. Leaves out the session log,
/// which reports the failures, and the lock of a class.
using Files = std::map<std::string, std::string>;
inline Files FilesIn(const std::filesystem::path& folder) {
  Files files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    const auto extension = entry.path().extension();
    if (!entry.is_regular_file() || extension == ".bak" || extension == ".lock") continue;
    files[entry.path().lexically_relative(folder).string()] = FileBytes(entry.path());
  }
  return files;
}

/// A user who agrees to everything, types `typed`, and reacts to failed saves.
class SavingPrompter : public ScriptedPrompter {
 public:
  SavingPrompter() { cancelsDialogs = true; }

  Answer Ask(const Message& message) override {
    if (message.captions.empty()) return message.buttons == Buttons::ok ? Answer::ok : Answer::yes;
    if (message.captions[0].second == "Replace it") return Answer::yes;
    EXPECT_EQ(message.captions[0].second, "Try again");
    EXPECT_EQ(message.captions[0].first, message.defaultAnswer);
    told.push_back(message.details);
    if (whileAsked) whileAsked();
    constexpr std::size_t kPatience = 5;
    EXPECT_LE(told.size(), kPatience) << message.text;
    if (reaction == Reaction::giveUp || told.size() > kPatience) return Answer::cancel;
    if (reaction == Reaction::tryAgain) return message.defaultAnswer;
    return message.buttons == Buttons::yesNoCancel ? Answer::no : Answer::cancel;
  }
  std::optional<std::string> AskText(const TextPrompt& /*prompt*/) override { return typed; }
  std::optional<std::string> AskNotes(const NotesPrompt& prompt) override {
    askedNotes.push_back(prompt.draft.value_or(prompt.notes));
    if (askedNotes.size() > 1 && healing) healing();
    return typed;
  }
  ChosenFile AskSaveFile(const FilePrompt& prompt) override {
    return {.path = elsewhere / prompt.defaultName, .folder = elsewhere};
  }

  Reaction reaction = Reaction::tryAgain;
  std::filesystem::path elsewhere;
  std::string typed;
  std::function<void()> whileAsked;
  std::function<void()> healing;  ///< runs before notes are edited again
  std::vector<std::string> told;
};

/// One kind of save, on a disk whose calls can fail and next to a second disk.
struct SaveScene {
  SaveScene() { prompter.elsewhere = other.Path(); }
  virtual ~SaveScene() = default;
  SaveScene(const SaveScene&) = delete;
  SaveScene& operator=(const SaveScene&) = delete;

  /// Does what the user does to save. Called again after giving up, it saves the same data.
  virtual void Save() = 0;

  Desk desk;
  TestFolder other;
  FaultyStorage disk;
  SavingPrompter prompter;
  SessionLog log{disk, desk.clock};
  RecoveryFile recovery{disk};
  Services services{desk.program, log,      recovery,     disk,
                    desk.clock,   prompter, desk.screens, desk.programFolder};
};

/// A save in which nothing fails.
struct GoodSave {
  Files before;
  Files after;
  std::map<std::string, int> calls;  ///< how often each system call is made
};

inline bool Holds(const Files& files, const std::string& name, const std::string& bytes) {
  const auto found = files.find(name);
  return found != files.end() && found->second == bytes;
}

/// True when some file holds `bytes`, whatever its name.
inline bool HoldsAnywhere(const Files& files, const std::string& bytes) {
  return std::ranges::any_of(files, [&](const auto& file) { return file.second == bytes; });
}

/// Expects each file to be completely old or completely new, and no other files.
inline void ExpectNothingInBetween(const Files& found, const GoodSave& good) {
  for (const auto& [name, bytes] : found) {
    // The recovery file notes how far a class has been closed; its final state is checked at the
    // end.
    if (name.find(".recovery") != name.npos) continue;
    EXPECT_TRUE(Holds(good.before, name, bytes) || Holds(good.after, name, bytes))
        << name << " is neither the old file nor the new one";
  }
  for (const auto& [name, bytes] : good.before) {
    EXPECT_TRUE(found.contains(name) || !good.after.contains(name) || HoldsAnywhere(found, bytes))
        << name;
  }
}

/// Expects each new file in its place or in the other folder, which holds nothing else.
inline void ExpectSavedSomewhere(const Files& found, const Files& other, const GoodSave& good) {
  Files expected;
  for (const auto& [name, bytes] : good.after) {
    const std::string bare = std::filesystem::path(name).filename();
    if (HoldsAnywhere(good.before, bytes)) continue;  // it was there before
    if (name.ends_with(".observed")) continue;        // a copy of the replaced file
    if (!Holds(found, name, bytes) || other.contains(bare)) expected[bare] = bytes;
  }
  EXPECT_EQ(other, expected);
}

/// Saves on a disk that fails with `error`, and checks the outcome.
inline void ExpectWholeOrTold(SaveScene& scene, const GoodSave& good, int error) {
  const std::filesystem::path& folder = scene.desk.folder.Path();
  const auto found = [&] {
    scene.log.File().Settle();  // it may be in the middle of being put back
    return FilesIn(folder);
  };
  scene.prompter.whileAsked = [&] {
    ExpectNothingInBetween(found(), good);
    const std::string& told = scene.prompter.told.back();
    EXPECT_TRUE(told.starts_with(folder.string())) << told;
    EXPECT_TRUE(told.ends_with(": " + std::string(std::strerror(error)))) << told;
  };
  scene.prompter.healing = [&] { scene.disk.Heal(); };
  scene.Save();
  ExpectNothingInBetween(found(), good);
  const bool whole = found() == good.after;
  if (scene.prompter.told.empty() || scene.prompter.reaction == Reaction::tryAgain) {
    EXPECT_TRUE(whole);
  } else if (scene.prompter.reaction == Reaction::saveElsewhere) {
    ExpectSavedSomewhere(found(), FilesIn(scene.other.Path()), good);
  } else {
    EXPECT_TRUE(whole || std::ranges::count(scene.desk.screens.Take(), "end") == 0);
    scene.disk.Heal();
    scene.Save();
    EXPECT_EQ(found(), good.after) << "nothing in memory was lost";
  }
}

/// While this exists, test folders live in memory if the system offers a place: on a disk,
/// thousands of scenes would take minutes.
class FoldersInMemory {
 public:
  FoldersInMemory() {
    if (const char* folder = std::getenv("TMPDIR")) before_ = folder;
    if (std::filesystem::is_directory("/dev/shm")) ::setenv("TMPDIR", "/dev/shm", 1);
  }
  ~FoldersInMemory() {
    ::unsetenv("TMPDIR");
    if (before_) ::setenv("TMPDIR", before_->c_str(), 1);
  }
  FoldersInMemory(const FoldersInMemory&) = delete;
  FoldersInMemory& operator=(const FoldersInMemory&) = delete;

 private:
  std::optional<std::string> before_;
};

/// Makes each call of a save fail in turn, for several reasons, once or for good, with and without
/// an older file in the folder. `Scene(bool older)` sets up a scene.
template <typename Scene>
void FailEveryCallOf(const char* what, bool hasElsewhere = true) {
  const FoldersInMemory folders;
  int faults = 0;
  for (const bool older : {false, true}) {
    GoodSave good;
    {
      Scene scene(older);
      const std::filesystem::path& folder = scene.desk.folder.Path();
      good.before = FilesIn(folder);
      scene.disk.Take();
      scene.Save();
      good.after = FilesIn(folder);
      for (const std::string& call : scene.disk.Take()) ++good.calls[call];
      EXPECT_TRUE(scene.prompter.told.empty());
      EXPECT_NE(good.before, good.after);
    }
    for (const Reaction reaction :
         {Reaction::tryAgain, Reaction::saveElsewhere, Reaction::giveUp}) {
      if (reaction == Reaction::saveElsewhere && !hasElsewhere) continue;
      for (const auto& [call, count] : good.calls) {
        for (int number = 1; number <= count; ++number) {
          for (const int error : {EIO, ENOSPC, EACCES, EROFS}) {
            SCOPED_TRACE(call + " " + std::to_string(number) + ": " + std::strerror(error) +
                         (older ? ", older file" : ", no file") + ", reaction " +
                         std::to_string(static_cast<int>(reaction)));
            Scene scene(older);
            scene.prompter.reaction = reaction;
            const std::string folder = scene.desk.folder.Path();
            if (reaction == Reaction::tryAgain) scene.disk.Fail(number, error, call);
            if (reaction != Reaction::tryAgain) scene.disk.FailForGood(number, error, call, folder);
            ExpectWholeOrTold(scene, good, error);
            faults += scene.disk.Injected();
          }
        }
      }
    }
  }
  EXPECT_GT(faults, 100);
  std::cout << what << ": " << faults << " faults injected\n";
}

}  // namespace orvex::test
