// What calls of exports work on, in tests that hold for all of them.
#pragma once

#include <rytree_Utils.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <type_traits>

#include "tree_text.h"

/// What a call works on, and where its results go. Texts are so long that they need memory of their own.
struct ExportScene {
  explicit ExportScene(const char* xml = nullptr) : tree(parse(with_ids(xml != nullptr ? xml : kTree))) {
    made.CreateNew(0, "Made");
    for (const int id : {11, 12, 14}) ids.Add(id), ints.array().Add(id);
    for (const char* const value :
         {"a new value for the width", "a new title, longer than before", "dashed, not dotted"})
      values.Add(value), texts.array().Add(value), labels.array().Add(value);
    for (const double number : {0.5, 1.25, -1.0 / 3}) doubles.array().Add(number), vector.values.Add(number);
    for (const bool flag : {true, false, true}) bools.array().Add(flag);
    for (double& number : numbers) number = 1.0 / ++counter;
  }
  ExportScene(const ExportScene&) = delete;
  ExportScene& operator=(const ExportScene&) = delete;
  ~ExportScene() { std::remove(file.c_str()); }

  static constexpr const char* kTree =
      R"(<Root@1 DataID="1" Label="the top of the tree" Branch="3" PlotObjUID="7" DataMarkerID="8" ThemeType="2")"
      R"( ThemeFile="themes/a file name of some length.xml" _ACTION_OBJECT_ID="1001" _EntireWorksheet="1")"
      R"( Auto="1|by the program itself|3" InteractiveOptions="32">)"
      R"(<Plot@2 DataID="20" Label="a plot with a long label" Use="1">)"
      R"(<Width@3 DataID="11" Label="the width of the line" Auto="1|Auto|1" DynaUseChck="1">2.5 points or more</Width>)"
      R"(<Title@4 DataID="12" Label="the title of the plot">a title of more than a few bytes</Title>)"
      R"(<Empty@13 DataID="13" Label="a leaf without a text" Show="1"/></Plot>)"
      R"(<Plot1@5 DataID="420" RepeatID="256" Label="another plot with a label">)"
      R"(<Style@6 DataID="14" NodeID="11" Label="the style of the line">solid, with round corners</Style></Plot1>)"
      R"(<Note@7 DataID="15" NodeID="12" OldValue="what was noted before">what is noted now, at length</Note></Root>)";
  /// The same shape, other values, some of the attributes.
  static constexpr const char* kOther =
      R"(<Root@1 Branch="1"><Plot@2 DataID="20" Use="0"><Width DataID="11" Label="how wide the line is">1</Width>)"
      R"(<Title DataID="12">the former title of the plot</Title><Empty/></Plot>)"
      R"(<Plot1 DataID="420" RepeatID="256"><Style DataID="14">solid, with round corners</Style></Plot1>)"
      R"(<Note DataID="15"/></Root>)";

  /// Everything that a call can have changed, as one text.
  std::string show() const {
    std::string shown;
    for (const RYXmlWrapperBase* node : {&tree, &other, &made, &out}) shown += text_of(*node) + "\n";
    shown += tag(out) + "\n";
    for (const CStringArray* array : {&values, &texts.array(), &labels.array()})
      for (const CString& value : *array) shown.append(value.View()).append("|");
    for (const CString* string : {&text, &text2, &text3}) shown.append(string->View()).append("\n");
    for (const CArray<int, int>* array : {&ids, &ints.array()})
      for (const int id : *array) shown += std::to_string(id) + " ";
    for (const CArray<double, double>* array : {&doubles.array(), &vector.values})
      for (const double value : *array) shown += std::to_string(value) + " ";
    for (const bool flag : bools.array()) shown += flag ? "1" : "0";
    for (const int value : integers) shown += " " + std::to_string(value);
    for (const double value : numbers) shown += " " + std::to_string(value);
    std::ifstream saved(file);
    return shown.append(std::istreambuf_iterator<char>(saved), {});
  }

  RYXmlWrapperBase tree;
  RYXmlWrapperBase other = parse(with_ids(kOther));
  RYXmlWrapperBase made;  // a bare root
  RYXmlWrapperBase out;   // an invalid handle
  CArray<int, int> ids;
  CStringArray values;
  HostIntArray ints;
  HostStringArray texts, labels;
  HostDoubleArray doubles;
  HostBoolArray bools;
  tagRYSOBJVECT vector;
  CString text = "what the text was before";
  CString text2, text3;
  int integers[5] = {};
  double numbers[5] = {};
  DWORD next_id = 1;
  unsigned long change = 0;
  tagDescStatResults results = {};
  std::string file = scratch_file();  // removed with the scene

  /// In memory, if there is such a place: a saved file is flushed.
  static std::string scratch_folder() {
    return access("/dev/shm", W_OK) == 0 ? "/dev/shm/" : testing::TempDir();
  }

 private:
  static std::string text_of(const RYXmlWrapperBase& node) { return ::text(node); }
  static std::string scratch_file() {
    static std::atomic<int> count;
    return scratch_folder() + "every_export." + std::to_string(getpid()) + "." + std::to_string(++count);
  }
  int counter = 0;
};

/// A row of the table.
struct ExportCall {
  template <class Call>
  ExportCall(const char* export_name, int result, Call, const char* xml_text = nullptr,
             void (*prepare_scene)(ExportScene&) = nullptr)
      : name(export_name),
        expected(result),
        xml(xml_text),
        prepare(prepare_scene),
        call([](ExportScene& scene) {
          if constexpr (std::is_void_v<decltype(Call()(scene))>) {
            Call()(scene);
            return 0;
          } else {
            return static_cast<int>(Call()(scene));
          }
        }) {}

  const char* name;  // as in cmake/exports.txt
  int expected;      // the result of this call; 0 where there is none
  const char* xml;   // what `tree` is; null: ExportScene::kTree
  void (*prepare)(ExportScene&);
  int (*call)(ExportScene&);
};

namespace every_export {

using S = ExportScene;

// What some calls need before.
inline void theme(S& s) {
  EXPECT_TRUE(vctree_save_values_with_ids(&s.other, &s.ids, &s.values, "a comment on the theme", nullptr));
}
inline void theme_file(S& s) {
  EXPECT_TRUE(
      vctree_save_values_with_ids(s.file.c_str(), &s.ids, &s.values, "a comment on the theme", nullptr));
  s.ids.RemoveAll(), s.values.RemoveAll();
}

inline constexpr const char* kRanges =
    R"(<Data@44 InteractiveOptions="32"><Range1 RepeatID="128"><X DataID="51">the first column of all</X>)"
    R"(<Y DataID="52">the second column of all</Y><ED DataID="53">the third column of all</ED></Range1>)"
    R"(<Range2 RepeatID="144"><X DataID="51">4</X><Y DataID="52">5</Y></Range2></Data>)";
inline constexpr const char* kVector =
    R"(<Values DataID="13000"><Value1 DataID="13001">1</Value1><Value2 DataID="13002">0</Value2>)"
    R"(<Value3 DataID="13003">1</Value3></Values>)";
inline constexpr const char* kShortVector =
    R"(<Values DataID="13000"><Value1 DataID="13001">1</Value1></Values>)";
inline constexpr const char* kStats =
    R"(<Stats><Results><N>20</N><Mean>0.333333333333333</Mean></Results><Counts>1 2.5 0.333333333333333</Counts>)"
    R"(<Percentiles>0.333333333333333 4 5</Percentiles><Bin><Min>0.125</Min><Auto>1</Auto></Bin><BoxChart><Box>)"
    R"(<Center>2.125</Center><Top>3</Top></Box><Whisker><Top>9</Top></Whisker></BoxChart></Stats>)";
inline constexpr const char* kCompact =
    R"(<W WeightMethod="8" Weight_A="0.333333333333333" Weight_B="2" Weight_C="3" Combo="one|two|three, and more")"
    R"( DisableWeightMethod="0">a column with the weights</W>)";
inline constexpr const char* kExpanded =
    R"(<P><WeightMethod@11 Show="0">8</WeightMethod><WeightData@13>a column with the weights</WeightData>)"
    R"(<WeightA@14>0.333333333333333</WeightA><WeightB@14>2</WeightB><WeightC@14>3</WeightC></P>)";
inline constexpr const char* kRows =
    R"(<Rows><Row3 Order="3" Label="the third of the rows"><a>inside of row three</a></Row3>)"
    R"(<Row1 Order="1" Label="the first of the rows"/><Row2 Order="2" Name="Row2">the text of the second</Row2></Rows>)";

}  // namespace every_export
