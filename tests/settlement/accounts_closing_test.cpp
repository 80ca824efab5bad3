// The year-end closing on a stored demo book, on both backends: the entries that zero
// class 5 and class 6 into the transit account, the result carried to the profit or loss
// account, the exclusions, a second fill, and the choices kept in the saved operation.
#include "closing_book.h"

#include "settlement/accounts_closing.h"

namespace orvo::test {
namespace {

const QDate kYearEnd(2023, 12, 31);

class AccountsClosingTest : public ClosingBook {
protected:
    // A new closing in the demo group "Metų uždarymas", loaded as the window loads it.
    std::unique_ptr<AccountsClosing> NewClosing() {
        const OrvoObjectUIOPtr op = Object(QStringLiteral("O0201506"));
        EXPECT_TRUE(op);
        op->SetField(QStringLiteral("BROperGroupID"), Value(ClosingGroup()));
        auto closing = std::make_unique<AccountsClosing>(op);
        closing->Load();
        // The demo chart keeps the classes 5 and 6 as group rows, which AccountList
        // leaves out, so their boxes open empty and the user types the prefixes.
        EXPECT_TRUE(closing->Parameters.Acc5.isEmpty());
        EXPECT_TRUE(closing->Parameters.Acc6.isEmpty());
        closing->Parameters.Acc5 = QStringLiteral("5");
        closing->Parameters.Acc6 = QStringLiteral("6");
        // A year-end before the demo book's own operations, which lie in the last weeks.
        closing->Date = kYearEnd;
        return closing;
    }

    // The prepared entries as "debit|credit|sum".
    static QStringList Prepared(const AccountsClosing& closing) {
        QStringList rows;
        for (const AccountsClosing::EntryRow& row : closing.Rows)
            rows << row.Cells.at(0) + QLatin1Char('|') + row.Cells.at(1) + QLatin1Char('|') +
                        row.Cells.at(2);
        return rows;
    }

    // Income of 10000.00 and expense of 7000.00 during the year.
    void IncomeAndExpense() {
        Book(QDate(2023, 3, 1), QStringLiteral("P-1"), {{"2720", "5000", 10000.00}});
        Book(QDate(2023, 5, 1), QStringLiteral("S-1"), {{"6000", "2720", 7000.00}});
    }

    // The balance of an account after the closing, as "sum side".
    QString BalanceOf(AccountsClosing& closing, const QString& account) {
        const ValueResult r = closing.Object()->Properties(QStringLiteral("AccountsTotal"),
                                                           QStringLiteral("'2023.12.31',''"));
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        const RecordsetPtr rs = r.Value.toRecordset();
        for (rs->MoveFirst(); rs && !rs->Eof(); rs->MoveNext())
            if (NzString(rs->Field(QStringLiteral("Account"))) == account)
                return QString::number(NzDouble(rs->Field(QStringLiteral("SumA"))), 'f', 2) +
                       QLatin1Char(' ') + NzString(rs->Field(QStringLiteral("AccType")));
        return QStringLiteral("none");
    }
};

TEST_P(AccountsClosingTest, NewClosingTakesTheDefaultsTheChartHoldsAndTheLastDayOfLastYear) {
    const OrvoObjectUIOPtr op = Object(QStringLiteral("O0201506"));
    op->SetField(QStringLiteral("BROperGroupID"), Value(ClosingGroup()));
    const auto closing = std::make_unique<AccountsClosing>(op);
    closing->Load();
    EXPECT_EQ(closing->Parameters.Join(), QStringLiteral("#59##69#391#340#341"));
    EXPECT_EQ(closing->Date, QDate(Today().year() - 1, 12, 31));
    EXPECT_EQ(closing->Title, QStringLiteral("Nauja operacija"));
    EXPECT_FALSE(closing->Number.isEmpty());
    EXPECT_EQ(closing->GroupText, QStringLiteral("Metų uždarymas"));
    EXPECT_TRUE(Boxes().isEmpty());
}

TEST(AccountsClosingChoices, DefaultsMissingFromTheChartLeaveTheirBoxesEmpty) {
    EXPECT_EQ(AccountsClosing::Choices::Defaults({"5", "6", "391", "341"}).Join(),
              QStringLiteral("5##6##391##341"));
}

TEST_P(AccountsClosingTest, IncomeOf10000AndExpenseOf7000CloseInto391AndLeave3000On340) {
    IncomeAndExpense();
    const auto closing = NewClosing();
    ASSERT_TRUE(closing->Fill());
    EXPECT_EQ(Prepared(*closing),
              QStringList({"5000|391|10 000,00", "391|6000|7 000,00", "391|340|3 000,00"}));
    EXPECT_DOUBLE_EQ(closing->Total5, 10000.00);
    EXPECT_DOUBLE_EQ(closing->Total6, 7000.00);
    EXPECT_EQ(closing->Total5Text, QStringLiteral("10 000,00 EUR"));
    EXPECT_EQ(closing->Total6Text, QStringLiteral("7 000,00 EUR"));

    ASSERT_TRUE(closing->Write());
    const QString oidr = closing->Object()->OIDR();
    ASSERT_GE(oidr.size(), 9);
    EXPECT_EQ(StoredEntries(oidr),
              QStringList({"5000|391|10000.00|2023.12.31", "391|6000|7000.00|2023.12.31",
                           "391|340|3000.00|2023.12.31"}));
    // The closing's own kind as its reference, so that opening it again brings its editor.
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BROpers WHERE ID = ? AND FOIDR = ?"),
                    {Value(oidr.mid(8).toDouble()), Value(QStringLiteral("O0201506"))}),
              1);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BROpers WHERE ID = ? AND OType = ? AND "
                                   "Comment = ? AND Parameters = ?"),
                    {Value(oidr.mid(8).toDouble()), Value(QStringLiteral("O0201506")),
                     Value(QStringLiteral("Sąskaitų uždarymas")),
                     Value(QStringLiteral("5#59#6#69#391#340#341"))}),
              1);
    EXPECT_EQ(BalanceOf(*closing, QStringLiteral("5000")), QStringLiteral("0.00 D"));
    EXPECT_EQ(BalanceOf(*closing, QStringLiteral("6000")), QStringLiteral("0.00 D"));
    EXPECT_EQ(BalanceOf(*closing, QStringLiteral("340")), QStringLiteral("3000.00 K"));
}

TEST_P(AccountsClosingTest, IncomeAccountWithDebitBalanceReducesTotal5AndGetsTheReverseEntry) {
    Book(QDate(2023, 3, 1), QStringLiteral("P-1"), {{"2720", "5000", 1000.00}});
    Book(QDate(2023, 4, 1), QStringLiteral("K-1"), {{"5803", "2720", 200.00}});
    Book(QDate(2023, 5, 1), QStringLiteral("S-1"), {{"6000", "2720", 300.00}});
    const auto closing = NewClosing();
    ASSERT_TRUE(closing->Fill());
    EXPECT_DOUBLE_EQ(closing->Total5, 800.00);
    EXPECT_DOUBLE_EQ(closing->Total6, 300.00);
    ASSERT_TRUE(closing->Write());
    EXPECT_EQ(StoredEntries(closing->Object()->OIDR()),
              QStringList({"5000|391|1000.00|2023.12.31", "391|5803|200.00|2023.12.31",
                           "391|6000|300.00|2023.12.31", "391|340|500.00|2023.12.31"}));
}

TEST_P(AccountsClosingTest, AccountsBeginningWith59And69AreUntouchedWithTheDefaultSettings) {
    Book(QDate(2023, 3, 1), QStringLiteral("P-1"),
         {{"2720", "5000", 1000.00}, {"2720", "5900", 500.00}});
    Book(QDate(2023, 5, 1), QStringLiteral("S-1"),
         {{"6000", "2720", 100.00}, {"6900", "2720", 400.00}});
    const auto closing = NewClosing();
    ASSERT_TRUE(closing->Fill());
    ASSERT_TRUE(closing->Write());
    EXPECT_EQ(StoredEntries(closing->Object()->OIDR()),
              QStringList({"5000|391|1000.00|2023.12.31", "391|6000|100.00|2023.12.31",
                           "391|340|900.00|2023.12.31"}));
    EXPECT_EQ(BalanceOf(*closing, QStringLiteral("5900")), QStringLiteral("500.00 K"));
    EXPECT_EQ(BalanceOf(*closing, QStringLiteral("6900")), QStringLiteral("400.00 D"));
}

TEST_P(AccountsClosingTest, EmptyExclusionBoxTakesInTheWholeClass) {
    Book(QDate(2023, 3, 1), QStringLiteral("P-1"),
         {{"2720", "5000", 1000.00}, {"2720", "5900", 500.00}});
    Book(QDate(2023, 5, 1), QStringLiteral("S-1"),
         {{"6000", "2720", 100.00}, {"6900", "2720", 400.00}});
    const auto closing = NewClosing();
    closing->Parameters.Acc59.clear();
    closing->Parameters.Acc69.clear();
    ASSERT_TRUE(closing->Fill());
    ASSERT_TRUE(closing->Write());
    EXPECT_EQ(StoredEntries(closing->Object()->OIDR()),
              QStringList({"5000|391|1000.00|2023.12.31", "5900|391|500.00|2023.12.31",
                           "391|6000|100.00|2023.12.31", "391|6900|400.00|2023.12.31",
                           "391|340|1000.00|2023.12.31"}));
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BROpers WHERE Parameters = ?"),
                    {Value(QStringLiteral("5##6##391#340#341"))}),
              1);
}

TEST_P(AccountsClosingTest, EmptyProfitAccountMakesNoResultEntryAnd391KeepsTheDifference) {
    IncomeAndExpense();
    const auto closing = NewClosing();
    closing->Parameters.Profit.clear();
    ASSERT_TRUE(closing->Fill());
    ASSERT_TRUE(closing->Write());
    EXPECT_EQ(StoredEntries(closing->Object()->OIDR()),
              QStringList({"5000|391|10000.00|2023.12.31", "391|6000|7000.00|2023.12.31"}));
    EXPECT_EQ(BalanceOf(*closing, QStringLiteral("391")), QStringLiteral("3000.00 K"));
    EXPECT_EQ(BalanceOf(*closing, QStringLiteral("340")), QStringLiteral("none"));
}

TEST_P(AccountsClosingTest, ExpenseAboveIncomeGoesToTheLossAccount) {
    Book(QDate(2023, 3, 1), QStringLiteral("P-1"), {{"2720", "5000", 400.00}});
    Book(QDate(2023, 5, 1), QStringLiteral("S-1"), {{"6000", "2720", 650.00}});
    const auto closing = NewClosing();
    ASSERT_TRUE(closing->Fill());
    EXPECT_EQ(Prepared(*closing).last(), QStringLiteral("341|391|250,00"));
}

TEST_P(AccountsClosingTest, PressingFillTwiceDoesNotDoubleTheEntries) {
    IncomeAndExpense();
    const auto closing = NewClosing();
    ASSERT_TRUE(closing->Fill());
    ASSERT_TRUE(closing->Fill());
    EXPECT_EQ(closing->Rows.size(), 3);
    ASSERT_TRUE(closing->Write());
    EXPECT_EQ(StoredEntries(closing->Object()->OIDR()).size(), 3);
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BR WHERE AccountD = '391' OR AccountC = "
                                   "'391'")),
              3);
}

TEST_P(AccountsClosingTest, SavedClosingReopensWithItsChoicesNumberAndDate) {
    IncomeAndExpense();
    QString oidr;
    QString number;
    {
        const auto closing = NewClosing();
        closing->Parameters.Acc59 = QStringLiteral("5900");
        closing->Parameters.Loss.clear();
        ASSERT_TRUE(closing->Fill());
        ASSERT_TRUE(closing->Write());
        oidr = closing->Object()->OIDR();
        number = closing->Number;
    }
    AccountsClosing reopened(Object(oidr));
    reopened.Load();
    EXPECT_EQ(reopened.Parameters.Join(), QStringLiteral("5#5900#6#69#391#340#"));
    EXPECT_EQ(reopened.Date, kYearEnd);
    EXPECT_EQ(reopened.Number, number);
    EXPECT_EQ(reopened.Title, number + QStringLiteral("  Sąskaitų uždarymas"));
    EXPECT_EQ(reopened.Rows.size(), 3);
}

TEST_P(AccountsClosingTest, NewClosingAfterASaveKeepsTheGroupAndStartsEmpty) {
    IncomeAndExpense();
    const auto closing = NewClosing();
    ASSERT_TRUE(closing->Fill());
    ASSERT_TRUE(closing->Write());
    const QString saved = closing->Object()->OIDR();
    const QString number = closing->Number;
    closing->NewClosing();
    EXPECT_TRUE(closing->IsNew());
    EXPECT_TRUE(closing->Rows.isEmpty());
    EXPECT_EQ(closing->Title, QStringLiteral("Nauja operacija"));
    EXPECT_EQ(closing->GroupText, QStringLiteral("Metų uždarymas"));
    EXPECT_NE(closing->Number, number);
    EXPECT_EQ(NzLong(closing->Object()->Field(QStringLiteral("BROperGroupID"))), ClosingGroup());
    EXPECT_EQ(StoredEntries(saved).size(), 3) << "the saved closing stays as it was";
}

TEST_P(AccountsClosingTest, SavingWithoutPreparedEntriesWarnsAndStoresNothing) {
    const auto closing = NewClosing();
    const qint64 before = Count(QStringLiteral("SELECT COUNT(*) FROM BROpers"));
    EXPECT_FALSE(closing->Write());
    EXPECT_EQ(Boxes(), QStringList({"Neparuošti operacijos įrašai!"}));
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BROpers")), before);
    EXPECT_LT(closing->Object()->OIDR().size(), 9);
}

TEST_P(AccountsClosingTest, RefusedSaveShowsWhyAndGivesBackTheOldDateAndNumber) {
    IncomeAndExpense();
    const host::QueryResult id =
        session_->Db().Query(QStringLiteral("SELECT ID FROM Accounts WHERE Account = '391'"));
    ASSERT_TRUE(id.ok() && id.RowCount() == 1);
    ASSERT_TRUE(session_->Db()
                    .Execute(QStringLiteral("INSERT INTO AccountLocks (AccountID, DateToHigh, "
                                            "DateToLow) VALUES (?, ?, ?)"),
                             {id.Scalar(), Value(QDate(2024, 1, 31)), Value(QDate(1900, 1, 1))})
                    .ok());
    const auto closing = NewClosing();
    ASSERT_TRUE(closing->Fill());
    const Value oldDate = closing->Object()->Field(QStringLiteral("DateD"));
    const Value oldNumber = closing->Object()->Field(QStringLiteral("Number"));
    EXPECT_FALSE(closing->Write());
    const QStringList boxes = Boxes();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_TRUE(boxes.first().startsWith(QStringLiteral("Įrašymas neatliktas !\n")))
        << boxes.first().toStdString();
    EXPECT_GT(boxes.first().size(), QStringLiteral("Įrašymas neatliktas !\n").size());
    EXPECT_EQ(closing->Object()->Field(QStringLiteral("DateD")).toDate(), oldDate.toDate());
    EXPECT_EQ(NzString(closing->Object()->Field(QStringLiteral("Number"))), NzString(oldNumber));
    EXPECT_LT(closing->Object()->OIDR().size(), 9);
    EXPECT_EQ(closing->Rows.size(), 3);
}

TEST_P(AccountsClosingTest, GroupOfAnotherKindIsDroppedWithAWarning) {
    const OrvoObjectUIOPtr op = Object(QStringLiteral("O0201506"));
    op->SetField(QStringLiteral("BROperGroupID"), Value(GeneralGroup()));
    AccountsClosing closing(op);
    closing.Load();
    EXPECT_EQ(Boxes(), QStringList({"Grupės tipas neatitinka operacijos tipo!"}));
    EXPECT_TRUE(closing.GroupRef.isEmpty());
    EXPECT_TRUE(closing.GroupText.isEmpty());
}

TEST_P(AccountsClosingTest, DeletingAllEntriesAsksFirst) {
    IncomeAndExpense();
    const auto closing = NewClosing();
    ASSERT_TRUE(closing->Fill());
    session_->Messages()->QueueAnswer(false);
    EXPECT_FALSE(closing->DeleteAll());
    EXPECT_EQ(closing->Rows.size(), 3);
    session_->Messages()->QueueAnswer(true);
    EXPECT_TRUE(closing->DeleteEntries({closing->Rows.first().GUID}));
    EXPECT_EQ(closing->Rows.size(), 2);
    EXPECT_EQ(Boxes(),
              QStringList({"Ar tikrai norite panaikinti?", "Ar tikrai norite panaikinti?"}));
}

} // namespace

ORVO_STORAGE_BACKENDS(AccountsClosingTest);

} // namespace orvo::test
