#include "host/sum_by_words.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using orvo::host::NumberInWords;
using orvo::host::SumByWords;

namespace {

struct Case {
    double sum;
    const char* expected;
};

void expectAll(const char* currency, std::initializer_list<Case> cases) {
    for (const Case& c : cases)
        EXPECT_EQ(SumByWords(c.sum, QString::fromLatin1(currency)).toStdString(),
                  std::string(c.expected))
            << currency << " " << c.sum;
}

} // namespace

TEST(SumByWords, EuroWholeAmounts) {
    expectAll("EUR", {
                         {0, "Nulis eurų 00 ct"},
                         {1, "Vienas euras 00 ct"},
                         {2, "Du eurai 00 ct"},
                         {3, "Trys eurai 00 ct"},
                         {4, "Keturi eurai 00 ct"},
                         {5, "Penki eurai 00 ct"},
                         {6, "Šeši eurai 00 ct"},
                         {7, "Septyni eurai 00 ct"},
                         {8, "Aštuoni eurai 00 ct"},
                         {9, "Devyni eurai 00 ct"},
                         {10, "Dešimt eurų 00 ct"},
                         {11, "Vienuolika eurų 00 ct"},
                         {12, "Dvylika eurų 00 ct"},
                         {13, "Trylika eurų 00 ct"},
                         {14, "Keturiolika eurų 00 ct"},
                         {15, "Penkiolika eurų 00 ct"},
                         {16, "Šešiolika eurų 00 ct"},
                         {17, "Septyniolika eurų 00 ct"},
                         {18, "Aštuoniolika eurų 00 ct"},
                         {19, "Devyniolika eurų 00 ct"},
                         {20, "Dvidešimt eurų 00 ct"},
                         {21, "Dvidešimt vienas euras 00 ct"},
                         {22, "Dvidešimt du eurai 00 ct"},
                         {30, "Trisdešimt eurų 00 ct"},
                         {45, "Keturiasdešimt penki eurai 00 ct"},
                         {56, "Penkiasdešimt šeši eurai 00 ct"},
                         {67, "Šešiasdešimt septyni eurai 00 ct"},
                         {78, "Septyniasdešimt aštuoni eurai 00 ct"},
                         {89, "Aštuoniasdešimt devyni eurai 00 ct"},
                         {90, "Devyniasdešimt eurų 00 ct"},
                         {100, "Vienas šimtas eurų 00 ct"},
                         {101, "Vienas šimtas vienas euras 00 ct"},
                         {111, "Vienas šimtas vienuolika eurų 00 ct"},
                         {200, "Du šimtai eurų 00 ct"},
                         {312, "Trys šimtai dvylika eurų 00 ct"},
                         {999, "Devyni šimtai devyniasdešimt devyni eurai 00 ct"},
                         {1000, "Vienas tūkstantis eurų 00 ct"},
                         {1001, "Vienas tūkstantis vienas euras 00 ct"},
                         {1011, "Vienas tūkstantis vienuolika eurų 00 ct"},
                         {2000, "Du tūkstančiai eurų 00 ct"},
                         {10000, "Dešimt tūkstančių eurų 00 ct"},
                         {11000, "Vienuolika tūkstančių eurų 00 ct"},
                         {21000, "Dvidešimt vienas tūkstantis eurų 00 ct"},
                         {22000, "Dvidešimt du tūkstančiai eurų 00 ct"},
                         {100000, "Vienas šimtas tūkstančių eurų 00 ct"},
                         {101000, "Vienas šimtas vienas tūkstantis eurų 00 ct"},
                         {1000000, "Vienas milijonas eurų 00 ct"},
                         {2000000, "Du milijonai eurų 00 ct"},
                         {15000000, "Penkiolika milijonų eurų 00 ct"},
                         {1000000000, "Vienas milijardas eurų 00 ct"},
                         {3000000000.0, "Trys milijardai eurų 00 ct"},
                     });
}

TEST(SumByWords, EuroWithCents) {
    expectAll("EUR",
              {
                  {1234.56, "Vienas tūkstantis du šimtai trisdešimt keturi eurai 56 ct"},
                  {0.05, "Nulis eurų 05 ct"},
                  {0.01, "Nulis eurų 01 ct"},
                  {0.99, "Nulis eurų 99 ct"},
                  {21.10, "Dvidešimt vienas euras 10 ct"},
                  {1000001.01, "Vienas milijonas vienas euras 01 ct"},
                  {12345678.9, "Dvylika milijonų trys šimtai keturiasdešimt penki tūkstančiai "
                               "šeši šimtai septyniasdešimt aštuoni eurai 90 ct"},
                  {999999999999.99,
                   "Devyni šimtai devyniasdešimt devyni milijardai devyni šimtai devyniasdešimt "
                   "devyni milijonai devyni šimtai devyniasdešimt devyni tūkstančiai devyni "
                   "šimtai devyniasdešimt devyni eurai 99 ct"},
              });
}

TEST(SumByWords, LitasTakesItsOwnForms) {
    expectAll("LTL", {
                         {0, "Nulis litų 00 ct"},
                         {1, "Vienas litas 00 ct"},
                         {2, "Du litai 00 ct"},
                         {10, "Dešimt litų 00 ct"},
                         {11, "Vienuolika litų 00 ct"},
                         {21, "Dvidešimt vienas litas 00 ct"},
                         {22, "Dvidešimt du litai 00 ct"},
                         {100, "Vienas šimtas litų 00 ct"},
                         {1001, "Vienas tūkstantis vienas litas 00 ct"},
                         {2000000, "Du milijonai litų 00 ct"},
                         {1234.56, "Vienas tūkstantis du šimtai trisdešimt keturi litai 56 ct"},
                     });
}

TEST(SumByWords, LitasCodeMayBeWrittenLtInAnyCase) {
    EXPECT_EQ(SumByWords(5, "LT"), QString::fromUtf8("Penki litai 00 ct"));
    EXPECT_EQ(SumByWords(5, "Lt"), QString::fromUtf8("Penki litai 00 ct"));
    EXPECT_EQ(SumByWords(5, "eur"), QString::fromUtf8("Penki eurai 00 ct"));
}

TEST(SumByWords, UsDollar) {
    expectAll("USD", {
                         {0, "Nulis JAV dolerių 00 ct"},
                         {1, "Vienas JAV doleris 00 ct"},
                         {2, "Du JAV doleriai 00 ct"},
                         {12, "Dvylika JAV dolerių 00 ct"},
                         {101, "Vienas šimtas vienas JAV doleris 00 ct"},
                         {1234.56, "Vienas tūkstantis du šimtai trisdešimt keturi JAV doleriai "
                                   "56 ct"},
                     });
}

TEST(SumByWords, PoundSterling) {
    expectAll("GBP", {
                         {1, "Vienas svaras sterlingų 00 ct"},
                         {3, "Trys svarai sterlingų 00 ct"},
                         {20, "Dvidešimt svarų sterlingų 00 ct"},
                     });
}

TEST(SumByWords, OtherCurrencyIsWrittenByItsCode) {
    expectAll("CHF", {
                         {0, "Nulis CHF 00 ct"},
                         {1, "Vienas CHF 00 ct"},
                         {250.5, "Du šimtai penkiasdešimt CHF 50 ct"},
                         {1000000, "Vienas milijonas CHF 00 ct"},
                     });
    EXPECT_EQ(SumByWords(7, " pln "), QString::fromUtf8("Septyni PLN 00 ct"));
}

TEST(SumByWords, BlankCodeMeansTheBaseCurrency) {
    EXPECT_EQ(SumByWords(2, "   "), QString::fromUtf8("Du eurai 00 ct"));
    EXPECT_EQ(SumByWords(2, "   ", "LTL"), QString::fromUtf8("Du litai 00 ct"));
}

TEST(SumByWords, NegativeAmountsBeginWithMinus) {
    EXPECT_EQ(SumByWords(-1, "EUR"), QString::fromUtf8("Minus vienas euras 00 ct"));
    EXPECT_EQ(SumByWords(-1234.56, "EUR"),
              QString::fromUtf8("Minus vienas tūkstantis du šimtai trisdešimt keturi eurai 56 ct"));
    EXPECT_EQ(SumByWords(-0.5, "EUR"), QString::fromUtf8("Minus nulis eurų 50 ct"));
}

TEST(SumByWords, CentsFollowTheBaseSumRounding) {
    // 0.125 and 2.675 are pushed over the half by the addend.
    EXPECT_EQ(SumByWords(0.125, "EUR"), QString::fromUtf8("Nulis eurų 13 ct"));
    EXPECT_EQ(SumByWords(2.675, "EUR"), QString::fromUtf8("Du eurai 68 ct"));
    EXPECT_EQ(SumByWords(0.994, "EUR"), QString::fromUtf8("Nulis eurų 99 ct"));
    EXPECT_EQ(SumByWords(0.995, "EUR"), QString::fromUtf8("Vienas euras 00 ct"));
    EXPECT_EQ(SumByWords(20.999, "EUR"), QString::fromUtf8("Dvidešimt vienas euras 00 ct"));
    // A sum that rounds to nothing carries no sign.
    EXPECT_EQ(SumByWords(-0.001, "EUR"), QString::fromUtf8("Nulis eurų 00 ct"));
}

TEST(SumByWords, AmountsBeyondBillionsAndNonNumbersGiveEmptyText) {
    EXPECT_TRUE(SumByWords(1000000000000.0, "EUR").isEmpty());
    EXPECT_TRUE(SumByWords(-1000000000000.0, "EUR").isEmpty());
    EXPECT_TRUE(SumByWords(std::numeric_limits<double>::quiet_NaN(), "EUR").isEmpty());
    EXPECT_TRUE(SumByWords(std::numeric_limits<double>::infinity(), "EUR").isEmpty());
}

TEST(SumByWords, NumberInWordsCoversTheRange) {
    EXPECT_EQ(NumberInWords(0), QString::fromUtf8("nulis"));
    EXPECT_EQ(NumberInWords(1000000001), QString::fromUtf8("vienas milijardas vienas"));
    EXPECT_EQ(NumberInWords(2002002002),
              QString::fromUtf8("du milijardai du milijonai du tūkstančiai du"));
    EXPECT_EQ(NumberInWords(111111111111),
              QString::fromUtf8("vienas šimtas vienuolika milijardų vienas šimtas vienuolika "
                                "milijonų vienas šimtas vienuolika tūkstančių vienas šimtas "
                                "vienuolika"));
    EXPECT_TRUE(NumberInWords(-1).isEmpty());
    EXPECT_TRUE(NumberInWords(1000000000000LL).isEmpty());
}
