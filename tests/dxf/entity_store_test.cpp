#include "dxf/entity_store.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::dxf {
namespace {

/// A text long enough for a test's slots.
const std::string& someText() {
  static const std::string text(std::size_t{3} << 20, 'x');
  return text;
}

std::string_view part(std::size_t offset, std::size_t length) {
  return std::string_view(someText()).substr(offset, length);
}

DxfEntity entityAt(EntityKind kind, std::size_t offset) {
  DxfEntity entity;
  entity.kind = kind;
  entity.groups = someText().data() + offset;
  return entity;
}

void fill(DxfEntity& entity, unsigned slot, std::string_view value) {
  entity.filled |= 1U << slot;
  entity.values[slot] = value;
}

void expectSame(const DxfEntity& found, const DxfEntity& stored) {
  EXPECT_EQ(found.kind, stored.kind);
  EXPECT_EQ(found.groups, stored.groups);
  ASSERT_EQ(found.filled, stored.filled);
  for (unsigned slot = 0; slot < kMaxSlots; ++slot) {
    if ((stored.filled >> slot & 1U) == 0) continue;
    EXPECT_EQ(found.values[slot].data(), stored.values[slot].data()) << slot;
    EXPECT_EQ(found.values[slot].size(), stored.values[slot].size()) << slot;
  }
  if (!hasSideRecord(stored.kind)) return;
  EXPECT_EQ(found.sideIndex, stored.sideIndex);
  EXPECT_EQ(found.groupsEnd, stored.groupsEnd);
}

void expectRoundTrip(const std::vector<DxfEntity>& entities) {
  EntityStore store;
  EntityList list = store.startList();
  for (const DxfEntity& entity : entities) store.append(list, entity);
  EXPECT_EQ(list.size(), entities.size());
  EntityCursor cursor(store, list);
  DxfEntity found;
  for (const DxfEntity& entity : entities) {
    ASSERT_TRUE(cursor.next(found));
    expectSame(found, entity);
  }
  EXPECT_FALSE(cursor.next(found));
  EXPECT_FALSE(cursor.next(found));
}

TEST(EntityStore, GivesEntitiesBackInOrder) {
  std::vector<DxfEntity> entities = {entityAt(EntityKind::Line, 0),
                                     entityAt(EntityKind::Seqend, 50),
                                     entityAt(EntityKind::Arc, 60)};
  fill(entities[0], 0, part(4, 3));
  fill(entities[0], kMaxSlots - 1, part(12, 0));
  fill(entities[2], 5, part(64, 10));
  expectRoundTrip(entities);
}

TEST(EntityStore, KeepsLongAndFarTexts) {
  for (const std::size_t length : {0U, 1U, 4094U, 4095U, 4096U, 100'000U}) {
    for (const std::size_t distance : {1U, 1'048'574U, 1'048'575U, 1'048'576U, 2'000'000U}) {
      DxfEntity entity = entityAt(EntityKind::Mtext, 5);
      fill(entity, 1, part(5 + distance, length));
      fill(entity, 2, part(9, 2));
      expectRoundTrip({entity, entity});
    }
  }
}

TEST(EntityStore, KeepsTheSideRecordsOfTheKindsThatHaveOne) {
  std::vector<DxfEntity> entities;
  for (const EntityKind kind : {EntityKind::LwPolyline, EntityKind::Leader, EntityKind::Spline}) {
    for (const std::size_t end : {10U, 5000U, 2'500'000U}) {
      DxfEntity& entity = entities.emplace_back(entityAt(kind, 7));
      entity.groupsEnd = entity.groups + end;
      entity.sideIndex = entities.size() * 1000;
      fill(entity, 3, part(8, 1));
    }
  }
  expectRoundTrip(entities);
}

TEST(EntityStore, KeepsAnyNumberOfEntitiesOfAnySize) {
  std::mt19937 random(5);
  std::vector<DxfEntity> entities;
  for (std::uint64_t i = 0; i < 30'000; ++i) {
    const std::size_t offset = random() % 1000;
    DxfEntity& entity =
        entities.emplace_back(entityAt(static_cast<EntityKind>(1 + random() % 22), offset));
    entity.groupsEnd = entity.groups + 100;
    entity.sideIndex = i;
    for (unsigned slot = 0; slot < kMaxSlots; ++slot) {
      if (random() % 2 == 0) continue;
      const bool isLong = random() % 10 == 0;
      fill(entity, slot, part(offset + random() % 50, isLong ? 10'000 : random() % 20));
    }
  }
  expectRoundTrip(entities);
}

TEST(EntityStore, HoldsSeveralListsAmongThemEmptyOnes) {
  EntityStore store;
  std::vector<EntityList> lists;
  for (std::size_t i = 0; i < 5000; ++i) {
    lists.push_back(store.startList());
    for (std::size_t j = 0; j < i % 4; ++j) {
      DxfEntity entity = entityAt(EntityKind::Point, i);
      fill(entity, 0, part(i + 1, j));
      store.append(lists.back(), entity);
    }
  }
  for (std::size_t i = 0; i < lists.size(); ++i) {
    EntityCursor cursor(store, lists[i]);
    DxfEntity found;
    for (std::size_t j = 0; j < i % 4; ++j) {
      ASSERT_TRUE(cursor.next(found)) << i;
      EXPECT_EQ(found.groups, someText().data() + i);
      EXPECT_EQ(found.values[0].size(), j);
    }
    EXPECT_FALSE(cursor.next(found)) << i;
  }
}

}  // namespace
}  // namespace quillon::dxf
