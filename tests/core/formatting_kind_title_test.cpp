#include "core/kind_title.h"

#include <gtest/gtest.h>

using namespace orvo;

TEST(FormattingKindTitle, KindTitleNamesTheFourDocumentKinds) {
    const QString fallback = QStringLiteral("Operacija");
    EXPECT_EQ(KindTitle(QStringLiteral("O0201501"), fallback),
              QString::fromUtf8("Mokėjimo nurodymas"));
    EXPECT_EQ(KindTitle(QStringLiteral("O0201502"), fallback), QString::fromUtf8("Pinigų gavimas"));
    EXPECT_EQ(KindTitle(QStringLiteral("O0201503"), fallback),
              QString::fromUtf8("Kasos išlaidų orderis"));
    EXPECT_EQ(KindTitle(QStringLiteral("O0201504"), fallback),
              QString::fromUtf8("Kasos pajamų orderis"));
}

TEST(FormattingKindTitle, KindTitleOfAnyOtherCodeIsTheDefault) {
    const QString fallback = QStringLiteral("Operacija");
    EXPECT_EQ(KindTitle(QStringLiteral("O0201500"), fallback), fallback);
    EXPECT_EQ(KindTitle(QStringLiteral("O0201505"), fallback), fallback);
    EXPECT_EQ(KindTitle(QString(), fallback), fallback);
    EXPECT_EQ(KindTitle(QStringLiteral("o0201501"), fallback), fallback);
}
