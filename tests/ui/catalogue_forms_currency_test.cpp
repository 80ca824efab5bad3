// The window of currencies, offscreen on a stored book of each backend: a day's rate is
// typed as units per euro and listed at once; a rate that is not a positive number is
// refused with a warning; the chosen row's rate is removed; a new currency offers no
// rates until it is saved.
#include "catalogue_forms_fixture.h"

#include <QDialog>
#include <QLineEdit>

namespace orvo::ui::testing {
namespace {

using CurrencyFormsTest = CatalogueFormsTest;

TEST_P(CurrencyFormsTest, DayRatesAreTypedListedAndRemoved) {
    ASSERT_TRUE(
        Open(host::kinds::Currency, host::kinds::Currency, QStringLiteral("Nauja valiuta")));
    EXPECT_FALSE(Read(QStringLiteral("txtRate")).Enabled);
    Type({{QStringLiteral("txtCode"), QStringLiteral("usd")},
          {QStringLiteral("txtName"), QStringLiteral("JAV doleris")}});
    Click(QStringLiteral("cmdWrite"));
    EXPECT_TRUE(BoxTexts().isEmpty());
    EXPECT_EQ(Read(QStringLiteral("txtCode")).Text, QStringLiteral("USD"));
    EXPECT_EQ(Read(QStringLiteral("lvwRates")).Headers,
              (QStringList{QStringLiteral("Data"),
                           QStringLiteral("Kursas (valiutos vienetų už 1 EUR)")}));

    ASSERT_TRUE(Driver().SetDate(QStringLiteral("dtpRateDate"), QDate(2024, 3, 15)).ok());
    Type({{QStringLiteral("txtRate"), QStringLiteral("0")}});
    Click(QStringLiteral("cmdAddRate"));
    EXPECT_EQ(BoxTexts(), QStringList{QStringLiteral(
                              "warning: Kursas turi būti teigiamas skaičius, pvz., 1,0875.")});
    EXPECT_TRUE(Read(QStringLiteral("lvwRates")).Rows.isEmpty());

    Type({{QStringLiteral("txtRate"), QStringLiteral("1,0875")}});
    Click(QStringLiteral("cmdAddRate"));
    ASSERT_TRUE(Driver().SetDate(QStringLiteral("dtpRateDate"), QDate(2024, 3, 18)).ok());
    Type({{QStringLiteral("txtRate"), QStringLiteral("1,09")}});
    Click(QStringLiteral("cmdAddRate"));
    EXPECT_TRUE(BoxTexts().isEmpty());
    ControlState rates = Read(QStringLiteral("lvwRates"));
    ASSERT_EQ(rates.Rows.size(), 2);
    EXPECT_EQ(rates.Rows.at(0).Text(0), QStringLiteral("2024.03.18"));
    EXPECT_EQ(rates.Rows.at(0).Text(1), QStringLiteral("1,09"));
    EXPECT_EQ(rates.Rows.at(1).Text(0), QStringLiteral("2024.03.15"));
    EXPECT_EQ(rates.Rows.at(1).Text(1), QStringLiteral("1,0875"));
    EXPECT_NEAR(session_->Db()
                    .Query(QStringLiteral("SELECT Rate FROM CurrencyRates WHERE DateD = ?"),
                           {Value(QDate(2024, 3, 15))})
                    .Scalar()
                    .toDouble(),
                1.0 / 1.0875, 1e-12);

    ASSERT_TRUE(Driver().SelectRow(QStringLiteral("lvwRates"), 0).ok());
    EXPECT_EQ(Read(QStringLiteral("txtRate")).Text, QStringLiteral("1,09"));
    Click(QStringLiteral("cmdDeleteRate"));
    rates = Read(QStringLiteral("lvwRates"));
    ASSERT_EQ(rates.Rows.size(), 1);
    EXPECT_EQ(rates.Rows.at(0).Text(0), QStringLiteral("2024.03.15"));
}

TEST_P(CurrencyFormsTest, CurrencyRatesOpensThatCurrencysWindowForItsDailyRates) {
    ASSERT_TRUE(
        Open(host::kinds::Currency, host::kinds::Currency, QStringLiteral("Nauja valiuta")));
    Type({{QStringLiteral("txtCode"), QStringLiteral("GBP")},
          {QStringLiteral("txtName"), QStringLiteral("Svaras sterlingų")}});
    Click(QStringLiteral("cmdWrite"));
    ASSERT_TRUE(BoxTexts().isEmpty());

    QStringList shown;
    DialogDriver::Set([&shown](QDialog& dialog) {
        auto* code = dialog.findChild<QLineEdit*>(QStringLiteral("txtCode"));
        shown << dialog.objectName() + QLatin1Char(' ') + (code ? code->text() : QString());
        dialog.reject();
    });
    const OrvoObjectUIOPtr currency =
        session_->ObjectsService()->GetObjectUIO(host::kinds::Currency);
    ASSERT_TRUE(currency);
    const ValueResult opened = currency->Methods(
        QStringLiteral("CurrencyRates"), {Value(QStringLiteral("GBP")), Value(QDate(2024, 3, 15))});
    const ValueResult unknown = currency->Methods(
        QStringLiteral("CurrencyRates"), {Value(QStringLiteral("XYZ")), Value(QDate(2024, 3, 15))});
    DialogDriver::Clear();
    ASSERT_TRUE(opened.ok()) << opened.Text.toStdString();
    EXPECT_TRUE(opened.Value.toBool());
    EXPECT_EQ(shown, QStringList{QStringLiteral("frmCurrencyDialog GBP")});
    EXPECT_FALSE(unknown.ok());
    EXPECT_EQ(unknown.Text, QStringLiteral("Valiuta „XYZ“ nerasta."));
}

ORVO_STORAGE_BACKENDS(CurrencyFormsTest);

} // namespace
} // namespace orvo::ui::testing
