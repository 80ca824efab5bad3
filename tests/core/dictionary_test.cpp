// Dictionary: the ordered string-keyed map (account to name, code to rate).
#include "core/dictionary.h"

#include <gtest/gtest.h>

using namespace orvo;

TEST(Dictionary, AddRefusesADuplicateKeyAndKeepsTheFirstItem) {
    Dictionary d;
    EXPECT_TRUE(d.Add("2410", "Pirkėjai"));
    EXPECT_FALSE(d.Add("2410", "Kita"));
    EXPECT_EQ(d.Count(), 1);
    EXPECT_EQ(d.Item("2410").toString(), QStringLiteral("Pirkėjai"));
}

TEST(Dictionary, KeysAndItemsComeInInsertionOrder) {
    Dictionary d;
    d.Add("5310", 3);
    d.Add("2410", 1);
    d.Add("4430", 2);
    EXPECT_EQ(d.Keys(), (QStringList{"5310", "2410", "4430"}));
    EXPECT_EQ(d.Items(), (ValueArray{Value(3), Value(1), Value(2)}));
}

TEST(Dictionary, ExistsComparesKeysExactly) {
    Dictionary d;
    d.Add("EUR", 1.0);
    EXPECT_TRUE(d.Exists("EUR"));
    EXPECT_FALSE(d.Exists("eur"));
    EXPECT_FALSE(d.Exists("USD"));
}

TEST(Dictionary, ItemOfAnAbsentKeyIsNull) {
    Dictionary d;
    EXPECT_TRUE(d.Item("none").isNull());
    EXPECT_FALSE(d.Exists("none"));
}

TEST(Dictionary, RemoveTakesTheKeyOutAndKeepsTheOrderOfTheRest) {
    Dictionary d;
    d.Add("a", 1);
    d.Add("b", 2);
    d.Add("c", 3);
    EXPECT_TRUE(d.Remove("b"));
    EXPECT_FALSE(d.Exists("b"));
    EXPECT_EQ(d.Keys(), (QStringList{"a", "c"}));
    EXPECT_EQ(d.Items(), (ValueArray{Value(1), Value(3)}));
    EXPECT_FALSE(d.Remove("b"));
}

TEST(Dictionary, AKeyRemovedCanBeAddedAgainAtTheEnd) {
    Dictionary d;
    d.Add("a", 1);
    d.Add("b", 2);
    d.Remove("a");
    EXPECT_TRUE(d.Add("a", 9));
    EXPECT_EQ(d.Keys(), (QStringList{"b", "a"}));
}

TEST(Dictionary, SetItemReplacesInPlaceOrAddsAtTheEnd) {
    Dictionary d;
    d.Add("a", 1);
    d.Add("b", 2);
    d.SetItem("a", 10);
    d.SetItem("c", 3);
    EXPECT_EQ(d.Keys(), (QStringList{"a", "b", "c"}));
    EXPECT_EQ(d.Item("a").toInt32(), 10);
}

TEST(Dictionary, RemoveAllEmptiesIt) {
    Dictionary d;
    d.Add("a", 1);
    d.RemoveAll();
    EXPECT_EQ(d.Count(), 0);
    EXPECT_TRUE(d.Keys().isEmpty());
    EXPECT_TRUE(d.Add("a", 2));
}

TEST(Dictionary, ItemsMayBeNull) {
    Dictionary d;
    EXPECT_TRUE(d.Add("x", Value()));
    EXPECT_TRUE(d.Exists("x"));
    EXPECT_TRUE(d.Item("x").isNull());
}
