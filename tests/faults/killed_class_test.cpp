#include <gtest/gtest.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>
#include <mutex>
#include <random>
#include <string>
#include <vector>

#include "faults/played_class.h"
#include "faults/recorded_disk.h"
#include "recovery/kept_class.h"
#include "recovery/kept_content.h"
#include "store/claim.h"
#include "store/durable_file.h"
#include "store/storage.h"
#include "support/faulty_storage.h"
#include "support/save_faults.h"
#include "support/test_folder.h"

namespace orvex::test {
namespace {

namespace fs = std::filesystem;

/// Kills the program at its `fatal`-th call. A write stops after half of its bytes; any other call
/// does nothing at all.
class DeadlyStorage : public Storage {
 public:
  explicit DeadlyStorage(int fatal) : fatal_(fatal) {}
  int Calls() const { return calls_; }

  int Open(const char* path, int flags, mode_t mode) override {
    Count();
    return Storage::Open(path, flags, mode);
  }
  ssize_t Write(int descriptor, const void* bytes, std::size_t count) override {
    Count([&] { return Storage::Write(descriptor, bytes, IsLog(descriptor) ? 0 : count / 2); });
    return Storage::Write(descriptor, bytes, count);
  }
  int Sync(int descriptor) override {
    Count();
    return Storage::Sync(descriptor);
  }
  int SyncData(int descriptor) override {
    Count();
    return Storage::SyncData(descriptor);
  }
  int Close(int descriptor) override {
    Count();
    return Storage::Close(descriptor);
  }
  int Rename(const char* from, const char* to) override {
    Count();
    return Storage::Rename(from, to);
  }
  int Unlink(const char* path) override {
    Count();
    return Storage::Unlink(path);
  }
  int MakeFolder(const char* path, mode_t mode) override {
    Count();
    return Storage::MakeFolder(path, mode);
  }
  int SetMode(int descriptor, mode_t mode) override {
    Count();
    return Storage::SetMode(descriptor, mode);
  }
  int Truncate(int descriptor, off_t size) override {
    Count();
    return Storage::Truncate(descriptor, size);
  }

 private:
  /// The system takes a log entry completely or not at all, whenever the program is killed.
  static bool IsLog(int descriptor) {
    const fs::path name = fs::read_symlink("/proc/self/fd/" + std::to_string(descriptor));
    return name.extension() == ".bak";
  }

  template <typename LastAct = std::function<ssize_t()>>
  void Count(LastAct lastAct = [] { return 0; }) {
    const std::lock_guard lock(mutex_);
    if (++calls_ != fatal_) return;
    static_cast<void>(lastAct());
    ::kill(::getpid(), SIGKILL);
    for (;;) ::pause();
  }

  std::mutex mutex_;
  int fatal_;
  int calls_ = 0;
};

/// What an undisturbed class leaves: its state and its log after each step, and its files at the
/// end.
struct Truth {
  std::vector<std::string> states;
  std::vector<std::string> logs;
  std::map<std::string, std::string> files;
  int calls = 0;
};

/// The newest class kept in `folder`, in the format it is kept in; "" for none.
std::string NewestKept(const fs::path& folder) {
  KeptClass newest;
  for (const fs::path& path : KeptPaths(folder / "BAK")) {
    const KeptContent content = ReadKept(path);
    if (content.number <= newest.number) continue;
    newest = ParseKept(content.content);
    newest.number = content.number;
  }
  return newest.number == 0 ? "" : PlayedClass::StateOf(newest.program, newest.running);
}

std::string LogOf(const std::map<std::string, std::string>& files) {
  std::string log;
  for (const auto& [name, bytes] : files) {
    if (name.ends_with(".bak")) log = bytes;
  }
  return log;
}

std::map<std::string, std::string> FilesOf(const fs::path& folder) {
  std::map<std::string, std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) {
      files[entry.path().lexically_relative(folder).string()] = FileBytes(entry.path());
    }
  }
  return files;
}

constexpr const char* kOldFile = "an older class of the same numbers";

void PutEarlierClass(const fs::path& folder) {
  fs::create_directories(folder / "EPS/7/12");
  std::ofstream(folder / "EPS/7/12/7-12-4.eps", std::ios::binary) << kOldFile;
}

Truth PlayToTheEnd() {
  const TestFolder folder;
  PutEarlierClass(folder.Path());
  DeadlyStorage storage(0);
  Truth truth;
  {
    PlayedClass played(storage, folder.Path());
    for (std::size_t i = 0; i < PlayedClass::kSteps; ++i) {
      played.Play(i);
      truth.states.push_back(played.State());
      truth.logs.push_back(played.LogText());
    }
  }
  truth.calls = storage.Calls();
  truth.files = FilesOf(folder.Path());
  return truth;
}

/// Plays the class in a process of its own that gets killed on the way. Returns how many steps it
/// reported as done.
std::size_t PlayUntilKilled(const fs::path& folder, int fatalCall, int fatalMicroseconds) {
  int ends[2] = {};
  EXPECT_EQ(::pipe(ends), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    if (fatalMicroseconds > 0) {
      // This signal has no handler, so it ends the program wherever it is.
      const itimerval timer = {.it_interval = {}, .it_value = {0, fatalMicroseconds}};
      ::setitimer(ITIMER_REAL, &timer, nullptr);
    }
    DeadlyStorage storage(fatalCall);
    PlayedClass played(storage, folder);
    for (std::size_t i = 0; i < PlayedClass::kSteps; ++i) {
      played.Play(i);
      if (::write(ends[1], "", 1) != 1) break;
    }
    ::kill(::getpid(), SIGKILL);  // never end in the usual way, even after the last step
  }
  ::close(ends[1]);
  std::size_t steps = 0;
  for (char step = 0; ::read(ends[0], &step, 1) == 1;) ++steps;
  ::close(ends[0]);
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_TRUE(WIFSIGNALED(status));
  return steps;
}

/// Compares what the killed program left with the steps it reported as done.
void ExpectNothingLost(const fs::path& folder, std::size_t steps, const Truth& truth) {
  const std::map<std::string, std::string> files = FilesOf(folder);
  const auto eps = files.find("EPS/7/12/7-12-4.eps");
  EXPECT_TRUE(eps == files.end() || eps->second == kOldFile ||
              eps->second == truth.files.at("EPS/7/12/7-12-4.eps"));
  EXPECT_TRUE(std::ranges::any_of(files, [](const auto& file) { return file.second == kOldFile; }));

  if (steps > 0) {
    const std::string log = LogOf(files);
    EXPECT_TRUE(log.starts_with(truth.logs[steps - 1])) << log;
    EXPECT_TRUE(truth.logs.back().starts_with(log)) << log;
  }
  constexpr std::size_t kStepsWithNothingEntered = 1;
  if (steps <= kStepsWithNothingEntered) return;

  for (const fs::path& path : KeptPaths(folder / "BAK")) EXPECT_FALSE(IsClaimed(path));
  const std::string state = NewestKept(folder);
  if (state.empty()) {
    // All of it had been stored already.
    for (const auto& [name, bytes] : truth.files) {
      EXPECT_TRUE(bytes == kOldFile || files.at(name) == bytes) << name;
    }
    return;
  }
  const auto first = truth.states.begin() + static_cast<std::ptrdiff_t>(steps) - 1;
  EXPECT_TRUE(std::find(first, truth.states.end(), state) != truth.states.end())
      << "after " << steps << " steps:\n"
      << state;
}

/// After a kill, the log never has an entry that the kept class lacks. At the end of the class its
/// files hold it all.
void ExpectClassHasWhatTheLogHas(const fs::path& folder, const Truth& truth) {
  const std::string state = NewestKept(folder);
  const auto at = std::find(truth.states.rbegin(), truth.states.rend(), state);
  const auto step = static_cast<std::size_t>(truth.states.rend() - at);
  const std::string log = LogOf(FilesOf(folder));
  if (step == 0 || FileBytes(folder / "EPS/7/12/7-12-4.eps") != kOldFile) return;
  EXPECT_TRUE(truth.logs[step - 1].starts_with(log)) << "after " << step << " steps:\n" << log;
}

/// A factor for the number of cases to try; 1 in a normal test run.
int Thoroughness() {
  const char* times = std::getenv("ORVEX_THOROUGH");
  return times == nullptr ? 1 : std::max(1, std::atoi(times));
}

class KilledClass : public testing::Test {
 protected:
  void Kill(int fatalCall, int fatalMicroseconds) {
    SCOPED_TRACE("call " + std::to_string(fatalCall) + ", microsecond " +
                 std::to_string(fatalMicroseconds));
    const TestFolder folder;
    PutEarlierClass(folder.Path());
    const std::size_t steps = PlayUntilKilled(folder.Path(), fatalCall, fatalMicroseconds);
    ExpectNothingLost(folder.Path(), steps, truth_);
    ExpectClassHasWhatTheLogHas(folder.Path(), truth_);
    ++kills_;
  }
  void TearDown() override { std::cout << kills_ << " programs were killed\n"; }

  const Truth truth_ = PlayToTheEnd();
  int kills_ = 0;
};

TEST_F(KilledClass, LosesNothingAtAnyCallOfTheSystem) {
  ASSERT_GT(truth_.calls, 200);
  const int step = std::max(1, 12 / Thoroughness());
  for (int call = 1; call <= truth_.calls; call += step) Kill(call, 0);
}

TEST_F(KilledClass, LosesNothingAtAnyMoment) {
  std::mt19937 random(20011);
  constexpr int kLongest = 60'000;
  for (int i = 0; i < 25 * Thoroughness(); ++i) {
    Kill(0, std::uniform_int_distribution(1, kLongest)(random));
  }
}

TEST(PowerCut, LosesNothingThatWasToldToBeOnTheDisk) {
  const FoldersInMemory memory;
  const Truth truth = PlayToTheEnd();
  const TestFolder folder;
  PutEarlierClass(folder.Path());
  RecordedDisk disk(folder.Path());
  {
    PlayedClass played(disk, folder.Path());
    for (std::size_t i = 0; i < PlayedClass::kSteps; ++i) {
      played.Play(i);
      played.AwaitDisk();
      disk.Done(i + 1);
    }
  }
  EXPECT_GT(disk.Images().size(), 150U);
  LookAtImages(disk, [&](const fs::path& image, std::size_t steps) {
    ExpectNothingLost(image, steps, truth);
  });
  std::cout << disk.Images().size() << " images of the disk were looked at\n";
}

TEST(PowerCut, LeavesARecoveryFileThatMovesToNewFolders) {
  const TestFolder folder;
  RecordedDisk disk(folder.Path());
  RecoveryFile file(disk);
  for (const char* place : {"BAK/7/12/7-12-3.recovery", "BAK/8/13/8-13-3.recovery"}) {
    const fs::path path = folder / place;
    ASSERT_EQ(MakeClassFolders(disk, path.parent_path()), 0);
    if (file.IsOn()) {
      file.MoveTo(path);
    } else {
      file.Begin(path);
      file.Keep("kept");
    }
    file.AwaitStored();
    disk.Done(1);
  }
  LookAtImages(disk, [&](const fs::path& image, std::size_t done) {
    const std::vector<fs::path> kept = KeptPaths(image / "BAK");
    EXPECT_TRUE(done == 0 || !kept.empty());
    for (const fs::path& path : kept) EXPECT_EQ(ReadKept(path).content, "kept");
  });
}

TEST(PowerCut, LeavesTheOldFileOrTheNewOneOfASave) {
  for (const std::string old : {"", "old\r\n"}) {
    const TestFolder folder;
    if (!old.empty()) PutFile(folder / "5-12-3.eps", old);
    RecordedDisk disk(folder.Path());
    ReplaceFile(disk, folder / "5-12-3.eps", "the new content\r\n");
    disk.Done(1);
    LookAtImages(disk, [&](const fs::path& image, std::size_t done) {
      const std::string bytes = FileBytes(image / "5-12-3.eps");
      EXPECT_TRUE(bytes == "the new content\r\n" || (done == 0 && bytes == old)) << bytes;
    });
  }
}

TEST(FullDisk, HoldsTheLogBackWithTheClass) {
  const TestFolder folder;
  FaultyStorage disk;
  PlayedClass played(disk, folder.Path());
  constexpr std::size_t kQuestion = 8;
  for (std::size_t i = 0; i < kQuestion; ++i) played.Play(i);
  const std::string before = played.LogText();
  disk.FailForGood(1, ENOSPC, "write", folder / "BAK/7/12/7-12-3.recovery");
  played.Play(kQuestion);
  EXPECT_EQ(played.LogText(), before) << "there would be room for it";
  disk.Heal();
  played.Tick();
  EXPECT_EQ(NewestKept(folder.Path()), played.State());
  EXPECT_NE(played.LogText(), before);
}

}  // namespace
}  // namespace orvex::test
