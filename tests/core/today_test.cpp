#include "core/today.h"

#include <QByteArray>
#include <gtest/gtest.h>

using namespace orvo;

namespace {

// Sets ORVO_TODAY (or removes it) for one test and puts the old state back afterwards,
// with no fixed date left behind.
class TodayTest : public ::testing::Test {
protected:
    void SetUp() override {
        hadVariable_ = qEnvironmentVariableIsSet("ORVO_TODAY");
        saved_ = qgetenv("ORVO_TODAY");
        SetToday(QDate());
    }
    void TearDown() override {
        SetToday(QDate());
        if (hadVariable_)
            qputenv("ORVO_TODAY", saved_);
        else
            qunsetenv("ORVO_TODAY");
    }

private:
    bool hadVariable_ = false;
    QByteArray saved_;
};

} // namespace

TEST_F(TodayTest, TodayHonoursTheEnvironmentVariable) {
    qputenv("ORVO_TODAY", "2024-03-15");
    EXPECT_EQ(Today(), QDate(2024, 3, 15));
    qputenv("ORVO_TODAY", "2021-12-31");
    EXPECT_EQ(Today(), QDate(2021, 12, 31));
}

TEST_F(TodayTest, SetTodayOverridesTheEnvironment) {
    qputenv("ORVO_TODAY", "2024-03-15");
    SetToday(QDate(2020, 2, 29));
    EXPECT_EQ(Today(), QDate(2020, 2, 29));
}

TEST_F(TodayTest, SetTodayWithInvalidDateReturnsToTheEnvironment) {
    qputenv("ORVO_TODAY", "2024-03-15");
    SetToday(QDate(2020, 2, 29));
    SetToday(QDate());
    EXPECT_EQ(Today(), QDate(2024, 3, 15));
}

TEST_F(TodayTest, InvalidOrMissingVariableFallsBackToTheClock) {
    for (const char* text : {"2024-02-30", "rytoj", ""}) {
        if (*text)
            qputenv("ORVO_TODAY", text);
        else
            qunsetenv("ORVO_TODAY");
        const QDate before = QDate::currentDate();
        const QDate today = Today();
        const QDate after = QDate::currentDate();
        EXPECT_TRUE(today == before || today == after) << text;
    }
}
