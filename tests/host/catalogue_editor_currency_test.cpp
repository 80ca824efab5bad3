// The editor of currencies and their daily rates on both backends: the code is three
// letters kept in capitals and not repeated; a rate is typed as the users quote it
// (foreign units per euro under a euro base) and must be a positive number; a day's
// rate replaces the one kept before and can be removed; a currency is saved before its
// rates, and the base currency takes none.
#include "catalogue_editor_fixture.h"

#include "core/recordset.h"
#include "host/catalogues/currency_editor.h"

#include <cmath>

namespace orvo::host::testing {
namespace {

class CurrencyEditorTest : public CatalogueEditorTest {
protected:
    std::unique_ptr<CurrencyEditor> Currency(const QString& codeOrOidr) {
        std::unique_ptr<CatalogueEditor> editor = EditorOf(codeOrOidr);
        auto* currency = dynamic_cast<CurrencyEditor*>(editor.get());
        EXPECT_TRUE(currency);
        if (!currency)
            return nullptr;
        editor.release();
        return std::unique_ptr<CurrencyEditor>(currency);
    }

    std::unique_ptr<CurrencyEditor> StoredUsd() {
        auto editor = Currency(kinds::Currency);
        if (!editor)
            return nullptr;
        editor->SetText(QStringLiteral("Code"), QStringLiteral("usd"));
        editor->SetText(QStringLiteral("Name"), QStringLiteral("JAV doleris"));
        const ResultRecord r = editor->Save();
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        return editor;
    }
};

TEST_P(CurrencyEditorTest, CodeIsKeptInCapitalsAndReadBack) {
    auto editor = StoredUsd();
    ASSERT_TRUE(editor);
    EXPECT_EQ(editor->Text(QStringLiteral("Code")), QStringLiteral("USD"));
    EXPECT_EQ(editor->WindowTitle(), QStringLiteral("Valiuta: USD JAV doleris"));
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM Currencies WHERE Code = 'USD'")), 1);
}

TEST_P(CurrencyEditorTest, CodeThatIsNotThreeLettersIsRefused) {
    auto editor = Currency(kinds::Currency);
    editor->SetText(QStringLiteral("Code"), QStringLiteral("US"));
    editor->SetText(QStringLiteral("Name"), QStringLiteral("Klaida"));
    EXPECT_EQ(editor->Save().Code, 777);
    EXPECT_EQ(BoxTexts(), QStringList{QStringLiteral(
                              "warning: Valiutos kodas turi būti trys lotyniškos raidės (pvz., "
                              "USD).")});
}

TEST_P(CurrencyEditorTest, RepeatedCodeIsRefused) {
    StoredUsd();
    auto editor = Currency(kinds::Currency);
    editor->SetText(QStringLiteral("Code"), QStringLiteral("USD"));
    editor->SetText(QStringLiteral("Name"), QStringLiteral("Antras doleris"));
    EXPECT_EQ(editor->Save().Code, 777);
    EXPECT_EQ(BoxTexts(), QStringList{QStringLiteral("error: Valiuta kodu USD jau yra: JAV doleris."
                                                     "\nĮrašymas neatliktas !")});
}

TEST_P(CurrencyEditorTest, RateTypedUnderEuroBaseIsUnitsPerEuroAndKeepsItsReciprocal) {
    auto editor = StoredUsd();
    ASSERT_TRUE(editor);
    ASSERT_TRUE(editor->BaseIsEuro());
    EXPECT_EQ(editor->RateCaption(), QStringLiteral("Kursas (valiutos vienetų už 1 EUR)"));
    const ResultRecord r = editor->AddRate(QDate(2024, 3, 15), QStringLiteral("1,0875"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    const RecordsetPtr rates = editor->Rates();
    ASSERT_EQ(rates->RecordCount(), 1);
    rates->MoveFirst();
    EXPECT_EQ(rates->Field(QStringLiteral("DateD")).toDate(), QDate(2024, 3, 15));
    EXPECT_DOUBLE_EQ(rates->Field(QStringLiteral("CurrencyRate")).toDouble(), 1.0875);
    EXPECT_NEAR(rates->Field(QStringLiteral("Rate")).toDouble(), 1.0 / 1.0875, 1e-12);
    EXPECT_EQ(editor->QuotedRateText(0), QStringLiteral("1,0875"));
    // The day's rate is what the book answers for that day.
    const BOResult list = Call(QStringLiteral("GetCurrencyList"), QStringLiteral("'2024.03.20'"));
    ASSERT_TRUE(list.ok());
    const RecordsetPtr rs = list.Data.toRecordset();
    rs->SetFilter(QStringLiteral("Code = 'USD'"));
    EXPECT_DOUBLE_EQ(rs->Field(QStringLiteral("CurrencyRate")).toDouble(), 1.0875);
}

TEST_P(CurrencyEditorTest, RateThatIsNotAPositiveNumberIsRefused) {
    auto editor = StoredUsd();
    for (const QString& typed :
         {QStringLiteral("0"), QStringLiteral("-1,1"), QStringLiteral("abc"), QString()}) {
        EXPECT_EQ(editor->AddRate(QDate(2024, 3, 15), typed).Code, 777) << typed.toStdString();
        EXPECT_EQ(BoxTexts(), QStringList{QStringLiteral(
                                  "warning: Kursas turi būti teigiamas skaičius, pvz., 1,0875.")});
    }
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM CurrencyRates")), 0);
}

TEST_P(CurrencyEditorTest, RateOfADayReplacesTheOneKeptBeforeAndCanBeRemoved) {
    auto editor = StoredUsd();
    ASSERT_TRUE(editor->AddRate(QDate(2024, 3, 14), QStringLiteral("1,08")).ok());
    ASSERT_TRUE(editor->AddRate(QDate(2024, 3, 15), QStringLiteral("1,09")).ok());
    ASSERT_TRUE(editor->AddRate(QDate(2024, 3, 15), QStringLiteral("1,1")).ok());
    RecordsetPtr rates = editor->Rates();
    ASSERT_EQ(rates->RecordCount(), 2);
    // The latest first.
    EXPECT_EQ(editor->QuotedRateText(0), QStringLiteral("1,1"));
    EXPECT_EQ(editor->QuotedRateText(1), QStringLiteral("1,08"));
    ASSERT_TRUE(editor->DeleteRate(QDate(2024, 3, 15)).ok());
    EXPECT_EQ(editor->Rates()->RecordCount(), 1);
    EXPECT_EQ(editor->QuotedRateText(0), QStringLiteral("1,08"));
    // A day without a rate.
    EXPECT_NE(editor->DeleteRate(QDate(2024, 3, 15)).Code, 0);
    EXPECT_EQ(BoxTexts(),
              QStringList{QStringLiteral("error: Valiutos USD kurso 2024.03.15 dienai nėra.")});
}

TEST_P(CurrencyEditorTest, NewCurrencyIsSavedBeforeItsRates) {
    auto editor = Currency(kinds::Currency);
    editor->SetText(QStringLiteral("Code"), QStringLiteral("GBP"));
    EXPECT_EQ(editor->AddRate(QDate(2024, 3, 15), QStringLiteral("0,85")).Code, 777);
    EXPECT_EQ(BoxTexts(), QStringList{QStringLiteral(
                              "warning: Pirma įrašykite valiutą, tada įveskite jos kursus.")});
}

TEST_P(CurrencyEditorTest, BaseCurrencyTakesNoRate) {
    auto editor = Currency(kinds::Currency);
    editor->SetText(QStringLiteral("Code"), QStringLiteral("EUR"));
    editor->SetText(QStringLiteral("Name"), QStringLiteral("Euras"));
    editor->Object()->SetField(QStringLiteral("BaseCurrency"), Value(true));
    ASSERT_TRUE(editor->Save().ok());
    EXPECT_TRUE(editor->IsBase());
    EXPECT_EQ(editor->AddRate(QDate(2024, 3, 15), QStringLiteral("1")).Code, 777);
    EXPECT_EQ(BoxTexts(), QStringList{QStringLiteral(
                              "warning: Bazinės valiutos kursas visada lygus 1: jo įvesti "
                              "nereikia.")});
}

TEST_P(CurrencyEditorTest, FixedRateIsTypedWithADecimalComma) {
    auto editor = StoredUsd();
    editor->SetText(QStringLiteral("FixedRate"), QStringLiteral("3,4528"));
    ASSERT_TRUE(editor->Save().ok());
    auto again = Currency(editor->Object()->OIDR());
    EXPECT_EQ(again->Text(QStringLiteral("FixedRate")), QStringLiteral("3,4528"));
    EXPECT_DOUBLE_EQ(again->Object()->Field(QStringLiteral("FixedRate")).toDouble(), 3.4528);
}

ORVO_STORAGE_BACKENDS(CurrencyEditorTest);

} // namespace
} // namespace orvo::host::testing
