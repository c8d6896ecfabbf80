#include "support/Program.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <pugixml.hpp>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <iterator>
#include <string>
#include <vector>

namespace {

using Json = nlohmann::ordered_json;
using Names = std::vector<std::string>;

support::ProgramRun Ktrcl(const std::string& arguments) {
  return support::RunProgram(KTRCL_PROGRAM, arguments);
}

std::string SamplePath(const std::string& name) {
  return std::string(KTRCL_SAMPLES_DIR) + "/" + name;
}

std::string Dump(const std::string& name, const std::string& options = "") {
  const auto run = Ktrcl("dump " + options + " \"" + SamplePath(name) + "\"");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.errors, "");
  return run.output;
}

Names ChildNames(const pugi::xml_node& node) {
  Names names;
  for (const pugi::xml_node child : node.children()) names.emplace_back(child.name());
  return names;
}

std::size_t Count(const pugi::xml_node& node, const char* name) {
  const auto children = node.children(name);
  return static_cast<std::size_t>(std::distance(children.begin(), children.end()));
}

TEST(Dump, ShowsTheKnownStructureOfTheBracket) {
  pugi::xml_document document;
  const std::string text = Dump("bracket.dxf");
  ASSERT_TRUE(document.load_string(text.c_str()));
  const pugi::xml_node part = document.document_element();
  EXPECT_STREQ(part.name(), "GXLAPart");
  EXPECT_EQ(part.attribute("COMMENT").as_string(), SamplePath("bracket.dxf"));
  EXPECT_EQ(ChildNames(part),
            (Names{"ExtGXLAContour", "IntGXLAContourList", "IntGXLAContourManager"}));

  // Six sides and six rounded corners.
  const pugi::xml_node outer = part.child("ExtGXLAContour");
  EXPECT_EQ(ChildNames(outer), (Names{"Id", "LENGTH", "ANGLE", "LINES", "ARCS", "KIND", "DIR",
                                      "ELEMENTS", "GXLAContourInstance"}));
  EXPECT_STREQ(outer.child_value("LINES"), "6");
  EXPECT_STREQ(outer.child_value("ARCS"), "6");
  EXPECT_STREQ(outer.child_value("KIND"), "CLOSED");
  EXPECT_EQ(outer.child("ELEMENTS").attribute("Count").as_int(), 24);
  const pugi::xml_node instance = outer.child("GXLAContourInstance");
  EXPECT_EQ(instance.attribute("Count").as_int(), 12);
  EXPECT_EQ(Count(instance, "ELEMENT"), 12U);
  EXPECT_STREQ(instance.child("BoundBox").child_value("XMax"), "120");
  EXPECT_STREQ(instance.child("BoundBox").child_value("YMax"), "90");
}

TEST(Dump, ShowsTheHolesOfTheBracketWithWhereTheyWereDrawn) {
  pugi::xml_document document;
  const std::string text = Dump("bracket.dxf", "--xml");
  ASSERT_TRUE(document.load_string(text.c_str()));
  const pugi::xml_node part = document.document_element();
  // Two holes of 11 mm and two of 9 mm, the longer ones first.
  const pugi::xml_node shapes = part.child("IntGXLAContourList");
  ASSERT_EQ(Count(shapes, "IntGXLAContour"), 2U);
  const double pi = 3.141592653589793;
  EXPECT_NEAR(std::stod(shapes.first_child().child_value("LENGTH")), 11 * pi, 1e-12);
  EXPECT_NEAR(std::stod(shapes.last_child().child_value("LENGTH")), 9 * pi, 1e-12);
  std::string id = "1";
  for (const pugi::xml_node group : part.child("IntGXLAContourManager").children()) {
    EXPECT_EQ(group.child_value("Id"), id);
    id = "2";
    ASSERT_EQ(Count(group, "GXLAContourInstance"), 2U);
    for (const pugi::xml_node hole : group.children("GXLAContourInstance")) {
      EXPECT_STREQ(hole.attribute("LAYER").as_string(), "CUTOUT");
      EXPECT_FALSE(hole.attribute("HANDLE").empty());
      EXPECT_GT(hole.attribute("LINE").as_int(), 1);
      EXPECT_GE(hole.attribute("CONTOUR").as_int(), 2);
      EXPECT_LE(hole.attribute("CONTOUR").as_int(), 5);
      EXPECT_STREQ(hole.child("ELEMENT").child_value("KIND"), "CIRCLE");
    }
  }
}

// The text of a JSON value as XML has it. Numbers are compared as numbers.
void ExpectSameText(const Json& value, const std::string& text) {
  if (value.is_string()) {
    EXPECT_EQ(value.get<std::string>(), text);
  } else {
    EXPECT_EQ(value.get<double>(), std::stod(text));
  }
}

void ExpectSameContent(const Json& json, const pugi::xml_node& node) {
  EXPECT_EQ(json["name"], node.name());
  for (const pugi::xml_attribute attribute : node.attributes()) {
    ExpectSameText(json["attributes"][attribute.name()], attribute.value());
  }
  const Json content = json.value("content", Json::array());
  std::size_t i = 0;
  for (const pugi::xml_node child : node.children()) {
    ASSERT_LT(i, content.size());
    const Json& entry = content[i++];
    if (entry.contains("name")) {
      ExpectSameContent(entry, child);
    } else {
      EXPECT_EQ(entry["key"], child.name());
      ExpectSameText(entry["value"], child.child_value());
    }
  }
  EXPECT_EQ(i, content.size());
}

TEST(Dump, HoldsTheSameInBothForms) {
  for (const char* const sample : {"bracket.dxf", "flange.dxf", "panel.dxf", "chain-guard.dxf"}) {
    pugi::xml_document document;
    const std::string text = Dump(sample);
    ASSERT_TRUE(document.load_string(text.c_str()));
    ExpectSameContent(Json::parse(Dump(sample, "--json")), document.document_element());
  }
}

// Shapes lie elsewhere in memory each time the program runs.
TEST(Dump, GivesTheSameBytesEachTime) {
  for (const char* const sample : {"panel.dxf", "chain-guard.dxf"}) {
    const std::string xml = Dump(sample);
    const std::string json = Dump(sample, "--json");
    for (int i = 0; i < 5; ++i) {
      EXPECT_EQ(Dump(sample), xml);
      EXPECT_EQ(Dump(sample, "--json"), json);
    }
  }
}

TEST(Dump, ReadsEverySample) {
  int samples = 0;
  for (const auto& entry : std::filesystem::directory_iterator(KTRCL_SAMPLES_DIR)) {
    if (entry.path().extension() != ".dxf") continue;
    // These are made to be healed first; as drawn they hold several parts or none.
    if (entry.path().filename().string().rfind("messy-", 0) == 0) continue;
    pugi::xml_document document;
    const std::string text = Dump(entry.path().filename().string());
    EXPECT_TRUE(document.load_string(text.c_str())) << entry.path();
    EXPECT_STREQ(document.document_element().name(), "GXLAPart") << entry.path();
    ++samples;
  }
  EXPECT_GT(samples, 40);
}

// The part is the same: the lengths of the shapes agree, though it is turned and drawn otherwise.
TEST(Dump, ShowsTheSameShapesOfATurnedPart) {
  pugi::xml_document documents[2];
  const std::string a = Dump("bracket.dxf");
  const std::string b = Dump("bracket-turned.dxf");
  ASSERT_TRUE(documents[0].load_string(a.c_str()));
  ASSERT_TRUE(documents[1].load_string(b.c_str()));
  std::vector<double> lengths[2];
  for (int i = 0; i < 2; ++i) {
    const pugi::xml_node part = documents[i].document_element();
    lengths[i].push_back(std::stod(part.child("ExtGXLAContour").child_value("LENGTH")));
    for (const pugi::xml_node shape : part.child("IntGXLAContourList").children()) {
      lengths[i].push_back(std::stod(shape.child_value("LENGTH")));
    }
  }
  ASSERT_EQ(lengths[0].size(), 3U);
  ASSERT_EQ(lengths[1].size(), 3U);
  // The coordinates have ten decimals.
  for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(lengths[0][i], lengths[1][i], 1e-7);
}

TEST(Dump, NamesAFileThatCannotBeUsed) {
  const support::TemporaryFolder folder;
  const std::string open = folder.Write("open.dxf",
                                        "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n10\n1.5\n20\n2."
                                        "5\n11\n7\n21\n2.5\n0\nENDSEC\n0\nEOF\n");
  for (const std::string& file : {folder.File("none.dxf"), folder.Write("empty.dxf", ""), open}) {
    for (const char* const form : {"", "--json "}) {
      const auto run = Ktrcl("dump " + (form + file));
      EXPECT_EQ(run.status, 3);
      EXPECT_EQ(run.output, "");
      EXPECT_EQ(run.errors.rfind("ktrcl: " + file + ": ", 0), 0U) << run.errors;
      EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << run.errors;
    }
  }
}

TEST(Dump, TakesOneFileAndOneForm) {
  EXPECT_EQ(Ktrcl("dump").status, 2);
  const std::string file = "\"" + SamplePath("bracket.dxf") + "\"";
  EXPECT_EQ(Ktrcl("dump " + file + " " + file).status, 2);
  EXPECT_EQ(Ktrcl("dump --xml --json " + file).status, 2);
  EXPECT_EQ(Ktrcl("dump --curve nan " + file).status, 2);
}

TEST(Dump, KeepsFileNamesThatAreNoUtf8) {
  const support::TemporaryFolder folder;
  const std::string circle = "0\nCIRCLE\n8\n0\n10\n0\n20\n0\n40\n";
  const std::string file =
      folder.Write("\xC4%.dxf", "0\nSECTION\n2\nENTITIES\n" + circle + "9\n0\nENDSEC\n0\nEOF\n");
  pugi::xml_document document;
  const std::string text = Ktrcl("dump " + file).output;
  ASSERT_TRUE(document.load_string(text.c_str()));
  const pugi::xml_node comment = document.document_element().child("_attribute");
  EXPECT_STREQ(comment.attribute("_key").as_string(), "COMMENT");
  EXPECT_EQ(comment.attribute("_text").as_string(), folder.File("%C4%25.dxf"));
  const Json json = Json::parse(Ktrcl("dump --json " + file).output);
  EXPECT_EQ(json["escapedAttributes"]["COMMENT"], folder.File("%C4%25.dxf"));
}

TEST(Dump, WritesOutTheChosenPart) {
  const support::TemporaryFolder folder;
  const std::string file =
      folder.Write("two.dxf",
                   "0\nSECTION\n2\nENTITIES\n0\nCIRCLE\n8\n0\n10\n0\n20\n0\n40\n5\n"
                   "0\nCIRCLE\n8\n0\n10\n100\n20\n0\n40\n7\n0\nENDSEC\n0\nEOF\n");
  EXPECT_EQ(Ktrcl("dump " + file).status, 3);
  pugi::xml_document document;
  const auto run = Ktrcl("dump --part 2 " + file);
  ASSERT_EQ(run.status, 0) << run.errors;
  ASSERT_TRUE(document.load_string(run.output.c_str()));
  // The smaller circle: 10 pi around.
  const pugi::xml_node outer = document.document_element().child("ExtGXLAContour");
  EXPECT_NEAR(std::stod(outer.child_value("LENGTH")), 10 * 3.141592653589793, 1e-12);
  EXPECT_EQ(Ktrcl("dump --part 3 " + file).status, 3);
  EXPECT_EQ(Ktrcl("dump --part 0 " + file).status, 2);
}

}  // namespace
