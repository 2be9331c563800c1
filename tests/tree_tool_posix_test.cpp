// What the tool does with streams and a terminal, its man page, and the completion of its arguments.
#include <string>

#include "shell_test.h"

namespace {

using TreeTool = ShellTest;

TEST_F(TreeTool, ColoursAndFitsATerminalOnly) {
  if (shell("script -qec true /dev/null </dev/null") != 0)
    GTEST_SKIP() << "no terminal to be had here: " << err;
  write("t.xml", "<Root><A Label='" + std::string(90, 'l') + "'>" + std::string(90, 'v') + "</A></Root>");
  const std::string label = std::string(14, 'l') + "…";
  const std::string value = std::string(24, 'v') + "…";
  const std::string show = " TERM=xterm '$PROGRAM' show t.xml\" /dev/null </dev/null | tr -d '\\r' | tail -1";
  shell("script -qec \"stty cols 60; NO_COLOR=1" + show);
  EXPECT_EQ(out, "  2      1    A   " + label + "  " + value + "\n");
  shell("script -qec \"stty cols 60; NO_COLOR=" + show);
  for (std::size_t at; (at = out.find('\033')) != std::string::npos;) out[at] = '^';
  EXPECT_EQ(out,
            "  ^[2m2^[0m      ^[2m1^[0m  ^[1m  A^[0m   ^[36m" + label + "^[0m  ^[32m" + value + "^[0m\n");
}

TEST_F(TreeTool, ComparesReadsAndWritesStreams) {
  write("a.xml", R"(<R><A DataID="1" x="1">a</A><B DataID="2">b</B><C n="k l">c<D n="m"/></C></R>)");
  write("b.xml", R"(<R y=""><B DataID="2">b</B><A DataID="1" x="2"><E n="m"/></A><C n="k l">c</C></R>)");
  write("n.xml", R"(<R><A _NodeID="4"/><B A="a" _NodeID="4"/></R>)");
  const Rows<const char*, int, const char*> rows = {
      {"P diff a.xml a.xml", 0, ""},
      {"P diff a.xml - <b.xml", 1,
       "  changed  R@y       (none)        (empty)\n"
       "  moved    R.B    2  R.B, child 2  R.B, child 1\n"
       "  changed  R.A    1  a             (empty)\n"
       "  changed  R.A@x  1  1             2\n"
       "  added    R.A.E                   (empty)\n"
       "  removed  R.C.D     (empty)\n"},
      {"P diff a.xml b.xml --id-attribute n | grep -v @", 0,
       "  moved    R.B             R.B, child 2    R.B, child 1\n"
       "  changed  R.A             a               (empty)\n"
       "  moved    R.A.E        m  R.C.D, child 1  R.A.E, child 1\n"
       "  changed  R.A.E (tag)  m  D               E\n"},
      {"P diff a.xml b.xml --by path | grep -c R.B", 0, "1\n"},
      {"echo '<R><A DataID=\"x\"/></R>' >u; P diff u u 2>&1 | uniq; rm u", 0,
       "rytree-tree: u: 1 ID is of no use: R.A 'x'\n"},
      {"cat a.xml | P path - R.C | tail -2", 0, "value  c\n@n     k l\n"},
      {"P set a.xml R.B x=y -o - 2>told | P path - R.B | grep value; cat told; rm told", 0,
       "value    b\nset 1 attribute of R.B\nwritten to standard output\n"},
      {"P set n.xml 1 _NodeID=7 A=1 -o - 2>told | tr -d '\\n'; P set n.xml 2 _NodeID=-1 -o - 2>told | grep "
       "-c ID; rm told",
       0,
       "<?xml version=\"1.0\" encoding=\"UTF-8\"?><R _NodeID=\"7\" A=\"1\">  <A _NodeID=\"4\"/>  <B "
       "_NodeID=\"4\" A=\"a\"/></R>1\n"},
      {"P set n.xml 1 A=1 -o r.xml >/dev/full; echo $?; P set n.xml 1 A=1 >/dev/full; echo $?; P show r.xml "
       "| wc -l",
       0, "1\n2\n4\n"},
      {"(printf '<R>'; yes '<A/>' | head -n 40000; echo '</R>') | P show - | head -n 3", 0,
       "  row  level  node  label  value\n    1      0  R\n    2      1    A\n"}};
  for (const auto& [command, status, shown] : rows) {
    EXPECT_EQ(shell(std::string("P() { \"$PROGRAM\" \"$@\"; }; ") + command), status) << command << err;
    EXPECT_EQ(out, shown) << command;
  }
}

TEST_F(TreeTool, ManPageAndCompletion) {
  expect_man_page("show path find diff filter sort move renumber pairs set prune-empty");
  write("try.sh", R"(source ')" TOOLS_PATH R"(/completion.bash'; COMP_WORDS=("$@") COMP_CWORD=$(($# - 1))
_rytree "$1" "${!#}" "${COMP_WORDS[$# - 2]}"; echo "${COMPREPLY[*]}")");
  for (const auto& [words, shown] : rows<2>(R"(
      "" | show path find diff filter sort move renumber pairs set prune-empty --help --version
      set -- | --allow-loss --help --in-place --value
      diff --by '' | id path
      diff --by = p | path
      filter --include-mode '' | all any
      show --level '' | )")) {
    shell("bash try.sh \"$PROGRAM\" " + words);
    EXPECT_EQ(out + err, shown + '\n') << words;
  }
}

}  // namespace
