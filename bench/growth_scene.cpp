#include "growth_scene.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "inputs.h"

namespace {

SceneInput load_input(int nodes) {
  const Input& in = input(nodes);
  SceneInput made{nodes, {}, {}, {}, {}, {}, in.last_id};
  if (made.tree.load(in.tree_path.c_str(), 0) == 0 || made.rows.load(in.flat_path.c_str(), 0) == 0)
    throw std::runtime_error("an input cannot be loaded");
  for (const int id : in.ids) made.ids.Add(id);
  for (const std::string& value : in.values) made.values.Add(CString(std::string_view(value)));
  made.sorted_ids = made.ids;
  std::sort(made.sorted_ids.begin(), made.sorted_ids.end());
  return made;
}

std::string letters(int number) {
  std::string text;
  for (; number > 0; number = (number - 1) / 26) {
    text.insert(text.begin(), static_cast<char>('A' + (number - 1) % 26));
  }
  return text;
}

}  // namespace

const SceneInput& scene_input(int nodes) { return made_once(nodes, load_input); }

Scene::Scene(const SceneInput& from) : SceneInput(from) {
  from.tree.Clone(tree, 1);
  from.tree.Clone(other, 1);
  from.rows.Clone(rows, 1);
  made.CreateNew(0, nullptr);
  empty.CreateNew(0, nullptr);
}

void make_numbered(Scene& scene) {
  RYXmlWrapperBase child;
  for (int i = 1; i <= scene.nodes; ++i) {
    const std::string tag = "Row" + std::to_string(i);
    scene.made.AddNode(child, tag.c_str(), i);
    child.SetDataID(i);
    child.SetPropertyValue("Name", tag.c_str());
    child.NodeValue(i, 0);
  }
}

void make_vector(Scene& scene) {
  scene.made.CreateNew(0, "Values");
  scene.made.SetDataID(0);
  make_numbered(scene);
  make_arrays(scene);
}

void make_letters(Scene& scene) {
  RYXmlWrapperBase child;
  for (int i = 1; i <= scene.nodes; ++i) scene.made.AddNode(child, letters(i).c_str(), -1);
}

void make_branch(Scene& scene) {
  scene.rows.SetDataID(420);
  scene.made.AddNodeCopy(scene.rows, 0);
}

void make_ranges(Scene& scene) {
  rytree_create_composite_range_node(&scene.made, &scene.made, "Data", "Data", scene.nodes / 4, 2, "");
}

void make_flat_ranges(Scene& scene) {
  RYXmlWrapperBase child;
  for (int i = 0; i < scene.nodes; ++i) {
    scene.made.AddNode(child, i % 3 == 0 ? "X" : i % 3 == 1 ? "Y" : "S", -1);
  }
}

void make_node_ids(Scene& scene) {
  RYXmlWrapperBase node;
  for (int there = scene.tree.FirstChild(node); there != 0; there = node.NextBelow(node, scene.tree)) {
    int id = 0;
    node.GetDataID(id);
    node.SetPropertyValue("NodeID", id);
  }
}

void make_arrays(Scene& scene) {
  for (int i = 1; i <= scene.nodes; ++i) {
    scene.ints.array().Add(i % 15);
    scene.texts.array().Add(CString(std::string_view("Name" + std::to_string(i))));
    scene.doubles.array().Add(i / 8.0);
    scene.bools.array().Add(i % 2 == 0);
  }
}

void make_pairs(Scene& scene) {
  std::string pairs;
  for (int i = 1; i <= scene.nodes; ++i) pairs += "Row = " + std::to_string(i) + ", ";
  scene.text = CString(std::string_view(pairs));
}

void make_repeats(Scene& scene) {
  int repeat = 0;
  RYXmlWrapperBase node;
  for (int there = scene.tree.FirstChild(node); there != 0; there = node.NextSibling(node)) {
    VCTreeSetRepeatId(node, ++repeat);
  }
}

void make_equal_ids(Scene& scene) {
  VCTreeAttributeValues(&scene.tree, "DataID", 7, nullptr, 0, 0);
  VCTreeAttributeValues(&scene.rows, "DataID", 7, nullptr, 0, 0);
}

void make_last(Scene& scene) {
  RYXmlWrapperBase last;
  scene.rows.AddNode(last, "Last", -1);
  last.SetDataID(440);
}

void make_few_values(Scene& scene) {
  RYXmlWrapperBase row;
  for (int there = scene.rows.FirstChild(row); there != 0; there = row.NextSibling(row)) {
    int order = 0;
    row.GetPropertyValue("Order", order);
    row.SetPropertyValue("Order", order % 10);
  }
}
