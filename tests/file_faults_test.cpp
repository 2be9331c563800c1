// Saves and loads when system calls fail, are interrupted or done in part, and when the process is killed.
//
// The test program has system calls of its own, which the libraries call in place of the system's. They note the calls
// of a save or load, and spoil one of them.
#include <dlfcn.h>
#include <fcntl.h>
#include <rytree_host/node.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <random>
#include <thread>

#include "scratch_folder.h"
#include "tree_text.h"

namespace {

enum class Fault { kNone, kKilled, kFailed, kInterrupted, kDoneButInterrupted, kInPart };

struct Calls {
  bool noted = false;
  std::vector<std::string> names;
  std::size_t spoiled = 0;  // the number of the call, from 0
  Fault fault = Fault::kNone;
  std::string refused;  // a call that the system is not to know
} calls;

// Makes the call, or what takes its place. A length to be read or written comes last.
template <class Result, class... Types>
Result make(const char* name, Types... arguments) {
  auto* const real = reinterpret_cast<Result (*)(Types...)>(dlsym(RTLD_NEXT, name));
  const auto fail = [](int error) { return errno = error, static_cast<Result>(-1); };
  if (calls.refused == name) return fail(EOPNOTSUPP);
  if (!calls.noted) return real(arguments...);
  calls.names.emplace_back(name);
  if (calls.names.size() != calls.spoiled + 1 || calls.fault == Fault::kNone) return real(arguments...);
  if (calls.fault == Fault::kKilled) _exit(0);
  if (calls.fault == Fault::kFailed) {
    if (calls.names.back() == "close") real(arguments...);
    return fail(EIO);
  }
  if (calls.fault == Fault::kInterrupted) return fail(EINTR);
  if constexpr (std::is_same_v<Result, ssize_t>) {
    if (calls.fault == Fault::kInPart) {
      std::get<sizeof...(arguments) - 1>(std::tie(arguments...)) = 1;
      return real(arguments...);
    }
  }
  real(arguments...);
  return fail(EINTR);
}

}  // namespace

#pragma GCC visibility push(default)
extern "C" {
int open(const char* path, int flags, ...) {
  va_list more;
  va_start(more, flags);
  const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(more, mode_t) : 0;
  va_end(more);
  if ((flags & O_TMPFILE) == O_TMPFILE && calls.refused == "O_TMPFILE") return errno = EOPNOTSUPP, -1;
  return make<int>("open", path, flags, mode);
}
int stat(const char* path, struct stat* out) noexcept { return make<int>("stat", path, out); }
int fstat(int file, struct stat* out) noexcept { return make<int>("fstat", file, out); }
int faccessat(int folder, const char* path, int mode, int flags) noexcept {
  return make<int>("faccessat", folder, path, mode, flags);
}
int flock(int file, int operation) noexcept { return make<int>("flock", file, operation); }
int fchown(int file, uid_t owner, gid_t group) noexcept { return make<int>("fchown", file, owner, group); }
int fchmod(int file, mode_t mode) noexcept { return make<int>("fchmod", file, mode); }
ssize_t read(int file, void* to, size_t length) { return make<ssize_t>("read", file, to, length); }
ssize_t write(int file, const void* from, size_t length) {
  return make<ssize_t>("write", file, from, length);
}
ssize_t sendfile(int to, int from, off_t* offset, size_t length) noexcept {
  return make<ssize_t>("sendfile", to, from, offset, length);
}
off_t lseek(int file, off_t offset, int from) noexcept { return make<off_t>("lseek", file, offset, from); }
int fsync(int file) { return make<int>("fsync", file); }
int fcntl(int file, int command, ...) {
  va_list more;
  va_start(more, command);
  const long argument = va_arg(more, long);
  va_end(more);
  return make<int>("fcntl", file, command, argument);
}
int close(int file) { return make<int>("close", file); }
int linkat(int from_folder, const char* from, int to_folder, const char* to, int flags) noexcept {
  return make<int>("linkat", from_folder, from, to_folder, to, flags);
}
int rename(const char* from, const char* to) noexcept { return make<int>("rename", from, to); }
}
#pragma GCC visibility pop

namespace {

namespace fs = std::filesystem;
using Node = RYXmlWrapperBase;

class FileFaults : public FolderTest {
 protected:
  ~FileFaults() override { calls = {}; }

  // The result of a save or load, one call of which is spoiled.
  bool spoiled(Fault fault, std::size_t call) {
    fs::remove(path);
    if (there) std::ofstream(path) << old_text;
    loaded.ReleaseNode();
    calls = {true, {}, call, fault, calls.refused};
    const int done = load ? loaded.load(path.c_str(), 0) : fresh.Save(path.c_str());
    calls.noted = false;
    return done != 0;
  }
  bool arrived() const { return load ? text(loaded) == "<old/>" : content(path) == fresh_text; }

  // The names of its calls, with a "!" before those whose failure makes it fail.
  std::string spoil_each() {
    std::string all;
    const std::string before = there ? old_text : "";
    for (std::size_t call = 0;; ++call) {
      const auto files = entries("/proc/self/fd");
      const bool done = spoiled(Fault::kFailed, call);
      if (calls.names.size() <= call) return all;
      ++failures;
      const std::string why = Node::LastFailure().text;
      const std::string name = ' ' + calls.names[call] + ' ';
      all += (done ? " " : " !") + calls.names[call];
      SCOPED_TRACE(all);
      EXPECT_EQ(arrived(), done);
      EXPECT_EQ(why.find("x.xml': Input/output error") == std::string::npos, done);
      EXPECT_EQ(why.empty(), done);
      EXPECT_EQ(entries("/proc/self/fd"), files);
      EXPECT_EQ(entries(folder), there || done ? 1 : 0);
      EXPECT_EQ(content(path) == before, load || !done);
      for (const auto& [fault, able] : kHarmless) {
        if (able.find(name) == std::string::npos) continue;
        ++harmless;
        EXPECT_TRUE(spoiled(fault, call)) << Node::LastFailure().text;
        EXPECT_TRUE(arrived());
        EXPECT_EQ(entries(folder), 1);
      }
      if (calls.refused == "flock") continue;  // nobody can tell what a killed process left
      const pid_t child = fork();
      if (child == 0) spoiled(Fault::kKilled, call), _exit(1);
      waitpid(child, nullptr, 0);
      ++kills;
      const std::string left = content(path);
      EXPECT_EQ(left, left == fresh_text ? fresh_text : before);
      EXPECT_EQ(fresh.Save(path.c_str()), 1);  // which takes away what the killed process left
      EXPECT_EQ(entries(folder), 1);
    }
  }

  // The calls that may end like this without harm.
  const Rows<Fault, std::string> kHarmless = {
      {Fault::kInterrupted, " open flock fchmod read write sendfile fsync linkat rename "},
      {Fault::kDoneButInterrupted, " close linkat rename "},
      {Fault::kInPart, " read write sendfile "}};
  int failures = 0, harmless = 0, kills = 0;
  bool load = false;
  bool there = true;  // the old file
  const fs::path path = folder / "x.xml";
  Node loaded;
  // So long that it is written in two pieces.
  const std::string element = "<fresh>\n  <a>" + std::string(70000, 'x') + "</a>\n  <b/>\n</fresh>";
  const Node fresh = parse(element);
  const std::string old_text = "<!DOCTYPE old><old/>";  // which both readers are tried on
  const std::string fresh_text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + element + "\n";
};

TEST_F(FileFaults, LeaveTheOldFileOrTheNewOne) {
  const std::string create = " fchown fchmod !write !write !fsync !fcntl !close";
  const std::string named = " !open flock fstat fchown !fchmod";
  const std::string settle = " !fsync !fcntl !close";
  const std::string rename = " !rename open fsync close close";
  const Rows<const char*, bool, bool, std::string> cases = {
      {"", false, true, " !stat !faccessat open flock" + create + " linkat" + rename},
      {"", false, false,
       " !stat open flock !write !write !fsync !fcntl !close linkat open fsync close close"},
      {"O_TMPFILE", false, true, " !stat !faccessat" + named + " !write !write" + settle + rename},
      {"linkat", false, true,
       " !stat !faccessat open flock" + create + named + " !sendfile !sendfile close" + settle + rename},
      {"flock", false, true, " !stat !faccessat open" + create + " linkat" + rename},
      {"", true, true, " !open !fstat !read !lseek !read !lseek !read !read close"},
  };
  for (const auto& [refused, loads, old, names] : cases) {
    calls.refused = refused;
    load = loads, there = old;
    EXPECT_EQ(spoil_each(), names);
  }
  std::printf("%d system calls failed, %d were interrupted or done in part, %d kills\n", failures, harmless,
              kills);
}

// With RYTREE_FULL_TESTS set, 1,000 times.
TEST_F(FileFaults, LeaveAWholeFileWheneverKilled) {
  std::mt19937 random(5);
  ASSERT_EQ(fresh.Save(path.c_str()), 1);
  const Node other = parse("<other/>");
  for (int kill_number = std::getenv("RYTREE_FULL_TESTS") != nullptr ? 1000 : 20; kill_number > 0;
       --kill_number) {
    const pid_t child = fork();
    if (child == 0) {
      for (;;) static_cast<void>(fresh.Save(path.c_str()) + other.Save(path.c_str()));
    }
    usleep(static_cast<useconds_t>(random() % 5000));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    ASSERT_EQ(loaded.load(path.c_str(), 0), 1) << Node::LastFailure().text;
    ASSERT_TRUE(text(loaded) == text(fresh) || text(loaded) == "<other/>");
    ASSERT_EQ(fresh.Save(path.c_str()), 1);
    ASSERT_EQ(entries(folder), 1);
  }
}

TEST_F(FileFaults, LeaveNothingThatStays) {
  const fs::path beside = folder / ".x.xml.unfinished-save-0";
  std::ofstream(path) << old_text;
  for (const char* const refused : {"", "O_TMPFILE"}) {
    calls.refused = refused;
    std::ofstream(beside) << "<cut";
    const int user = open(beside.c_str(), O_RDONLY);
    ASSERT_EQ(flock(user, LOCK_EX), 0);
    EXPECT_EQ(fresh.Save(path.c_str()), 1);
    EXPECT_EQ(entries(folder), 2);
    close(user);
    EXPECT_EQ(fresh.Save(path.c_str()), 1);
    EXPECT_EQ(entries(folder), 1);
  }
  for (const std::string& name : {std::string(255, 'n'), std::string("relative")}) {
    const fs::path former = fs::current_path();
    fs::current_path(folder);
    for (int i = 0; i < 2; ++i) EXPECT_EQ(fresh.Save(name.c_str()), 1) << Node::LastFailure().text;
    fs::current_path(former);
    EXPECT_EQ(content(folder / name), fresh_text);
  }
  EXPECT_EQ(entries(folder), 3);
}

TEST_F(FileFaults, NeverMixTwoSaves) {
  for (const char* const refused : {"", "O_TMPFILE"}) {
    calls.refused = refused;
    const auto save = [&](const char* xml) {
      const Node tree = parse(xml);
      for (int i = 0; i < 50; ++i) ASSERT_EQ(tree.Save(path.c_str()), 1) << Node::LastFailure().text;
    };
    std::thread other([&] { save("<old/>"); });
    save("<fresh/>");
    other.join();
    EXPECT_NE(loaded.load(path.c_str(), 0), 0);
    EXPECT_TRUE(text(loaded) == "<old/>" || text(loaded) == "<fresh/>");
    EXPECT_EQ(entries(folder), 1);
  }
}

}  // namespace
