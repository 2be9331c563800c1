#include "staged_file.h"

#include <unistd.h>

#include <filesystem>

#include "failure.h"

namespace fs = std::filesystem;

StagedFile::StagedFile(const std::string& name) : name_(name) {
  std::error_code error;
  if (fs::exists(name, error) && !fs::is_regular_file(name, error))
    throw Failure(name + ": not a regular file");
  const fs::path place = fs::weakly_canonical(name, error);
  place_ = error ? name : place.string();
  staged_ = place_ + ".new-" + std::to_string(getpid());
}

StagedFile::~StagedFile() {
  std::error_code error;
  fs::remove(staged_, error);
}

void StagedFile::commit() {
  std::error_code error;
  const fs::file_status old = fs::status(place_, error);
  if (fs::is_regular_file(old)) fs::permissions(staged_, old.permissions(), error);
  fs::rename(staged_, place_, error);
  if (error) throw Failure(name_ + ": " + error.message() + " (the result is in its place)");
}
