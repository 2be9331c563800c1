// A folder of its own for a test that writes files.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <string>

/// The bytes of a file, "" if it cannot be read.
inline std::string content(const std::filesystem::path& file) {
  std::ostringstream bytes;
  bytes << std::ifstream(file, std::ios::binary).rdbuf();
  return bytes.str();
}

/// How many files and folders the folder has.
inline std::ptrdiff_t entries(const std::filesystem::path& folder) {
  return std::distance(std::filesystem::directory_iterator(folder), {});
}

class FolderTest : public testing::Test {
 protected:
  FolderTest() {
    const std::filesystem::path all = testing::TempDir();
    do folder = all / ("test" + std::to_string(std::random_device()()));
    while (!std::filesystem::create_directory(folder));
  }
  ~FolderTest() override { std::filesystem::remove_all(folder); }

  std::filesystem::path folder;
};
