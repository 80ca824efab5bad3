// Fixes "today" for the whole test program: the settling tests book debts and rates on
// fixed days and cover or revalue them "today", so the day must not move with the clock.
// Included by the fixtures that need it; the program registers it once.
#pragma once

#include "core/today.h"

#include <gtest/gtest.h>

namespace orvo::settlement_testing {

class FixedToday : public ::testing::Environment {
public:
    void SetUp() override { SetToday(QDate(2024, 3, 15)); }
    void TearDown() override { SetToday(QDate()); }
};

inline ::testing::Environment* const kFixedToday =
    ::testing::AddGlobalTestEnvironment(new FixedToday);

} // namespace orvo::settlement_testing
