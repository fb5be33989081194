#pragma once

#include <filesystem>

namespace orvex {

/// A path that belongs to this program for as long as it lives, also against other programs: they
/// see a lock on a file beside it, which the system takes off whatever way the program ends.
class Claim {
 public:
  /// Throws FileError when another program, or another claim, has the path. On a file system that
  /// knows no locks, and where nothing can be written, every claim is granted. Nobody's link is
  /// followed to the lock.
  explicit Claim(std::filesystem::path path);
  ~Claim() { GiveUp(); }
  Claim(Claim&& other) noexcept;
  Claim& operator=(Claim&& other) noexcept;

  const std::filesystem::path& Path() const { return path_; }
  /// Makes the lock again when it has been deleted, as far as it can be.
  void Renew();

 private:
  void GiveUp();

  std::filesystem::path path_;
  int descriptor_ = -1;
};

/// True while somebody has claimed `path`.
bool IsClaimed(const std::filesystem::path& path);

}  // namespace orvex
