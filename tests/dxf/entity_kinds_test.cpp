#include "dxf/entity_kinds.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>

namespace quillon::dxf {
namespace {

constexpr std::string_view kNames[] = {
    "LINE",   "3DLINE", "VERTEX",     "POLYLINE", "CIRCLE", "ARC",    "ELLIPSE", "SPLINE",
    "TEXT",   "INSERT", "DIMENSION",  "POINT",    "ATTDEF", "ATTRIB", "TRACE",   "SOLID",
    "SEQEND", "3DFACE", "LWPOLYLINE", "SHAPE",    "MTEXT",  "LEADER"};

TEST(EntityKind, KnowsEveryNameAndGivesItBack) {
  std::set<EntityKind> kinds;
  for (const std::string_view name : kNames) {
    EXPECT_TRUE(isEntityName(name)) << name;
    EXPECT_EQ(entityName(entityKind(name)), name);
    kinds.insert(entityKind(name));
  }
  EXPECT_EQ(kinds.size(), 22U);
  EXPECT_EQ(kinds.size() + 1, kEntityKindCount);
}

TEST(EntityKind, ComparesNamesExactly) {
  for (const std::string_view name : kNames) {
    std::string lower(name);
    lower.back() = static_cast<char>(lower.back() - 'A' + 'a');
    EXPECT_FALSE(isEntityName(lower)) << lower;
    EXPECT_FALSE(isEntityName(std::string(name) + " ")) << name;
    EXPECT_FALSE(isEntityName(std::string(name) + "S")) << name;
    EXPECT_FALSE(isEntityName(name.substr(0, name.size() - 1))) << name;
  }
}

TEST(EntityKind, IsNoneForOtherNames) {
  for (const std::string_view name :
       {"", "0", "ENDSEC", "ENDBLK", "BLOCK", "EOF", "HATCH", "RAY", "XLINE", "VIEWPORT", "IMAGE",
        "MLINE", "REGION", "3DSOLID", "TOLERANCE", "ACAD_TABLE", "POLYGON", "ARCS", "3DPOLY"}) {
    EXPECT_FALSE(isEntityName(name)) << name;
    EXPECT_EQ(entityKind(name), EntityKind::None);
  }
  EXPECT_EQ(entityName(EntityKind::None), "");
}

}  // namespace
}  // namespace quillon::dxf
