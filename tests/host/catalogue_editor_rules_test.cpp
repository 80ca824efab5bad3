// The checks of catalogue records apart from storage: account numbers as IBANs (check
// digits, length of the country, characters), the local numbers that are no IBAN, the
// names every record needs, currency codes, and typed rates.
#include "host/catalogues/catalogue_editor_rules.h"
#include "host/catalogues/catalogue_kinds.h"
#include "host/catalogues/user_kind.h"

#include <gtest/gtest.h>

#include <QHash>

namespace orvo::host {
namespace {

FieldText fields(const QHash<QString, QString>& values) {
    return [values](const QString& name) { return values.value(name); };
}

TEST(CatalogueEditorRules, IbansWithCheckDigitsThatAddUpAreValid) {
    EXPECT_EQ(CheckIban(QStringLiteral("LT121000011101001000")), IbanState::Valid);
    EXPECT_EQ(CheckIban(QStringLiteral("lt12 1000 0111 0100 1000")), IbanState::Valid);
    EXPECT_EQ(CheckIban(QStringLiteral("LV80BANK0000435195001")), IbanState::Valid);
    EXPECT_EQ(CheckIban(QStringLiteral("DE89370400440532013000")), IbanState::Valid);
    EXPECT_EQ(CheckIban(QStringLiteral("GB82WEST12345698765432")), IbanState::Valid);
}

TEST(CatalogueEditorRules, IbanWithWrongCheckDigitsIsRefused) {
    EXPECT_EQ(CheckIban(QStringLiteral("LT131000011101001000")), IbanState::BadCheckDigits);
    // Two digits swapped inside the number.
    EXPECT_EQ(CheckIban(QStringLiteral("LT121000011101000100")), IbanState::BadCheckDigits);
    EXPECT_EQ(CheckIban(QStringLiteral("LTXX1000011101001000")), IbanState::BadCheckDigits);
}

TEST(CatalogueEditorRules, IbanOfTheWrongLengthForItsCountryIsRefused) {
    EXPECT_EQ(CheckIban(QStringLiteral("LT12100001110100100")), IbanState::BadLength);
    EXPECT_EQ(CheckIban(QStringLiteral("LT1210000111010010001")), IbanState::BadLength);
    EXPECT_EQ(CheckIban(QStringLiteral("XX12345")), IbanState::BadLength);
}

TEST(CatalogueEditorRules, IbanWithOtherCharactersIsRefused) {
    EXPECT_EQ(CheckIban(QStringLiteral("LT12-1000-0111-0100-1000")), IbanState::BadCharacters);
    EXPECT_EQ(CheckIban(QStringLiteral("LT12Ą000011101001000")), IbanState::BadCharacters);
}

TEST(CatalogueEditorRules, LocalAccountNumberOfDigitsIsNoIban) {
    EXPECT_EQ(CheckIban(QStringLiteral("7300010012345678")), IbanState::NotIban);
    EXPECT_EQ(CheckIban(QString()), IbanState::NotIban);
}

TEST(CatalogueEditorRules, AccountNumberIsKeptWithoutBlanksInCapitals) {
    EXPECT_EQ(NormalizedAccountNumber(QStringLiteral(" lt12 1000 0111\t0100 1000 ")),
              QStringLiteral("LT121000011101001000"));
}

TEST(CatalogueEditorRules, BankAccountNeedsAnOwnerANumberAndRightCheckDigits) {
    QHash<QString, QString> v{
        {QStringLiteral("OwnerOIDR"), QStringLiteral("O00001001")},
        {QStringLiteral("AccountNumber"), QStringLiteral("LT12 1000 0111 0100 1000")}};
    EXPECT_EQ(CatalogueRecordRefusal(kinds::BankAccount, fields(v)), QString());
    v[QStringLiteral("AccountNumber")] = QStringLiteral("LT13 1000 0111 0100 1000");
    EXPECT_EQ(CatalogueRecordRefusal(kinds::BankAccount, fields(v)),
              QStringLiteral("Sąskaitos numerio LT131000011101001000 kontroliniai skaitmenys "
                             "neteisingi: patikrinkite, ar numeris įvestas be klaidų."));
    v[QStringLiteral("AccountNumber")] = QStringLiteral("  ");
    EXPECT_EQ(CatalogueRecordRefusal(kinds::BankAccount, fields(v)),
              QStringLiteral("Įveskite banko sąskaitos numerį."));
    v[QStringLiteral("OwnerOIDR")] = QString();
    EXPECT_EQ(CatalogueRecordRefusal(kinds::BankAccount, fields(v)),
              QStringLiteral("Nurodykite, kam priklauso banko sąskaita."));
}

TEST(CatalogueEditorRules, EveryKindRefusesAnEmptyName) {
    EXPECT_EQ(CatalogueRecordRefusal(kinds::Firm, fields({})),
              QStringLiteral("Įveskite įmonės pavadinimą."));
    EXPECT_EQ(CatalogueRecordRefusal(kinds::Bank,
                                     fields({{QStringLiteral("Name"), QStringLiteral(" ")}})),
              QStringLiteral("Įveskite banko pavadinimą."));
    EXPECT_EQ(CatalogueRecordRefusal(kinds::Person,
                                     fields({{QStringLiteral("Name"), QStringLiteral("Ona")}})),
              QStringLiteral("Įveskite asmens vardą ir pavardę."));
    EXPECT_EQ(CatalogueRecordRefusal(kinds::Employee, fields({{QStringLiteral("LastName"),
                                                               QStringLiteral("Jonaitė")}})),
              QStringLiteral("Įveskite asmens vardą ir pavardę."));
    EXPECT_EQ(CatalogueRecordRefusal(kinds::User,
                                     fields({{QStringLiteral("Name"), QStringLiteral("Ona")}})),
              QStringLiteral("Įveskite naudotojo prisijungimo vardą."));
    EXPECT_EQ(CatalogueRecordRefusal(kinds::User,
                                     fields({{QStringLiteral("Code"), QStringLiteral("ona")}})),
              QStringLiteral("Įveskite naudotojo vardą."));
    EXPECT_EQ(CatalogueRecordRefusal(
                  kinds::Firm, fields({{QStringLiteral("Name"), QStringLiteral("UAB Ąžuolas")}})),
              QString());
}

TEST(CatalogueEditorRules, CurrencyCodeIsThreeLatinLettersAndFixedRateNotNegative) {
    QHash<QString, QString> v{{QStringLiteral("Code"), QStringLiteral("usd")},
                              {QStringLiteral("Name"), QStringLiteral("JAV doleris")}};
    EXPECT_EQ(CatalogueRecordRefusal(kinds::Currency, fields(v)), QString());
    for (const QString& code : {QStringLiteral("US"), QStringLiteral("USDX"), QStringLiteral("U$D"),
                               QStringLiteral("ĄŽU")}) {
        v[QStringLiteral("Code")] = code;
        EXPECT_EQ(CatalogueRecordRefusal(kinds::Currency, fields(v)),
                  QStringLiteral("Valiutos kodas turi būti trys lotyniškos raidės (pvz., USD)."))
            << code.toStdString();
    }
    v[QStringLiteral("Code")] = QStringLiteral("GBP");
    v[QStringLiteral("FixedRate")] = QStringLiteral("-0,5");
    EXPECT_EQ(CatalogueRecordRefusal(kinds::Currency, fields(v)),
              QStringLiteral("Pastovus valiutos kursas negali būti neigiamas."));
}

TEST(CatalogueEditorRules, RateThatIsNotAPositiveNumberIsRefused) {
    const QString refusal = QStringLiteral("Kursas turi būti teigiamas skaičius, pvz., 1,0875.");
    for (const QString& text : {QStringLiteral("0"), QStringLiteral("-1,2"), QStringLiteral("abc"),
                               QString(), QStringLiteral("1,2,3"), QStringLiteral("0,0000")})
        EXPECT_EQ(RateTextRefusal(text), refusal) << text.toStdString();
    EXPECT_EQ(RateTextRefusal(QStringLiteral("1,0875")), QString());
    EXPECT_EQ(RateTextRefusal(QStringLiteral("3.4528")), QString());
    EXPECT_EQ(RateTextRefusal(QStringLiteral("1 234,5")), QString());
}

} // namespace
} // namespace orvo::host
