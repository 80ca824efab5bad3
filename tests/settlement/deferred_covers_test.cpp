// Deferred-period covers on a stored demo book, on both backends: the monthly entries an
// operation gets for a deferred entry, the list showing what already covers an entry, and
// the checks that refuse before anything is written.
#include "closing_book.h"

#include "frame/orvo_settings_service.h"
#include "settlement/deferred_covers.h"

namespace orvo::test {
namespace {

using Row = DeferredCovers::Row;

class DeferredCoversTest : public ClosingBook {
protected:
    // The window's logic on a new operation of the general group, as the group's menu
    // opens it, with the selection of deferred expense on 2910 in December 2023.
    std::unique_ptr<DeferredCovers> Open(bool byDebit = true) {
        const OrvoObjectUIOPtr op = Object(QStringLiteral("O0201500"));
        EXPECT_TRUE(op);
        op->SetField(QStringLiteral("BROperGroupID"), Value(GeneralGroup()));
        auto covers = std::make_unique<DeferredCovers>(op);
        covers->Load();
        covers->ByDebit = byDebit;
        covers->Account = byDebit ? QStringLiteral("2910") : QStringLiteral("4910");
        covers->CoverAccount = byDebit ? QStringLiteral("6100") : QStringLiteral("5000");
        covers->Date1 = QDate(2023, 12, 1);
        covers->Date2 = QDate(2023, 12, 31);
        covers->OnlyNotCovered = false;
        covers->OperDate = QDate(2024, 1, 1);
        covers->Comment = QStringLiteral("Draudimo nurašymas");
        return covers;
    }

    // An insurance of 100.00 paid in advance.
    QString Insurance() {
        return Book(QDate(2023, 12, 5), QStringLiteral("D-1"), {{"2910", "2720", 100.00}},
                    QStringLiteral("Draudimo įmoka"));
    }

    // Checks the first row and gives it a period.
    static void Choose(DeferredCovers& covers, const QString& from, const QString& months) {
        ASSERT_GE(covers.Rows.size(), 2);
        ASSERT_EQ(covers.Rows.first().RowKind, Row::Kind::Entry);
        covers.Rows.first().Checked = true;
        covers.SetPeriod(0, from, months);
    }
};

TEST(DeferredCoversSums, MonthlySumsCarryTheRestToTheLastMonth) {
    EXPECT_EQ(DeferredCovers::MonthlySums(100.00, 3), QVector<double>({33.33, 33.33, 33.34}));
    EXPECT_EQ(DeferredCovers::MonthlySums(120.00, 12).last(), 10.00);
    EXPECT_EQ(DeferredCovers::MonthlySums(10.00, 0), QVector<double>());
    EXPECT_EQ(DeferredCovers::MonthDate(QStringLiteral("2024.02")), QDate(2024, 2, 1));
    EXPECT_EQ(DeferredCovers::MonthText(QDate(2024, 11, 30)), QStringLiteral("2024.11"));
}

TEST_P(DeferredCoversTest, SumOf100Over3MonthsGives3333And3333And3334) {
    Insurance();
    const auto covers = Open();
    ASSERT_TRUE(covers->Fill());
    ASSERT_EQ(covers->Rows.size(), 2);
    EXPECT_EQ(covers->Rows.at(0).Number, QStringLiteral("D-1"));
    EXPECT_DOUBLE_EQ(covers->Rows.at(0).SumA, 100.00);
    EXPECT_TRUE(covers->Rows.at(0).RelatedBROper.isEmpty());
    EXPECT_EQ(covers->Rows.at(1).RowKind, Row::Kind::Total);
    EXPECT_EQ(covers->Rows.at(1).Number, QStringLiteral("Viso:"));
    Choose(*covers, QStringLiteral("2024.01"), QStringLiteral("3"));

    ASSERT_TRUE(covers->Write());
    ASSERT_EQ(covers->Created.size(), 1);
    EXPECT_EQ(StoredEntries(covers->Created.first()),
              QStringList({"6100|2910|33.33|2024.01.01", "6100|2910|33.33|2024.02.01",
                           "6100|2910|33.34|2024.03.01"}));
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BROpers WHERE ID = ? AND DateD = ? AND "
                                   "Comment = ? AND BROperGroupID = ?"),
                    {Value(covers->Created.first().mid(8).toDouble()), Value(QDate(2024, 1, 1)),
                     Value(QStringLiteral("Draudimo nurašymas")), Value(GeneralGroup())}),
              1);
    EXPECT_TRUE(Boxes().isEmpty());
}

TEST_P(DeferredCoversTest, RowAlreadyCoveredShowsItsOperationInRelatedBROper) {
    const QString paid = Insurance();
    const auto covers = Open();
    ASSERT_TRUE(covers->Fill());
    Choose(*covers, QStringLiteral("2024.01"), QStringLiteral("3"));
    const QString number = covers->Number;
    ASSERT_TRUE(covers->Write());
    const QString made = covers->Created.first();

    // The list filled anew after writing shows the cover and its period.
    ASSERT_EQ(covers->Rows.size(), 2);
    const Row& row = covers->Rows.first();
    EXPECT_EQ(row.Key, EntryOf(paid));
    EXPECT_EQ(row.RelatedBROper, QStringLiteral("2024.01.01 Nr. ") + number);
    EXPECT_EQ(row.RelatedOIDR, made);
    EXPECT_EQ(row.MonthFrom, QStringLiteral("2024.01"));
    EXPECT_EQ(row.MonthCount, QStringLiteral("3"));

    // The detailed view lists each covering entry under its row.
    covers->DetailView = true;
    ASSERT_TRUE(covers->Fill());
    ASSERT_EQ(covers->Rows.size(), 5);
    QStringList details;
    for (const Row& r : covers->Rows)
        if (r.RowKind == Row::Kind::Cover)
            details << r.RelatedBROper + QLatin1Char('|') +
                           r.BRDate.toString(QStringLiteral("yyyy.MM.dd")) + QLatin1Char('|') +
                           QString::number(r.BRSumA, 'f', 2) + QLatin1Char('|') + r.AccountD +
                           QLatin1Char('|') + r.AccountC;
    const QString op = QStringLiteral("2024.01.01 Nr. ") + number;
    EXPECT_EQ(details,
              QStringList({op + "|2024.01.01|33.33|6100|2910", op + "|2024.02.01|33.33|6100|2910",
                           op + "|2024.03.01|33.34|6100|2910"}));

    // Covered in full, the entry leaves the list of the ones not yet written off.
    covers->OnlyNotCovered = true;
    ASSERT_TRUE(covers->Fill());
    EXPECT_EQ(covers->Rows.size(), 1);
    EXPECT_EQ(covers->Rows.first().RowKind, Row::Kind::Total);
}

TEST_P(DeferredCoversTest, OperationDateLaterThanTheFirstMonthIsRefusedBeforeAnythingIsWritten) {
    Insurance();
    const auto covers = Open();
    ASSERT_TRUE(covers->Fill());
    Choose(*covers, QStringLiteral("2024.01"), QStringLiteral("3"));
    covers->OperDate = QDate(2024, 1, 15);
    const qint64 before = Count(QStringLiteral("SELECT COUNT(*) FROM BROpers"));
    EXPECT_FALSE(covers->Write());
    EXPECT_EQ(Boxes(),
              QStringList({" Nr. D-1\nOperacijos data negali būti didesnė dengimo datos!"}));
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BROpers")), before);
    EXPECT_TRUE(covers->Created.isEmpty());
}

TEST_P(DeferredCoversTest, CheckedRowWithoutPeriodIsRefused) {
    Insurance();
    const auto covers = Open();
    ASSERT_TRUE(covers->Fill());
    covers->Rows.first().Checked = true;
    const qint64 before = Count(QStringLiteral("SELECT COUNT(*) FROM BROpers"));
    EXPECT_FALSE(covers->Write());
    EXPECT_EQ(Boxes(), QStringList({" Nr. D-1\nNenurodytas laikotarpis!"}));
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BROpers")), before);
}

TEST_P(DeferredCoversTest, DeferredIncomeIsBookedByDebitingTheDeferredAccount) {
    Book(QDate(2023, 12, 10), QStringLiteral("A-7"), {{"2720", "4910", 120.00}});
    const auto covers = Open(false);
    EXPECT_EQ(covers->Title(), QStringLiteral(" Pajamų užskaitymas"));
    EXPECT_EQ(covers->RelatedCaption(), QStringLiteral("Užskaitymo operacija"));
    ASSERT_TRUE(covers->Fill());
    covers->DateFrom = QDate(2024, 2, 1);
    covers->MonthCount = QStringLiteral("2");
    covers->Rows.first().Checked = true;
    covers->FillPeriod();
    EXPECT_EQ(covers->Rows.first().MonthFrom, QStringLiteral("2024.02"));
    ASSERT_TRUE(covers->Write());
    EXPECT_EQ(StoredEntries(covers->Created.first()),
              QStringList({"4910|5000|60.00|2024.02.01", "4910|5000|60.00|2024.03.01"}));
}

TEST_P(DeferredCoversTest, ChoicesAreRememberedAfterWriting) {
    Insurance();
    {
        const auto covers = Open();
        covers->DetailView = true;
        ASSERT_TRUE(covers->Fill());
        Choose(*covers, QStringLiteral("2024.01"), QStringLiteral("2"));
        ASSERT_TRUE(covers->Write());
    }
    const OrvoObjectUIOPtr op = Object(QStringLiteral("O0201500"));
    DeferredCovers again(op);
    again.Load();
    EXPECT_EQ(again.Account, QStringLiteral("2910"));
    EXPECT_EQ(again.CoverAccount, QStringLiteral("6100"));
    EXPECT_EQ(again.Comment, QStringLiteral("Draudimo nurašymas"));
    EXPECT_TRUE(again.ByDebit);
    EXPECT_TRUE(again.DetailView);
}

TEST_P(DeferredCoversTest, DeletingTheCoverAsksAndRemovesItsOperation) {
    Insurance();
    const auto covers = Open();
    ASSERT_TRUE(covers->Fill());
    Choose(*covers, QStringLiteral("2024.01"), QStringLiteral("3"));
    ASSERT_TRUE(covers->Write());
    const QString made = covers->Created.first();
    session_->Messages()->QueueAnswer(true);
    EXPECT_TRUE(covers->DeleteCover(0));
    EXPECT_EQ(Boxes(), QStringList({"Ar tikrai norite panaikinti?"}));
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BROpers WHERE ID = ?"),
                    {Value(made.mid(8).toDouble())}),
              0);
    EXPECT_TRUE(covers->Rows.first().RelatedBROper.isEmpty());
}

TEST_P(DeferredCoversTest, EachCheckedRowGetsAnOperationOfItsOwnWithTheNextNumber) {
    Insurance();
    Book(QDate(2023, 12, 20), QStringLiteral("D-2"), {{"2910", "2720", 50.00}});
    const auto covers = Open();
    ASSERT_TRUE(covers->Fill());
    ASSERT_EQ(covers->Rows.size(), 3);
    covers->ToggleAll();
    covers->SetPeriod(0, QStringLiteral("2024.01"), QStringLiteral("2"));
    covers->SetPeriod(1, QStringLiteral("2024.02"), QStringLiteral("1"));
    const QString first = covers->Number;
    ASSERT_TRUE(covers->Write());
    ASSERT_EQ(covers->Created.size(), 2);
    EXPECT_EQ(StoredEntries(covers->Created.at(0)),
              QStringList({"6100|2910|50.00|2024.01.01", "6100|2910|50.00|2024.02.01"}));
    EXPECT_EQ(StoredEntries(covers->Created.at(1)), QStringList({"6100|2910|50.00|2024.02.01"}));
    const host::QueryResult numbers = session_->Db().Query(
        QStringLiteral("SELECT Number FROM BROpers WHERE ID IN (?, ?) ORDER BY ID"),
        {Value(covers->Created.at(0).mid(8).toDouble()),
         Value(covers->Created.at(1).mid(8).toDouble())});
    ASSERT_TRUE(numbers.ok() && numbers.RowCount() == 2);
    EXPECT_EQ(numbers.At(0, 0).toString(), first);
    EXPECT_NE(numbers.At(1, 0).toString(), first);
    EXPECT_NE(covers->Number, numbers.At(1, 0).toString()) << "the window offers the next one";
}

TEST_P(DeferredCoversTest, SelectAllTogglesEveryEntryRow) {
    Insurance();
    Book(QDate(2023, 12, 20), QStringLiteral("D-2"), {{"2910", "2720", 50.00}});
    const auto covers = Open();
    ASSERT_TRUE(covers->Fill());
    ASSERT_EQ(covers->Rows.size(), 3);
    EXPECT_DOUBLE_EQ(covers->Rows.last().SumA, 150.00);
    covers->ToggleAll();
    EXPECT_TRUE(covers->Rows.at(0).Checked && covers->Rows.at(1).Checked);
    EXPECT_FALSE(covers->Rows.at(2).Checked);
    covers->ToggleAll();
    EXPECT_FALSE(covers->Rows.at(0).Checked || covers->Rows.at(1).Checked);
}

} // namespace

ORVO_STORAGE_BACKENDS(DeferredCoversTest);

} // namespace orvo::test
