// frmTransferSum on its own: the typed sum limited to what the row has left, the base sum
// of a currency row following what was typed, Enter as OK, and Cancel keeping nothing.
#include "operations/forms/operation_forms_fixture.h"

#include "settlement/forms/frm_transfer_sum.h"

#include <QLabel>

namespace orvo::ui::testing {

namespace {

class TransferSumTest : public OperationFormsTest {
protected:
    static SumEntryInput BaseRow() {
        SumEntryInput in;
        in.Code = QStringLiteral("   ");
        in.PaymentRate = 0;
        in.BaseBalance = 20.0;
        in.OldPayment = 10.0;
        return in;
    }
    static SumEntryInput DollarRow() {
        SumEntryInput in;
        in.Code = QStringLiteral("USD");
        in.PaymentRate = 0.95;
        in.RowRate = 0.95;
        in.BaseBalance = 95.0;
        in.CurrencyBalance = 100.0;
        return in;
    }
};

TEST_F(TransferSumTest, ABaseRowTakesAtMostItsBalanceAndTheOldPayment) {
    auto form = std::make_shared<FrmTransferSum>();
    form->SetInput(BaseRow());
    QString shown, limited;
    bool currencyHidden = false;
    Expect(QStringLiteral("frmTransferSumDialog"), [&](QDialog& dialog) {
        shown = Find<QLineEdit>(&dialog, "txtSum")->text();
        currencyHidden = Find<QLabel>(&dialog, "lblSum")->isHidden() &&
                         Find<QLabel>(&dialog, "lblCurrCode2")->isHidden();
        Type(Find<QLineEdit>(&dialog, "txtSum"), QStringLiteral("50"));
        limited = Find<QLineEdit>(&dialog, "txtSum")->text();
        Click(&dialog, "cmdOK");
    });
    form->Show(true);
    EXPECT_EQ(shown, QStringLiteral("10,00"));
    EXPECT_TRUE(currencyHidden);
    EXPECT_EQ(limited, QStringLiteral("30,00"));
    EXPECT_FALSE(form->Cancelled());
    EXPECT_DOUBLE_EQ(form->NewBase(), 30.0);
    EXPECT_DOUBLE_EQ(form->NewCurr(), 0.0);
}

TEST_F(TransferSumTest, ACurrencyRowShowsTheBaseSumOfWhatWasTypedBeforeTheLimit) {
    auto form = std::make_shared<FrmTransferSum>();
    form->SetInput(DollarRow());
    QString limited, base, rate, currentRate;
    Expect(QStringLiteral("frmTransferSumDialog"), [&](QDialog& dialog) {
        rate = Find<QLabel>(&dialog, "lblRate")->text();
        currentRate = Find<QLabel>(&dialog, "lblCurrentRate")->text();
        Type(Find<QLineEdit>(&dialog, "txtSum"), QStringLiteral("150"));
        limited = Find<QLineEdit>(&dialog, "txtSum")->text();
        base = Find<QLabel>(&dialog, "lblSum")->text();
        // Enter leaves the field again, so the base sum follows the limited sum, and
        // presses OK.
        QTest::keyClick(Find<QLineEdit>(&dialog, "txtSum"), Qt::Key_Return);
    });
    form->Show(true);
    EXPECT_EQ(rate, QStringLiteral("Skolos kursas"));
    EXPECT_EQ(currentRate, QStringLiteral("Apm. kursas"));
    EXPECT_EQ(limited, QStringLiteral("100,00"));
    EXPECT_EQ(base, QStringLiteral("142,50"));
    EXPECT_FALSE(form->Cancelled());
    EXPECT_DOUBLE_EQ(form->NewBase(), 95.0);
    EXPECT_DOUBLE_EQ(form->NewCurr(), 100.0);
}

TEST_F(TransferSumTest, CancelKeepsNoSum) {
    auto form = std::make_shared<FrmTransferSum>();
    form->SetInput(BaseRow());
    Expect(QStringLiteral("frmTransferSumDialog"), [&](QDialog& dialog) {
        Type(Find<QLineEdit>(&dialog, "txtSum"), QStringLiteral("5"));
        Click(&dialog, "cmdCancel");
    });
    form->Show(true);
    EXPECT_TRUE(form->Cancelled());
    EXPECT_DOUBLE_EQ(form->NewBase(), 0.0);
}

} // namespace
} // namespace orvo::ui::testing
