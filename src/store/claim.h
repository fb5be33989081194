#pragma once

#include <filesystem>

namespace orvex {

/// A path that belongs to this program for as long as the claim lives. Other programs see a lock on
/// a file beside it, which the system releases however the program ends.
class Claim {
 public:
  /// Throws FileError when another program, or another claim, has the path. Every claim is granted
  /// on a file system without locks, and where nothing can be written. A symbolic link in place of
  /// the lock file is not followed.
  explicit Claim(std::filesystem::path path);
  ~Claim() { GiveUp(); }
  Claim(Claim&& other) noexcept;
  Claim& operator=(Claim&& other) noexcept;

  const std::filesystem::path& Path() const { return path_; }
  /// Makes the lock again if it has been deleted and can be made.
  void Renew();

 private:
  void GiveUp();

  std::filesystem::path path_;
  int descriptor_ = -1;
};

/// True while somebody has claimed `path`.
bool IsClaimed(const std::filesystem::path& path);

}  // namespace orvex
