// The selection of debts on a stored book, SQLite and PostgreSQL: invoices stored through
// the operation object, their debts read through its queries, revalued, chosen in the
// list, posted back by the Debts return path, and gone from the debts once stored.
#include "operations/operations_book.h"

#include "core/null_readers.h"
#include "operations/operation_object.h"
#include "operations/selection_commands.h"
#include "settlement/selection_debts.h"
#include "settlement/selection_list.h"
#include "settlement/selection_result.h"

namespace orvo::test {
namespace {

const QString kBlank = QStringLiteral("   ");
const QString kCustomer = QStringLiteral("O000010011");

class SelectionBookTest : public OperationsBook {
protected:
    // Stores invoices to the customer on 2410: 121,00 in base and 100 USD at 0,9.
    void BookInvoices() {
        OrvoObjectUIOPtr op = Object(QStringLiteral("O0201500"));
        ASSERT_TRUE(op);
        op->SetField(QStringLiteral("DateD"), Value(QDate(2024, 3, 1)));
        op->SetField(QStringLiteral("Number"), QStringLiteral("SF-1"));
        op->SetField(QStringLiteral("Comment"), QStringLiteral("Sąskaitos"));
        const ValueArray customer{qint16(1), kCustomer, QStringLiteral("UAB „Ąžuolas“")};
        ValueResult r =
            AddBR(op, {QStringLiteral("2410"), QStringLiteral("5000"), 121.0, customer, qint16(0),
                       kBlank, 0.0, 0.0, kBlank, 0.0, QStringLiteral("Už prekes")});
        ASSERT_EQ(r.Code, 0) << r.Text.toStdString();
        r = AddBR(op,
                  {QStringLiteral("2410"), QStringLiteral("5000"), 100.0, customer, qint16(1),
                   QStringLiteral("USD"), 0.9, 0.0, kBlank, 0.0, QStringLiteral("Už paslaugas")});
        ASSERT_EQ(r.Code, 0) << r.Text.toStdString();
        const ResultRecord saved = op->Save();
        ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    }

    RecordsetPtr ReadDebts(const OrvoObjectUIOPtr& op, const QDate& date) {
        DebtsRequest request;
        request.Account = QStringLiteral("2410");
        request.Date = date;
        request.Addressee = kCustomer;
        request.Sign = 1;
        const ValueResult r = SelectionDebts::Read(op, request);
        EXPECT_EQ(r.Code, 0) << r.Text.toStdString();
        return r.Value.toRecordset();
    }
};

TEST_P(SelectionBookTest, ChosenDebtsArePostedWithTheirRateChangeAndLeaveNoBalance) {
    BookInvoices();
    OrvoObjectUIOPtr payment = Object(QStringLiteral("O0201500"));
    ASSERT_TRUE(payment);
    payment->SetField(QStringLiteral("DateD"), Value(QDate(2024, 3, 15)));
    payment->SetField(QStringLiteral("Number"), QStringLiteral("KP-1"));

    const RecordsetPtr debts = ReadDebts(payment, QDate(2024, 3, 15));
    ASSERT_TRUE(debts);
    ASSERT_EQ(debts->RecordCount(), 2);
    // The copy can be written.
    debts->MoveFirst();
    EXPECT_DOUBLE_EQ(NzDouble(debts->Field(QStringLiteral("LikutisLt"))), 121.0);
    debts->MoveNext();
    EXPECT_DOUBLE_EQ(NzDouble(debts->Field(QStringLiteral("LikutisLt"))), 90.0);
    EXPECT_DOUBLE_EQ(NzDouble(debts->Field(QStringLiteral("LikutisCurr"))), 100.0);
    EXPECT_EQ(NzString(debts->Field(QStringLiteral("FCurrencyCode"))), QStringLiteral("USD"));

    DictionaryPtr rates = Dictionary::Create();
    rates->Add(QStringLiteral("USD"), Value(0.95));
    SelectionDebts::Revalue(debts, rates);
    debts->MoveLast();
    EXPECT_DOUBLE_EQ(NzDouble(debts->Field(QStringLiteral("CurrInfluence"))), -5.0);

    SelectionList list;
    list.SetRoleAccounts(QStringLiteral("5803"), QStringLiteral("6803"));
    list.SetSide(-1);
    list.Fill(debts);
    ASSERT_EQ(list.Rows().size(), 2);
    ASSERT_TRUE(list.Check(0));
    ASSERT_TRUE(list.Check(1));
    EXPECT_DOUBLE_EQ(list.TotalPayment(), 216.0);

    SelectionResultContext context;
    context.CallerKind = QStringLiteral("O0201504");
    context.Addressee = kCustomer;
    context.AddresseeName = QStringLiteral("UAB „Ąžuolas“");
    const RecordsetPtr result = SelectionResult::Build(list, context);
    ASSERT_EQ(result->RecordCount(), 2);

    auto operation = std::dynamic_pointer_cast<UIO0201500>(payment);
    ASSERT_TRUE(operation);
    DebtSettlement settlement;
    settlement.Sign = -1;
    settlement.DebtAccount = QStringLiteral("2410");
    settlement.CounterAccount = QStringLiteral("2710");
    const ValueResult posted = SelectionCommands(*operation).PostSelectedDebts(settlement, result);
    ASSERT_EQ(posted.Code, 0) << posted.Text.toStdString();
    EXPECT_EQ(posted.Value.toInt32(), 2);
    const ResultRecord saved = payment->Save();
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();

    // The stored entries, their sums in hundredths: the base payment, the rate gain, the
    // currency payment.
    const host::QueryResult q = session_->Db().Query(
        QStringLiteral("SELECT AccountD, AccountC, SumA FROM BR WHERE BROperID = ? ORDER BY ID"),
        {Value(double(NumberOf(payment->OIDR())))});
    ASSERT_TRUE(q.ok()) << q.Text.toStdString();
    ASSERT_EQ(q.RowCount(), 3);
    EXPECT_EQ(q.At(0, 0).toString(), QStringLiteral("2710"));
    EXPECT_EQ(q.At(0, 1).toString(), QStringLiteral("2410"));
    EXPECT_DOUBLE_EQ(q.At(0, 2).toDouble(), 12100.0);
    EXPECT_EQ(q.At(1, 0).toString(), QStringLiteral("2410"));
    EXPECT_EQ(q.At(1, 1).toString(), QStringLiteral("5803"));
    EXPECT_DOUBLE_EQ(q.At(1, 2).toDouble(), 500.0);
    EXPECT_EQ(q.At(2, 1).toString(), QStringLiteral("2410"));
    EXPECT_DOUBLE_EQ(q.At(2, 2).toDouble(), 9500.0);

    // Nothing is left to pay.
    OrvoObjectUIOPtr later = Object(QStringLiteral("O0201500"));
    const RecordsetPtr left = ReadDebts(later, QDate(2024, 3, 31));
    ASSERT_TRUE(left);
    EXPECT_EQ(left->RecordCount(), 0);
    // Before the payment the debts were open.
    EXPECT_EQ(ReadDebts(later, QDate(2024, 3, 14))->RecordCount(), 2);
}

TEST_P(SelectionBookTest, AWrongBalanceAndAMissingRateAreToldOnceForEachCurrency) {
    BookInvoices();
    OrvoObjectUIOPtr op = Object(QStringLiteral("O0201500"));
    const RecordsetPtr debts = ReadDebts(op, QDate(2024, 3, 15));
    ASSERT_TRUE(debts);
    // No rate of the date for USD.
    SelectionDebts::Revalue(debts, Dictionary::Create());
    SelectionList list;
    list.Fill(debts);
    ASSERT_EQ(list.Rows().size(), 2);
    session_->Messages()->Take();
    DictionaryPtr reported = Dictionary::Create();
    EXPECT_FALSE(list.Check(1, reported));
    EXPECT_FALSE(list.Check(1, reported));
    EXPECT_FALSE(list.Rows().at(1).Checked);
    const QList<host::RecordedMessage> boxes = session_->Messages()->Take();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_EQ(boxes.first().Kind, MessageKind::Warning);
    EXPECT_EQ(boxes.first().Text,
              QStringLiteral("2024.03.01 SF-1 Už paslaugas\nNenurodytas USD kursas!"));

    // A currency balance below zero is refused.
    list.Rows()[1].SetAmount(SelectionRow::LikutisCurr, -1.0);
    EXPECT_FALSE(list.Check(1));
    const QList<host::RecordedMessage> wrong = session_->Messages()->Take();
    ASSERT_EQ(wrong.size(), 1);
    EXPECT_EQ(wrong.first().Text,
              QStringLiteral("2024.03.01 SF-1 Už paslaugas\nKlaidingas likutis !"));
}

INSTANTIATE_TEST_SUITE_P(Storage, SelectionBookTest,
                         ::testing::Values(host::Backend::SQLite, host::Backend::PostgreSQL),
                         host::testing::BackendLabel);

} // namespace
} // namespace orvo::test
