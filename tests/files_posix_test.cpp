// Files of Linux: what is not a regular file, links, and modes.
#include <sys/stat.h>

#include <thread>

#include "failure.h"
#include "scratch_folder.h"
#include "tree_text.h"

namespace {

namespace fs = std::filesystem;
using Node = RYXmlWrapperBase;

class FilesOfLinux : public FolderTest {
 protected:
  std::string path(const std::string& name = "x.xml") const { return folder / name; }
};

TEST_F(FilesOfLinux, CannotBeReadOrWrittenEverywhere) {
  const Node tree = parse("<a/>");
  fs::create_symlink("loop", path("loop"));
  ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
  const std::string write = "cannot write '";
  const Rows<std::string, std::string, const char*> cases = {
      {path("no/x.xml"), write, "No such file or directory"},
      {"", write, "No such file or directory"},
      {folder, write, "Is a directory"},
      {path("pipe"), write, "Invalid argument"},
      {path("loop"), "cannot follow the link '", "Too many levels of symbolic links"}};
  for (const auto& [file, what, why] : cases) {
    Node node = tree;
    EXPECT_EQ(node.load(file.c_str(), 0), 0);
    EXPECT_EQ(failure(), "cannot read '" + file + "': " + why + " 0:0 -1");
    EXPECT_TRUE(node == tree);
    EXPECT_EQ(tree.Save(file.c_str()), 0);
    EXPECT_EQ(failure(), what + file + "': " + why + " 0:0 -1");
  }
  EXPECT_EQ(entries(folder), 2);

  const std::string last = Node::LastFailure().text;
  EXPECT_EQ(Node(tree).load(Node::LastFailure().text, 0), 0);
  EXPECT_EQ(Node::LastFailure().text, "cannot read '" + last + "': No such file or directory");
  const std::string end(320, 'n');
  EXPECT_EQ(tree.Save((path() + end).c_str()), 0);
  std::thread([] { EXPECT_EQ(failure(), " 0:0 -1"); }).join();
  EXPECT_EQ(failure(), write + "..." + end + "': File name too long 0:0 -1");
}

TEST_F(FilesOfLinux, AreReplacedAsAWhole) {
  const auto mode = [this] { return static_cast<unsigned>(fs::status(path("real")).permissions()); };
  const mode_t mask = umask(027);
  EXPECT_EQ(parse("<a/>").Save(path("real").c_str()), 1);
  umask(mask);
  EXPECT_EQ(mode(), 0640U);
  chmod(path("real").c_str(), 0606);
  fs::create_directory(path("sub"));
  fs::create_symlink("../real", path("sub/link"));
  fs::create_symlink(path("sub/link"), path("link"));
  fs::create_symlink("sub/new", path("dangling"));
  EXPECT_EQ(parse("<b/>").Save(path("link").c_str()), 1);
  EXPECT_EQ(parse("<c/>").Save(path("dangling").c_str()), 1);
  for (const char* const link : {"link", "sub/link", "dangling"}) EXPECT_TRUE(fs::is_symlink(path(link)));
  EXPECT_NE(content(path("sub/new")).find("<c/>"), std::string::npos);
  EXPECT_EQ(mode(), 0606U);
  EXPECT_EQ(entries(folder), 4);
}

}  // namespace
